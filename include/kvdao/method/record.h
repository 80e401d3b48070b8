#pragma once

// CRecord: the polymorphic base of every record that the record arrays and
// record managers hold (a quantify method record, for one). It gives a record
// its run-time class name and a virtual destructor, so that an array can
// delete its records through base pointers; everything else is up to the
// record types that derive from it.

namespace kvdao {

class CRecord {
 public:
  CRecord() = default;
  CRecord(const CRecord&) = default;
  CRecord& operator=(const CRecord&) = default;
  virtual ~CRecord() = default;

  static const char* ClassName() noexcept { return "CRecord"; }
  virtual const char* GetClassName() const noexcept { return ClassName(); }
};

}  // namespace kvdao
