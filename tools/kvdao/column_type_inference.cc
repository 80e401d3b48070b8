#include "column_type_inference.h"

#include <charconv>
#include <cstdint>
#include <limits>

#include "kvdao/platform/code_page.h"
#include "kvdao/platform/dao_types.h"

namespace kvdao::cli {
namespace {

constexpr int kTextMaxLength = 255;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Lower(a[i]) != Lower(b[i])) return false;
  }
  return true;
}

std::optional<std::int64_t> WholeNumber(std::string_view text) {
  std::int64_t value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Numbers as the export writes them (shortest round-trip digits, "NaN",
// "Infinity", "-Infinity").
template <typename Real>
std::optional<Real> RealNumber(std::string_view text) {
  Real value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Days from 1970-01-01 of a proleptic Gregorian date.
std::int64_t DaysFromCivil(std::int64_t y, unsigned m, unsigned d) {
  y -= m <= 2;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

bool Digits(std::string_view text, std::size_t at, std::size_t count, int& value) {
  if (at + count > text.size()) return false;
  value = 0;
  for (std::size_t i = at; i < at + count; ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
    value = value * 10 + (text[i] - '0');
  }
  return true;
}

// "YYYY-MM-DD[(T| )HH:MM:SS[.fff...]]" as an OLE date: days since
// 1899-12-30, the time of day added to the magnitude (so a time before that
// day still counts forward from midnight).
std::optional<double> OleDateOf(std::string_view text) {
  int year, month, day, hour = 0, minute = 0, second = 0;
  if (!Digits(text, 0, 4, year) || text.size() < 10 || text[4] != '-' || !Digits(text, 5, 2, month) ||
      text[7] != '-' || !Digits(text, 8, 2, day)) {
    return std::nullopt;
  }
  static const int kDaysInMonth[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  if (year < 100 || month < 1 || month > 12 || day < 1 || day > kDaysInMonth[month - 1] ||
      (month == 2 && day == 29 && !leap)) {
    return std::nullopt;
  }
  double fraction_of_second = 0.0;
  if (text.size() > 10) {
    if ((text[10] != 'T' && text[10] != ' ') || text.size() < 19 || !Digits(text, 11, 2, hour) || text[13] != ':' ||
        !Digits(text, 14, 2, minute) || text[16] != ':' || !Digits(text, 17, 2, second) || hour > 23 ||
        minute > 59 || second > 59) {
      return std::nullopt;
    }
    if (text.size() > 19) {
      if (text[19] != '.' || text.size() == 20) return std::nullopt;
      double scale = 0.1;
      for (std::size_t i = 20; i < text.size(); ++i, scale /= 10) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
        fraction_of_second += (text[i] - '0') * scale;
      }
    }
  }
  double days = static_cast<double>(DaysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) -
                                    DaysFromCivil(1899, 12, 30));
  double time = (hour * 3600.0 + minute * 60.0 + second + fraction_of_second) / 86400.0;
  return days < 0 ? days - time : days + time;
}

// Currency from exact decimal digits, at most four after the point.
std::optional<std::int64_t> ScaledCurrency(std::string_view text) {
  bool negative = !text.empty() && text[0] == '-';
  if (negative) text.remove_prefix(1);
  std::size_t point = text.find('.');
  std::string_view whole = text.substr(0, point);
  std::string_view fraction = point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
  if ((whole.empty() && fraction.empty()) || fraction.size() > 4 ||
      (point != std::string_view::npos && fraction.empty())) {
    return std::nullopt;
  }
  std::uint64_t value = 0;
  constexpr std::uint64_t kLimit = std::uint64_t{1} << 63;  // magnitude of the most negative value
  auto add_digit = [&](char c) {
    if (c < '0' || c > '9' || value > (kLimit - static_cast<std::uint64_t>(c - '0')) / 10) return false;
    value = value * 10 + static_cast<std::uint64_t>(c - '0');
    return true;
  };
  for (char c : whole) {
    if (!add_digit(c)) return std::nullopt;
  }
  for (std::size_t i = 0; i < 4; ++i) {
    if (!add_digit(i < fraction.size() ? fraction[i] : '0')) return std::nullopt;
  }
  if (!negative && value == kLimit) return std::nullopt;
  return negative ? static_cast<std::int64_t>(0 - value) : static_cast<std::int64_t>(value);
}

int CharacterCount(std::string_view utf8) {
  int count = 0;
  for (char c : utf8) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  return count;
}

const char* TypeName(int dao_type) {
  switch (dao_type) {
    case dbBoolean: return "Boolean";
    case dbByte: return "Byte";
    case dbInteger: return "Integer";
    case dbLong: return "Long";
    case dbCurrency: return "Currency";
    case dbSingle: return "Single";
    case dbDouble: return "Double";
    case dbDate: return "Date";
    case dbMemo: return "Memo";
    default: return "Text";
  }
}

[[noreturn]] void ThrowNotA(std::string_view text, int dao_type) {
  throw ColumnTypeError("'" + std::string(text) + "' is not a " + TypeName(dao_type) + " value");
}

std::int64_t WholeNumberIn(std::string_view text, int dao_type, std::int64_t low, std::int64_t high) {
  std::optional<std::int64_t> value = WholeNumber(text);
  if (!value || *value < low || *value > high) ThrowNotA(text, dao_type);
  return *value;
}

}  // namespace

std::optional<int> DaoTypeFromName(std::string_view name) {
  for (int type : {dbText, dbMemo, dbDouble, dbSingle, dbLong, dbInteger, dbByte, dbBoolean, dbCurrency, dbDate}) {
    if (EqualsIgnoringCase(name, TypeName(type))) return type;
  }
  return std::nullopt;
}

std::map<std::string, int> ParseTypeList(std::string_view list) {
  std::map<std::string, int> types;
  while (!list.empty()) {
    std::size_t comma = list.find(',');
    std::string_view item = list.substr(0, comma);
    list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    std::size_t colon = item.rfind(':');
    if (colon == std::string_view::npos || colon == 0) {
      throw ColumnTypeError("'" + std::string(item) + "' is not COLUMN:TYPE");
    }
    std::optional<int> type = DaoTypeFromName(item.substr(colon + 1));
    if (!type) {
      throw ColumnTypeError("unknown type '" + std::string(item.substr(colon + 1)) +
                            "' (Text, Memo, Double, Single, Long, Integer, Byte, Boolean, Currency or Date)");
    }
    types[std::string(item.substr(0, colon))] = *type;
  }
  return types;
}

ImportColumnType GivenColumnType(const CsvTable& table, std::size_t column, int dao_type) {
  ImportColumnType type{dao_type, 0};
  if (dao_type == dbText || dao_type == dbMemo) {
    for (std::size_t row = 0; row < table.row_count(); ++row) {
      if (auto field = table.Field(row, column)) type.max_length = std::max(type.max_length, CharacterCount(*field));
    }
  }
  return type;
}

ImportColumnType InferColumnType(const CsvTable& table, std::size_t column) {
  bool any = false, all_long = true, all_numbers = true, all_dates = true;
  int max_length = 0;
  for (std::size_t row = 0; row < table.row_count(); ++row) {
    std::optional<std::string_view> field = table.Field(row, column);
    if (!field) continue;
    any = true;
    max_length = std::max(max_length, CharacterCount(*field));
    if (all_long) {
      std::optional<std::int64_t> whole = WholeNumber(*field);
      all_long = whole && *whole >= std::numeric_limits<std::int32_t>::min() &&
                 *whole <= std::numeric_limits<std::int32_t>::max();
    }
    if (all_numbers && !all_long) all_numbers = RealNumber<double>(*field).has_value();
    if (all_dates) all_dates = OleDateOf(*field).has_value();
  }
  if (any && all_long) return {dbLong, 0};
  if (any && all_numbers) return {dbDouble, 0};
  if (any && all_dates) return {dbDate, 0};
  return {max_length > kTextMaxLength ? dbMemo : dbText, max_length};
}

Variant ConvertField(std::optional<std::string_view> field, int dao_type) {
  if (!field) return Variant::FromRaw(VT_NULL, 0);
  std::string_view text = *field;
  switch (dao_type) {
    case dbText:
    case dbMemo: {
      std::string cp1252;
      platform::Cp1252FromUtf8(text, cp1252);
      return Variant(cp1252);
    }
    case dbLong:
      return Variant(static_cast<int>(WholeNumberIn(text, dao_type, std::numeric_limits<std::int32_t>::min(),
                                                    std::numeric_limits<std::int32_t>::max())));
    case dbInteger:
      return Variant(static_cast<short>(WholeNumberIn(text, dao_type, -32768, 32767)));
    case dbByte:
      return Variant(static_cast<unsigned char>(WholeNumberIn(text, dao_type, 0, 255)));
    case dbBoolean: {
      for (std::string_view yes : {"true", "yes", "on"}) {
        if (EqualsIgnoringCase(text, yes)) return Variant(VARIANT_TRUE, VT_BOOL);
      }
      for (std::string_view no : {"false", "no", "off"}) {
        if (EqualsIgnoringCase(text, no)) return Variant(VARIANT_FALSE, VT_BOOL);
      }
      std::optional<double> number = RealNumber<double>(text);
      if (!number) ThrowNotA(text, dao_type);
      return Variant(*number != 0.0 ? VARIANT_TRUE : VARIANT_FALSE, VT_BOOL);
    }
    case dbCurrency: {
      std::optional<std::int64_t> scaled = ScaledCurrency(text);
      if (!scaled) ThrowNotA(text, dao_type);
      return Variant(Currency{*scaled});
    }
    case dbSingle: {
      std::optional<float> number = RealNumber<float>(text);
      if (!number) ThrowNotA(text, dao_type);
      return Variant(*number);
    }
    case dbDouble: {
      std::optional<double> number = RealNumber<double>(text);
      if (!number) ThrowNotA(text, dao_type);
      return Variant(*number);
    }
    case dbDate: {
      std::optional<double> date = OleDateOf(text);
      if (!date) ThrowNotA(text, dao_type);
      return Variant(OleDate{*date});
    }
    default:
      throw ColumnTypeError("columns of DAO type " + std::to_string(dao_type) + " cannot be imported");
  }
}

}  // namespace kvdao::cli
