#pragma once

// Text helpers for the library's 8-bit text (code page 1252).

#include <string>
#include <string_view>

namespace kvdao::platform {

// Lower and upper case of one code page 1252 character: ASCII letters and
// the accented letters of the code page (À..Þ, Š, Œ, Ž, Ÿ and their lower
// forms); every other byte is returned unchanged.
char ToLower1252(char c) noexcept;
char ToUpper1252(char c) noexcept;
std::string ToLower1252(std::string_view text);
std::string ToUpper1252(std::string_view text);

// Case-insensitive comparison in code page 1252: <0, 0 or >0.
int CompareNoCase1252(std::string_view a, std::string_view b) noexcept;

// printf into a std::string.
std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace kvdao::platform
