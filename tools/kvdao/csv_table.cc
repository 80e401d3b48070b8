#include "csv_table.h"

#include <unordered_set>

namespace kvdao::cli {
namespace {

// Length of the UTF-8 sequence starting at text[i], or 0 when it is malformed
// (overlong forms, surrogates and code points past U+10FFFF included).
std::size_t Utf8SequenceLength(std::string_view text, std::size_t i) {
  auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  unsigned char lead = byte(i);
  if (lead < 0x80) return 1;
  std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
  if (length == 0 || lead > 0xF4 || i + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(i + k) & 0xC0) != 0x80) return 0;
  }
  unsigned char second = byte(i + 1);
  if (lead == 0xE0 && second < 0xA0) return 0;  // overlong
  if (lead == 0xED && second >= 0xA0) return 0;  // surrogate
  if (lead == 0xF0 && second < 0x90) return 0;  // overlong
  if (lead == 0xF4 && second >= 0x90) return 0;  // past U+10FFFF
  return length;
}

// Reads records field by field, tracking the line for messages.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  bool AtEnd() const noexcept { return pos_ >= text_.size(); }
  std::size_t line() const noexcept { return line_; }

  // Reads one record into fields (spans into out); returns false at the end.
  bool ReadRecord(std::string& out, std::vector<std::pair<std::uint32_t, std::uint32_t>>& fields,
                  std::uint32_t null_length) {
    if (AtEnd()) return false;
    fields.clear();
    while (true) {
      std::size_t start = out.size();
      bool quoted = pos_ < text_.size() && text_[pos_] == '"';
      if (quoted) {
        ReadQuoted(out);
      } else {
        ReadPlain(out);
      }
      std::uint32_t length = static_cast<std::uint32_t>(out.size() - start);
      if (!quoted && length == 0) length = null_length;
      if (out.size() >= null_length) Fail("the file is too large to import");
      fields.emplace_back(static_cast<std::uint32_t>(start), length);
      if (pos_ >= text_.size()) return true;
      char c = text_[pos_];
      if (c == ',') {
        ++pos_;
        continue;
      }
      // c is a line end: ReadQuoted and ReadPlain stop only there or at a comma.
      pos_ += c == '\r' ? 2 : 1;
      ++line_;
      return true;
    }
  }

  [[noreturn]] void Fail(const std::string& what) const {
    throw CsvError("line " + std::to_string(line_) + ": " + what);
  }

 private:
  bool AtLineEnd() const noexcept {
    char c = text_[pos_];
    return c == '\n' || (c == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n');
  }

  void ReadPlain(std::string& out) {
    std::size_t start = pos_;
    while (pos_ < text_.size() && text_[pos_] != ',' && !AtLineEnd()) {
      if (text_[pos_] == '"') Fail("a quote inside a field that does not start with one");
      ++pos_;
    }
    out.append(text_.substr(start, pos_ - start));
  }

  void ReadQuoted(std::string& out) {
    ++pos_;  // opening quote
    while (true) {
      std::size_t quote = text_.find('"', pos_);
      if (quote == std::string_view::npos) Fail("a quoted field is never closed");  // reported where it opens
      for (std::size_t i = pos_; i < quote; ++i) {
        if (text_[i] == '\n') ++line_;
      }
      out.append(text_.substr(pos_, quote - pos_));
      pos_ = quote + 1;
      if (pos_ < text_.size() && text_[pos_] == '"') {  // a doubled quote stands for one
        out += '"';
        ++pos_;
        continue;
      }
      if (pos_ < text_.size() && text_[pos_] != ',' && !AtLineEnd()) {
        Fail("a closing quote is followed by more text in the same field");
      }
      return;
    }
  }

  std::string_view text_;
  std::size_t pos_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

CsvTable CsvTable::Parse(std::string_view text) {
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  std::size_t line = 1;
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] == '\n') ++line;
    std::size_t length = Utf8SequenceLength(text, i);
    if (length == 0) throw CsvError("line " + std::to_string(line) + ": the text is not valid UTF-8");
    i += length;
  }

  CsvTable table;
  Reader reader(text);
  auto header_error = [](const std::string& what) { return CsvError("line 1: " + what); };
  std::vector<std::pair<std::uint32_t, std::uint32_t>> fields;
  std::string header_text;
  if (!reader.ReadRecord(header_text, fields, kNull)) throw CsvError("line 1: the file has no header line");
  std::unordered_set<std::string> seen;
  for (auto [offset, length] : fields) {
    if (length == kNull || length == 0) throw header_error("a column name is empty");
    std::string name = header_text.substr(offset, length);
    if (!seen.insert(name).second) throw header_error("the column name '" + name + "' appears twice");
    table.columns_.push_back(std::move(name));
  }
  const std::size_t width = table.columns_.size();
  table.text_.reserve(text.size());
  while (true) {
    std::size_t line_before = reader.line();
    if (!reader.ReadRecord(table.text_, fields, kNull)) break;
    if (fields.size() != width) {
      throw CsvError("line " + std::to_string(line_before) + ": " + std::to_string(fields.size()) +
                     " fields where the header has " + std::to_string(width));
    }
    for (auto [offset, length] : fields) table.fields_.push_back({offset, length});
    ++table.row_count_;
  }
  return table;
}

std::optional<std::string_view> CsvTable::Field(std::size_t row, std::size_t column) const noexcept {
  const Span& span = fields_[row * columns_.size() + column];
  if (span.length == kNull) return std::nullopt;
  return std::string_view(text_).substr(span.offset, span.length);
}

}  // namespace kvdao::cli
