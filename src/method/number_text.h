#pragma once

// Number ↔ text conversions of the method record's text forms. They behave
// like the C library's atoi, atof and printf("%.10lf") but never depend on
// the process locale, never fail and never overflow:
//  - ParseInt: leading blanks, an optional sign, then the leading digits;
//    no digits give 0, values beyond the 32-bit range are clamped to it;
//  - ParseDouble: leading blanks, then the longest leading number (decimal
//    or exponent form, "inf", "nan"); no number gives 0, overflow gives
//    ±infinity and underflow 0;
//  - FormatFixed: the value with ten decimals ("%.10lf").

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace kvdao::method_text {

inline bool IsBlank(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

inline std::string_view SkipBlanksAndPlus(std::string_view text) noexcept {
  std::size_t i = 0;
  while (i < text.size() && IsBlank(text[i])) ++i;
  text.remove_prefix(i);
  if (text.size() >= 2 && text[0] == '+' && text[1] != '-' && text[1] != '+') text.remove_prefix(1);
  return text;
}

inline std::int32_t ParseInt(std::string_view text) noexcept {
  text = SkipBlanksAndPlus(text);
  std::int64_t value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  (void)end;
  if (error == std::errc::result_out_of_range) {
    return !text.empty() && text[0] == '-' ? std::numeric_limits<std::int32_t>::min()
                                           : std::numeric_limits<std::int32_t>::max();
  }
  if (error != std::errc()) return 0;
  if (value > std::numeric_limits<std::int32_t>::max()) return std::numeric_limits<std::int32_t>::max();
  if (value < std::numeric_limits<std::int32_t>::min()) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

inline double ParseDouble(std::string_view text) noexcept {
  text = SkipBlanksAndPlus(text);
  double value = 0.0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  (void)end;
  if (error == std::errc::result_out_of_range) {
    // Decide between overflow and underflow from the exponent's sign.
    std::size_t e = text.find_first_of("eE");
    bool tiny = e != std::string_view::npos && e + 1 < text.size() && text[e + 1] == '-';
    bool negative = !text.empty() && text[0] == '-';
    if (tiny) return negative ? -0.0 : 0.0;
    return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
  }
  if (error != std::errc()) return 0.0;
  return value;
}

// A double stored into a float field: out-of-range values become ±infinity
// (what the hardware conversion gives) instead of being undefined.
inline float ToFloat(double value) noexcept {
  if (value > std::numeric_limits<float>::max()) return std::numeric_limits<float>::infinity();
  if (value < -std::numeric_limits<float>::max()) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

// Writes `value` with ten decimals into `out` (room for any double: 330
// bytes) and returns the length; no terminator.
inline std::size_t FormatFixed(char* out, std::size_t room, double value) noexcept {
  auto [end, error] = std::to_chars(out, out + room, value, std::chars_format::fixed, 10);
  if (error != std::errc()) return 0;
  return static_cast<std::size_t>(end - out);
}

// "mass,intensity" into `out` (room for 32 bytes); returns the length.
inline std::size_t FormatPair(char* out, std::int32_t mass, std::int32_t intensity) noexcept {
  char* end = std::to_chars(out, out + 11, mass).ptr;
  *end++ = ',';
  end = std::to_chars(end, end + 11, intensity).ptr;
  return static_cast<std::size_t>(end - out);
}

}  // namespace kvdao::method_text
