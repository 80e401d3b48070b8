#pragma once

// Writing an object's property list (the catalog's LvProp value): "MR2\0",
// a chunk naming the properties, a chunk for the table itself and one per
// column that has properties. The writer keeps the column properties DAO
// sets when a field is created: Required and AllowZeroLength, stored when
// true.

#include <cstdint>
#include <vector>

#include "table_layout.h"

namespace kvdao::jet::internal {

// Empty when no column has a property to keep.
std::vector<std::uint8_t> EncodeColumnProperties(const TableLayout& spec);

}  // namespace kvdao::jet::internal
