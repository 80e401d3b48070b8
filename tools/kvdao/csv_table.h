#pragma once

// CsvTable: a whole CSV file read into memory for importing, as RFC 4180
// describes it and as `kvdao jet export --format csv` writes it: UTF-8 (a
// leading byte-order mark is skipped), records ending in LF or CRLF (the
// last one may end without), fields separated by commas, a field quoted
// with '"' when it holds a comma, quote or line break (a quote inside it
// doubled). The first record is the header with the column names.
//
// An unquoted empty field is a null; a quoted empty field ("") is an empty
// text. Field texts are kept unescaped in one buffer, so a table costs
// little more than the file itself.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kvdao::cli {

// A CSV file that cannot be read: the message names the line.
class CsvError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class CsvTable {
 public:
  // Reads the whole text. CsvError when there is no header line, a column
  // name is empty or repeated, a record has another number of fields than
  // the header, a quote is misplaced or never closed, or the text is not
  // valid UTF-8.
  static CsvTable Parse(std::string_view text);

  const std::vector<std::string>& columns() const noexcept { return columns_; }
  std::size_t row_count() const noexcept { return row_count_; }
  // The field of a data row (0 = the first record after the header); no
  // value for a null. Valid as long as the table.
  std::optional<std::string_view> Field(std::size_t row, std::size_t column) const noexcept;

 private:
  struct Span {
    std::uint32_t offset;
    std::uint32_t length;  // kNull for a null field
  };
  static constexpr std::uint32_t kNull = 0xFFFFFFFFu;

  std::vector<std::string> columns_;
  std::size_t row_count_ = 0;
  std::string text_;
  std::vector<Span> fields_;  // row by row
};

}  // namespace kvdao::cli
