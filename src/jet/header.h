#pragma once

// The database header page (page 0): format version, and the values kept in
// its RC4-masked region (code page, sort order, creation date).

#include <cstdint>
#include <span>

#include "bytes.h"
#include "format.h"
#include "kvdao/jet/database.h"

namespace kvdao::jet::internal {

// Applies RC4 with the given key to data in place (masking and unmasking are
// the same operation).
void Rc4Apply(std::span<const std::uint8_t> key, std::span<std::uint8_t> data) noexcept;

struct Header {
  const format::Layout* layout = &format::kJet4;
  DatabaseInfo info;
  bool has_password = false;  // Jet 4: a database password is set
  bool encrypted = false;     // Jet 4: pages are RC4-encrypted
};

// Reads page 0 of a file; DaoException when the file is not a Jet 3 or Jet 4
// database.
Header ReadHeader(Bytes file);

}  // namespace kvdao::jet::internal
