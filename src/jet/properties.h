#pragma once

// Object properties kept in the LvProp long value of an MSysObjects row. The
// blob starts with "MR2\0" (Jet 4) or "KKD\0" (Jet 3) and holds chunks, each
// a 4-byte length (counting itself) and a 2-byte type: type 0x80 lists the
// property names (2-byte length + name); types 0x00-0x02 hold the values of
// one object (the table, or a column named in the chunk's own header), each
// value being a 2-byte length, a flag byte, a type byte, a 2-byte index into
// the name list, a 2-byte data length and the data.
//
// The engine reads the column properties that DAO shows on a field
// (Required, AllowZeroLength). Properties are descriptive only: a damaged
// blob yields no properties rather than an error.

#include <string>
#include <unordered_map>

#include "bytes.h"
#include "format.h"

namespace kvdao::jet::internal {

struct ColumnProperties {
  bool required = false;
  bool allow_zero_length = false;
};

// Column properties by column name, folded to lower case (code page 1252).
using PropertyTable = std::unordered_map<std::string, ColumnProperties>;

PropertyTable ReadColumnProperties(Bytes blob, const format::Layout& layout);

}  // namespace kvdao::jet::internal
