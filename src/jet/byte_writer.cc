#include "byte_writer.h"

#include "kvdao/platform/code_page.h"

namespace kvdao::jet::internal {

void ByteBuffer::Ucs2(std::string_view cp1252) {
  for (unsigned char c : cp1252) U16(static_cast<std::uint16_t>(platform::CodePointFrom1252(c)));
}

void ByteBuffer::Name(std::string_view cp1252) {
  U16(static_cast<std::uint16_t>(2 * cp1252.size()));
  Ucs2(cp1252);
}

}  // namespace kvdao::jet::internal
