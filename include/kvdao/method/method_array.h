#pragma once

// CMethodArray: the list of a quantify method's records (CMethodRecord), in
// compound order, positions from 0. It owns its records.

#include "kvdao/method/record_array.h"

namespace kvdao {

class CMethodArray : public CRecordArray {
 public:
  static const char* ClassName() noexcept { return "CMethodArray"; }
  const char* GetClassName() const noexcept override { return ClassName(); }
};

}  // namespace kvdao
