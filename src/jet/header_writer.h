#pragma once

// Writing the database header page (page 0) of a new Jet 4 file: format
// name and version, and in the RC4-masked region the code page, the sort
// order, the creation date and an empty password.

#include <cstdint>
#include <span>

namespace kvdao::jet::internal {

struct HeaderValues {
  std::uint16_t code_page = 1252;
  std::uint32_t sort_order = 0x0409;  // General
  double creation_date = 0.0;         // OLE date
};

// Fills a zeroed page with the header of a Jet 4 file.
void WriteHeaderPage(std::span<std::uint8_t> page, const HeaderValues& values);

}  // namespace kvdao::jet::internal
