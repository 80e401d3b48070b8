// Reads arbitrary bytes as CSV for import. Bad input must end in CsvError;
// a column's inferred type must convert every one of its fields.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "column_type_inference.h"
#include "csv_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kvdao::cli;
  try {
    CsvTable table = CsvTable::Parse(std::string_view(reinterpret_cast<const char*>(data), size));
    for (std::size_t column = 0; column < table.columns().size(); ++column) {
      ImportColumnType type = InferColumnType(table, column);
      for (std::size_t row = 0; row < table.row_count(); ++row) {
        try {
          ConvertField(table.Field(row, column), type.dao_type);
        } catch (const ColumnTypeError&) {
          std::abort();  // inference promised this column's values fit its type
        }
      }
    }
  } catch (const CsvError&) {
  }
  return 0;
}
