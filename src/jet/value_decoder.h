#pragma once

// Turns one decoded cell of a row into a FieldValue (and a FieldValue into a
// Variant). Numbers are read straight from the row; texts and chained long
// values go into buffers the caller keeps per field, so reading a table
// allocates only while those buffers grow.

#include <string>
#include <vector>

#include "kvdao/jet/field_value.h"
#include "kvdao/platform/dao_types.h"
#include "kvdao/platform/variant.h"
#include "row_decoder.h"

namespace kvdao::jet::internal {

struct FieldBuffers {
  std::string text;
  std::vector<std::uint8_t> bytes;
};

// DAO type number of a stored column type; types this engine does not
// interpret (system-table internals) are Binary.
int DaoType(std::uint8_t column_type) noexcept;

void DecodeValue(const PageSource& pages, const ColumnDef& column, const Cell& cell, Bytes row,
                 TextEncoding encoding, FieldValue& out, FieldBuffers& buffers);

// The value as a Variant (texts must be in code page 1252).
Variant ToVariant(const FieldValue& value);

}  // namespace kvdao::jet::internal
