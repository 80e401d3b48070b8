#pragma once

// Turning a Variant into the stored form of a column's value, with the
// conversions DAO makes between compatible types and the refusals Jet makes
// (a value of the wrong type, a number out of the field's range, a text
// longer than the field).

#include <cstddef>
#include <string>

#include "kvdao/platform/variant.h"
#include "row_builder.h"

namespace kvdao::jet::internal {

// Stages value for column (an index into spec.columns) in row. Memo values
// are staged as their text bytes; the table writer turns them into long
// values. DaoException naming the field when the value does not fit.
void StageValue(const ColumnLayout& column, std::size_t index, const Variant& value, RowBuilder& row);

}  // namespace kvdao::jet::internal
