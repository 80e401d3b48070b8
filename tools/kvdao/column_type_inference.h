#pragma once

// Column types for a table imported from CSV: inferred from the values
// (Long when every value is a whole number in Long's range, else Double when
// every value is a number, else Date/Time when every value is a date as the
// export writes it, else Text, or Memo for texts over 255 characters), or
// given by DAO type name. Nulls say nothing about a column's type; a column
// of nulls only is Text. Also turns each CSV field into the Variant the
// column stores.

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "csv_table.h"
#include "kvdao/platform/variant.h"

namespace kvdao::cli {

// A value or option that does not fit: the message says which and why.
class ColumnTypeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct ImportColumnType {
  int dao_type = 0;    // dbText, dbLong, ... (kvdao/platform/dao_types.h)
  int max_length = 0;  // Text and Memo: the longest value, in characters
};

// The DAO type of a name: Text, Memo, Double, Single, Long, Integer, Byte,
// Boolean, Currency or Date (case-insensitive); nullopt for anything else.
std::optional<int> DaoTypeFromName(std::string_view name);

// Parses "COLUMN:TYPE,COLUMN:TYPE"; ColumnTypeError for a malformed entry or
// an unknown type name.
std::map<std::string, int> ParseTypeList(std::string_view list);

// The type of one column, inferred from its values.
ImportColumnType InferColumnType(const CsvTable& table, std::size_t column);

// The type of one column given its DAO type: the longest value is measured
// for Text and Memo.
ImportColumnType GivenColumnType(const CsvTable& table, std::size_t column, int dao_type);

// A field's value for a column of this type: VT_NULL for a null; text in
// code page 1252. Booleans read true/false, yes/no, on/off and numbers;
// dates read "YYYY-MM-DD", optionally followed by "THH:MM:SS" (or a space
// instead of T) and a fraction of a second. ColumnTypeError when the text
// is not a value of the type or is out of its range.
Variant ConvertField(std::optional<std::string_view> field, int dao_type);

}  // namespace kvdao::cli
