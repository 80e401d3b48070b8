#include "dump_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "kvdao/platform/text.h"
#include "text_codec.h"

namespace kvdao::jet::test {
namespace {

// Java's layout of the shortest round-trip digits: plain notation for
// magnitudes in [1e-3, 1e7), else d.dddE[-]x; always a digit after the point.
std::string JavaLayout(const char* scientific) {
  std::string text = scientific;
  std::string sign;
  if (text[0] == '-') {
    sign = "-";
    text.erase(0, 1);
  }
  std::size_t e = text.find('e');
  std::string mantissa = text.substr(0, e);
  int exponent = std::atoi(text.c_str() + e + 1);
  std::string digits;
  for (char c : mantissa) {
    if (c != '.') digits += c;
  }
  if (exponent >= -3 && exponent < 7) {
    std::string out;
    if (exponent < 0) {
      out = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    } else {
      std::size_t whole = static_cast<std::size_t>(exponent) + 1;
      if (digits.size() < whole) digits.append(whole - digits.size(), '0');
      out = digits.substr(0, whole) + "." + (digits.size() > whole ? digits.substr(whole) : "0");
    }
    return sign + out;
  }
  std::string out = digits.substr(0, 1) + "." + (digits.size() > 1 ? digits.substr(1) : "0");
  return sign + out + "E" + std::to_string(exponent);
}

template <typename T>
std::string JavaNumber(T value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
  if (value == 0) return std::signbit(value) ? "-0.0" : "0.0";
  char buffer[64];
  auto result = std::to_chars(buffer, buffer + sizeof buffer - 1, value, std::chars_format::scientific);
  *result.ptr = '\0';
  return JavaLayout(buffer);
}

std::string TypeName(const FieldInfo& field) {
  switch (field.type) {
    case dbBoolean: return "BOOLEAN";
    case dbByte: return "BYTE";
    case dbInteger: return "INT";
    case dbLong: return "LONG";
    case dbCurrency: return "MONEY";
    case dbSingle: return "FLOAT";
    case dbDouble: return "DOUBLE";
    case dbDate: return "SHORT_DATE_TIME";
    case dbBinary: return "BINARY";
    case dbText: return "TEXT(" + std::to_string(field.size) + ")";
    case dbLongBinary: return "OLE";
    case dbMemo: return "MEMO";
    case dbGUID: return "GUID";
    case dbDecimal: return "NUMERIC";
    default: return "UNKNOWN";
  }
}

void AppendEscaped(std::string& out, std::string_view text) {
  for (char c : text) {
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\t': out += "\\t"; break;
      case '\r': out += "\\r"; break;
      case '\n': out += "\\n"; break;
      default: out += c;
    }
  }
}

void AppendValue(std::string& out, const FieldValue& value) {
  if (value.null) {
    out += "\\N";
    return;
  }
  static const char* const kHex = "0123456789abcdef";
  switch (value.type) {
    case dbBoolean: case dbByte: case dbInteger: case dbLong: out += std::to_string(value.integer); break;
    case dbCurrency: out += CurrencyToString(value.integer); break;
    case dbSingle: out += JavaFloat(value.single); break;
    case dbDouble: out += JavaDouble(value.real); break;
    case dbDate: out += FormatOleDate(value.real); break;
    case dbText: case dbMemo: AppendEscaped(out, value.text); break;
    case dbGUID: out += GuidToString(value.bytes); break;
    case dbDecimal: out += DecimalToString(value.decimal); break;
    default:
      out += "0x";
      for (std::uint8_t byte : value.bytes) {
        out += kHex[byte >> 4];
        out += kHex[byte & 15];
      }
  }
}

// Code page 1252 names as UTF-8 (the dump is UTF-8).
std::string NameUtf8(const std::string& name) {
  std::string out;
  internal::AppendJet3Text(std::span(reinterpret_cast<const std::uint8_t*>(name.data()), name.size()),
                           TextEncoding::kUtf8, out);
  return out;
}

}  // namespace

std::string JavaDouble(double value) { return JavaNumber(value); }
std::string JavaFloat(float value) { return JavaNumber(value); }

std::string DumpDatabase(const Database& database) {
  std::vector<std::string> names = database.GetTableNames();
  std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return platform::CompareNoCase1252(a, b) < 0;
  });
  std::string out;
  for (const std::string& name : names) {
    Recordset records = database.OpenTable(name);
    records.SetTextEncoding(TextEncoding::kUtf8);
    out += "#TABLE\t" + NameUtf8(name) + "\n#COLUMNS";
    int count = records.GetFieldCount();
    for (int i = 0; i < count; ++i) {
      const FieldInfo& field = records.GetFieldInfo(i);
      out += "\t" + NameUtf8(field.name) + ":" + TypeName(field);
    }
    out += "\n";
    long rows = 0;
    for (; !records.IsEOF(); records.MoveNext(), ++rows) {
      for (int i = 0; i < count; ++i) {
        if (i > 0) out += '\t';
        AppendValue(out, records.GetFieldView(i));
      }
      out += '\n';
    }
    out += "#END\t" + NameUtf8(name) + "\t" + std::to_string(rows) + "\n";
  }
  return out;
}

}  // namespace kvdao::jet::test
