#include "kvdao/jet/field_value.h"

#include <cmath>
#include <cstdio>

namespace kvdao::jet {
namespace {

using Uint128 = unsigned __int128;

// Digits of an unscaled magnitude with the point placed scale digits from the
// right, trailing fractional zeros (and a bare point) dropped.
std::string ScaledDigits(bool negative, Uint128 magnitude, int scale) {
  std::string digits;
  do {
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(magnitude % 10)));
    magnitude /= 10;
  } while (magnitude != 0);
  if (scale > 0) {
    if (digits.size() <= static_cast<std::size_t>(scale)) {
      digits.insert(0, static_cast<std::size_t>(scale) + 1 - digits.size(), '0');
    }
    digits.insert(digits.size() - static_cast<std::size_t>(scale), 1, '.');
    while (digits.back() == '0') digits.pop_back();
    if (digits.back() == '.') digits.pop_back();
  }
  if (negative && digits != "0") digits.insert(0, 1, '-');
  return digits;
}

// Civil date of a day count since 1970-01-01 (proleptic Gregorian).
void CivilFromDays(std::int64_t z, int& year, int& month, int& day) noexcept {
  z += 719468;
  std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  std::int64_t doe = z - era * 146097;
  std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  std::int64_t mp = (5 * doy + 2) / 153;
  day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  year = static_cast<int>(yoe + era * 400 + (month <= 2 ? 1 : 0));
}

}  // namespace

std::string DecimalToString(const DecimalValue& value) {
  Uint128 magnitude = (static_cast<Uint128>(value.high) << 64) | value.low;
  return ScaledDigits(value.negative, magnitude, value.scale);
}

std::string CurrencyToString(std::int64_t scaled) {
  bool negative = scaled < 0;
  Uint128 magnitude = negative ? static_cast<Uint128>(-(static_cast<__int128>(scaled)))
                               : static_cast<Uint128>(scaled);
  return ScaledDigits(negative, magnitude, 4);
}

std::string GuidToString(std::span<const std::uint8_t> b) {
  if (b.size() != 16) return std::string();
  char text[40];
  std::snprintf(text, sizeof text,
                "{%02X%02X%02X%02X-%02X%02X-%02X%02X-%02X%02X-%02X%02X%02X%02X%02X%02X}", b[3], b[2],
                b[1], b[0], b[5], b[4], b[7], b[6], b[8], b[9], b[10], b[11], b[12], b[13], b[14], b[15]);
  return text;
}

DateTimeParts SplitOleDate(double ole_date) noexcept {
  DateTimeParts parts;
  if (!std::isfinite(ole_date) || std::fabs(ole_date) > 3.0e6) return parts;
  double whole = std::trunc(ole_date);
  auto days = static_cast<std::int64_t>(whole);
  auto millis = static_cast<std::int64_t>(std::llround(std::fabs(ole_date - whole) * 86400000.0));
  days += millis / 86400000;
  millis %= 86400000;
  constexpr std::int64_t kOleEpochToUnix = -25569;  // 1899-12-30 is 25569 days before 1970-01-01
  CivilFromDays(days + kOleEpochToUnix, parts.year, parts.month, parts.day);
  parts.hour = static_cast<int>(millis / 3600000);
  parts.minute = static_cast<int>(millis / 60000 % 60);
  parts.second = static_cast<int>(millis / 1000 % 60);
  parts.millisecond = static_cast<int>(millis % 1000);
  return parts;
}

std::string FormatOleDate(double ole_date) {
  DateTimeParts p = SplitOleDate(ole_date);
  char text[48];
  int n = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", p.year, p.month, p.day, p.hour,
                        p.minute, p.second);
  if (p.millisecond != 0) std::snprintf(text + n, sizeof text - static_cast<std::size_t>(n), ".%03d", p.millisecond);
  return text;
}

}  // namespace kvdao::jet
