#include "kvdao/method/method_share_mem.h"

#include <cstring>
#include <vector>

namespace kvdao {

bool CMethodShareMem::CreateMethodValue(const int& value, const int& count) {
  return CreateValue(value, count, kTypeTag) != 0;
}

bool CMethodShareMem::SetMethodValue(const CMethodRecord& record, const int& value, const int& count) {
  // A count beyond one record would read past it.
  if (record.GetData() == nullptr || count > static_cast<int>(kMethodRecordSize)) return false;
  return SetValue(value, record.GetData(), count, kTypeTag) != 0;
}

bool CMethodShareMem::GetMethodValue(CMethodRecord& record, const int& value, const int& count) {
  tagINTERNAL_METHOD buffer{};
  if (count > static_cast<int>(kMethodRecordSize) || GetValue(value, &buffer, count, kTypeTag) == 0) return false;
  record = buffer;
  return true;
}

bool CMethodShareMem::SetMethodValues(const CMethodRecord* records, const int& n, const int& value,
                                      const int& count) {
  if (n < 1 || records == nullptr) return false;
  std::vector<std::uint8_t> buffer(static_cast<std::size_t>(n) * kMethodRecordSize);
  if (count > static_cast<int>(buffer.size())) return false;
  for (int i = 0; i < n; ++i) {
    CMethodRecord copy(records[i]);
    std::memcpy(buffer.data() + static_cast<std::size_t>(i) * kMethodRecordSize, copy.GetData(), kMethodRecordSize);
  }
  return SetValue(value, buffer.data(), count, kTypeTag) != 0;
}

bool CMethodShareMem::GetMethodValues(CMethodRecord* records, const int& n, const int& value, const int& count) {
  if (n < 1 || records == nullptr) return false;
  std::vector<std::uint8_t> buffer(static_cast<std::size_t>(n) * kMethodRecordSize);
  bool ok = count <= static_cast<int>(buffer.size()) && GetValue(value, buffer.data(), count, kTypeTag) != 0;
  tagINTERNAL_METHOD record;
  for (int i = 0; i < n; ++i) {
    std::memcpy(&record, buffer.data() + static_cast<std::size_t>(i) * kMethodRecordSize, kMethodRecordSize);
    records[i] = record;
  }
  return ok;
}

}  // namespace kvdao
