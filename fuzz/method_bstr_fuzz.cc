// Fuzzes reading a method record from XML text (ReadBSTR). The first byte
// picks how the rest becomes a wide string: one character per byte (so that
// text seeds stay readable), or little-endian UTF-16 pairs. Whatever was
// read must write back as XML that reads again.

#include <cstddef>
#include <cstdint>
#include <string>

#include "kvdao/method/method_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  std::u16string wide;
  if ((data[0] & 1) == 0) {
    wide.assign(data + 1, data + size);
  } else {
    for (std::size_t i = 1; i + 1 < size; i += 2) {
      wide.push_back(static_cast<char16_t>(data[i] | data[i + 1] << 8));
    }
  }

  kvdao::CMethodRecord record;
  if (!record.ReadBSTR(wide)) return 0;

  kvdao::XmlBuilder builder;
  if (!record.WriteXML(builder)) __builtin_trap();
  kvdao::CMethodRecord again;
  if (!again.ReadBSTR(builder.ToBSTR())) __builtin_trap();
  return 0;
}
