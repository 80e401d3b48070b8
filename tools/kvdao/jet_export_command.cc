// kvdao jet export FILE TABLE [--format csv|jsonl] [--progress|--no-progress]:
// every record of a table, streamed as CSV (header line, RFC 4180 quoting)
// or JSON lines. Records are formatted straight from the recordset's field
// views into one output buffer, so exporting allocates nothing per value and
// holds no more than the buffer whatever the table's size.

#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ostream>

#include "jet_command.h"
#include "kvdao/jet/recordset.h"

namespace kvdao::cli {
namespace {

enum class Format { kCsv, kJsonLines };

constexpr std::size_t kFlushSize = 1 << 16;

class Output {
 public:
  explicit Output(std::ostream& out) : out_(out) { buffer_.reserve(kFlushSize * 2); }
  ~Output() { Flush(); }
  void Flush() {
    out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
  }
  void MaybeFlush() {
    if (buffer_.size() >= kFlushSize) Flush();
  }
  std::string& text() { return buffer_; }

 private:
  std::ostream& out_;
  std::string buffer_;
};

void AppendInteger(std::string& out, std::int64_t value) {
  char digits[24];
  auto result = std::to_chars(digits, digits + sizeof digits, value);
  out.append(digits, result.ptr);
}

// Shortest text that reads back as the same number.
template <typename T>
void AppendFloat(std::string& out, T value, Format format) {
  if (!std::isfinite(value)) {
    out += format == Format::kJsonLines ? "null" : (std::isnan(value) ? "NaN" : (value > 0 ? "Infinity" : "-Infinity"));
    return;
  }
  char digits[40];
  auto result = std::to_chars(digits, digits + sizeof digits, value);
  out.append(digits, result.ptr);
}

void AppendBase64(std::string& out, std::span<const std::uint8_t> bytes) {
  static const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::size_t i = 0;
  for (; i + 3 <= bytes.size(); i += 3) {
    std::uint32_t n = (bytes[i] << 16) | (bytes[i + 1] << 8) | bytes[i + 2];
    out += kAlphabet[n >> 18];
    out += kAlphabet[(n >> 12) & 63];
    out += kAlphabet[(n >> 6) & 63];
    out += kAlphabet[n & 63];
  }
  if (std::size_t rest = bytes.size() - i; rest > 0) {
    std::uint32_t n = bytes[i] << 16;
    if (rest == 2) n |= bytes[i + 1] << 8;
    out += kAlphabet[n >> 18];
    out += kAlphabet[(n >> 12) & 63];
    out += rest == 2 ? kAlphabet[(n >> 6) & 63] : '=';
    out += '=';
  }
}

bool NeedsCsvQuotes(std::string_view text) {
  if (text.empty()) return true;  // tells an empty text from NULL
  for (char c : text) {
    if (c == ',' || c == '"' || c == '\r' || c == '\n') return true;
  }
  return false;
}

void AppendCsvText(std::string& out, std::string_view text) {
  bool quote = NeedsCsvQuotes(text);
  if (!quote) {
    out += text;
    return;
  }
  out += '"';
  for (char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

// A value whose digits are a string in JSON and a bare field in CSV.
void AppendExact(std::string& out, const std::string& digits, Format format) {
  if (format == Format::kJsonLines) {
    out += '"';
    out += digits;
    out += '"';
  } else {
    out += digits;
  }
}

void AppendValue(std::string& out, const jet::FieldValue& value, Format format) {
  if (value.null) {
    if (format == Format::kJsonLines) out += "null";
    return;
  }
  switch (value.type) {
    case dbBoolean: out += value.integer != 0 ? "true" : "false"; break;
    case dbByte: case dbInteger: case dbLong: AppendInteger(out, value.integer); break;
    case dbCurrency: AppendExact(out, jet::CurrencyToString(value.integer), format); break;
    case dbDecimal: AppendExact(out, jet::DecimalToString(value.decimal), format); break;
    case dbSingle: AppendFloat(out, value.single, format); break;
    case dbDouble: AppendFloat(out, value.real, format); break;
    case dbDate: {
      jet::DateTimeParts p = jet::SplitOleDate(value.real);
      char text[40];
      int n = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", p.year, p.month, p.day, p.hour,
                            p.minute, p.second);
      if (p.millisecond != 0) n += std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n), ".%03d", p.millisecond);
      AppendExact(out, std::string(text, static_cast<std::size_t>(n)), format);
      break;
    }
    case dbText: case dbMemo:
      if (format == Format::kJsonLines) {
        AppendJsonUtf8(out, value.text);
      } else {
        AppendCsvText(out, value.text);
      }
      break;
    case dbGUID: AppendExact(out, jet::GuidToString(value.bytes), format); break;
    default:
      if (format == Format::kJsonLines) out += '"';
      AppendBase64(out, value.bytes);
      if (format == Format::kJsonLines) out += '"';
  }
}

class Progress {
 public:
  Progress(std::ostream& err, bool enabled, std::string table, long total)
      : err_(err), enabled_(enabled), table_(std::move(table)), total_(total) {}
  void Tick(long rows) {
    if (!enabled_ || rows % 1024 != 0) return;
    auto now = std::chrono::steady_clock::now();
    if (now - last_ < std::chrono::milliseconds(200)) return;
    last_ = now;
    err_ << "\rexporting " << table_ << ": " << rows << " / " << total_ << " records" << std::flush;
  }
  void Done(long rows) {
    if (enabled_) err_ << "\rexporting " << table_ << ": " << rows << " records, done.      \n" << std::flush;
  }

 private:
  std::ostream& err_;
  bool enabled_;
  std::string table_;
  long total_;
  std::chrono::steady_clock::time_point last_{};
};

}  // namespace

int RunJetExport(CommandContext& context) {
  std::string format_name = "csv";
  bool missing = false;
  TakeOption(context.args, "--format", format_name, missing);
  if (missing) {
    context.err << "kvdao jet export: --format needs a value (csv or jsonl)\n";
    return kExitUsage;
  }
  bool progress = ::isatty(STDERR_FILENO) != 0;
  if (TakeFlag(context.args, "--progress")) progress = true;
  if (TakeFlag(context.args, "--no-progress")) progress = false;
  if (int status = RejectExtraArguments(context, "jet export", 2); status != kExitOk) return status;
  if (context.args.size() < 2) {
    context.err << "kvdao jet export: needs a database file and a table name\n";
    return kExitUsage;
  }
  Format format;
  if (format_name == "csv") {
    format = Format::kCsv;
  } else if (format_name == "jsonl") {
    format = Format::kJsonLines;
  } else {
    context.err << "kvdao jet export: unknown format '" << format_name << "' (csv or jsonl)\n";
    return kExitUsage;
  }

  jet::Database database;
  if (!OpenJetDatabase(context, context.args[0], database)) return kExitFailure;
  jet::Recordset records = database.OpenTable(context.args[1]);
  records.SetTextEncoding(jet::TextEncoding::kUtf8);
  const int count = records.GetFieldCount();

  // Field names as they appear in the output, prepared once.
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) names.push_back(Cp1252ToUtf8(records.GetFieldInfo(i).name));

  Output output(context.out);
  std::string& out = output.text();
  if (format == Format::kCsv) {
    for (int i = 0; i < count; ++i) {
      if (i > 0) out += ',';
      AppendCsvText(out, names[static_cast<std::size_t>(i)]);
    }
    out += "\r\n";
  } else {
    for (std::string& name : names) {
      std::string quoted;
      AppendJsonUtf8(quoted, name);
      name = quoted + ":";
    }
  }

  Progress meter(context.err, progress, Cp1252ToUtf8(context.args[1]), records.GetRecordCount());
  long rows = 0;
  for (; !records.IsEOF(); records.MoveNext()) {
    std::span<const jet::FieldValue> record = records.GetRecordView();
    if (format == Format::kCsv) {
      for (int i = 0; i < count; ++i) {
        if (i > 0) out += ',';
        const jet::FieldValue& value = record[static_cast<std::size_t>(i)];
        if (!value.null) AppendValue(out, value, format);  // NULL is an empty field
      }
      out += "\r\n";
    } else {
      out += '{';
      for (int i = 0; i < count; ++i) {
        if (i > 0) out += ',';
        out += names[static_cast<std::size_t>(i)];
        AppendValue(out, record[static_cast<std::size_t>(i)], format);
      }
      out += "}\n";
    }
    output.MaybeFlush();
    meter.Tick(++rows);
  }
  output.Flush();
  meter.Done(rows);
  return context.out ? kExitOk : kExitFailure;
}

}  // namespace kvdao::cli
