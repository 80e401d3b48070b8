#pragma once

// CSampleRecordAttributes: the part of a sample that has no place in the
// flat 4262-byte record: texts of any length, the retention time offset, and
// the variable-length groups (masses, concentrations, wavelengths, fraction
// triggers, spares, compounds) with their counts.
//
// Each group is bounded by the number of its columns in a sample list (30
// masses, 20 concentrations, 10 wavelengths, 10 fraction triggers, 5 spares,
// 30 compounds), so that a sample always converts to a list row and back
// without loss. Setting member i of a group makes the group at least i + 1
// long (members in between are empty, or 0.0); setting a member beyond the
// bound is refused.

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "kvdao/samplelist/schema.h"

namespace kvdao {

class CSampleRecordAttributes {
 public:
  // A group of values of one kind, bounded by `Max`.
  template <typename T, int Max>
  class Group {
   public:
    static constexpr int kMax = Max;
    int Count() const noexcept { return static_cast<int>(values_.size()); }
    // The member, or an empty (zero) value outside 0..Count()-1.
    T Get(int i) const { return i >= 0 && i < Count() ? values_[static_cast<std::size_t>(i)] : T(); }
    // False (nothing stored) for i outside 0..Max-1.
    bool Set(int i, T value) {
      if (i < 0 || i >= Max) return false;
      if (i >= Count()) values_.resize(static_cast<std::size_t>(i) + 1);
      values_[static_cast<std::size_t>(i)] = std::move(value);
      return true;
    }
    // Drops trailing members that hold the empty value, so that a group
    // filled from all of a row's columns keeps only what was entered.
    void TrimTrailingEmpty() {
      while (!values_.empty() && values_.back() == T()) values_.pop_back();
    }
    void Clear() noexcept { values_.clear(); }
    bool operator==(const Group&) const = default;

   private:
    std::vector<T> values_;
  };

  Group<std::string, kMassColumnCount> masses;
  Group<std::string, kConcColumnCount> concentrations;
  Group<double, kWavelengthColumnCount> wavelengths;
  Group<std::string, kFractionColumnCount> fractionTriggers;
  Group<std::string, kSpareColumnCount> spares;
  Group<std::string, kCompoundColumnCount> compounds;

  // Texts of any length, by name.
  enum TextField {
    Process,
    ProcessParameters,
    ProcessOptions,
    ProcessAction,
    AcquProcess,
    AcquProcessParameters,
    AcquProcessOptions,
    AcquParameters,
    Parameters,
    Molfile,
    FractionFile,
    FractionStart,
    HPLCFile,
    MSTuneFile,
    InletPreRun,
    InletPostRun,
    InletSwitch,
    MethDB,
    CurveDB,
    SampleGroup,
    AutoAddition,
    CartridgeLocation1,
    CartridgeLocation2,
    FormatFile,
    DumpFile,
    PlateDescription,
    MITFile,
    SubjectSex,
    SubjectSpecies,
    kTextFieldCount
  };
  const std::string& Text(TextField field) const { return texts_[field]; }
  void SetText(TextField field, std::string_view value) { texts_[field].assign(value); }

  double retentionTimeOffset = 0.0;
  // The sample-list layout version of the row the sample came from (the
  // VERSION column), so that a row survives the trip through a record.
  double layoutVersion = 31.5;

  bool operator==(const CSampleRecordAttributes&) const = default;

 private:
  std::array<std::string, kTextFieldCount> texts_;
};

}  // namespace kvdao
