// Fuzzes field-by-number text access (MethodSetFieldStr). Input: a 16-bit
// field number, an 8-bit element index, then the text. After the set, every
// field must read back within the text buffer.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "kvdao/method/method_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  int field = static_cast<std::int16_t>(data[0] | data[1] << 8);
  // Mostly valid numbers, so that the text reaches the conversions.
  if (field >= 0) field %= kvdao::MDF_Count + 2;
  int index = static_cast<std::int8_t>(data[2]);
  std::string text(reinterpret_cast<const char*>(data + 3), size - 3);

  kvdao::CMethodRecord record;
  record.MethodSetFieldStr(field, true, text.c_str(), index);
  // A second text into a neighbouring field, on top of what the first left.
  record.MethodSetFieldStr(field + 1, true, text.c_str(), index);

  char buffer[kvdao::kMethodFieldBufferSize];
  for (int id = 0; id < kvdao::MDF_Count; ++id) {
    double number;
    record.MethodGetFieldStr(id, true, buffer, index, number);
    if (std::memchr(buffer, '\0', sizeof buffer) == nullptr) __builtin_trap();
  }
  record.GetMassIntData();
  record.IsMemberOf(text);
  return 0;
}
