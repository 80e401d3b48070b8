#include "kvdao/platform/text.h"

#include <cstdarg>
#include <cstdio>

namespace kvdao::platform {

char ToLower1252(char c) noexcept {
  auto u = static_cast<unsigned char>(c);
  if (u >= 'A' && u <= 'Z') return static_cast<char>(u + 32);
  if (u >= 0xC0 && u <= 0xDE && u != 0xD7) return static_cast<char>(u + 32);
  switch (u) {
    case 0x8A: return static_cast<char>(0x9A);  // Š
    case 0x8C: return static_cast<char>(0x9C);  // Œ
    case 0x8E: return static_cast<char>(0x9E);  // Ž
    case 0x9F: return static_cast<char>(0xFF);  // Ÿ
    default: return c;
  }
}

char ToUpper1252(char c) noexcept {
  auto u = static_cast<unsigned char>(c);
  if (u >= 'a' && u <= 'z') return static_cast<char>(u - 32);
  if (u >= 0xE0 && u <= 0xFE && u != 0xF7) return static_cast<char>(u - 32);
  switch (u) {
    case 0x9A: return static_cast<char>(0x8A);
    case 0x9C: return static_cast<char>(0x8C);
    case 0x9E: return static_cast<char>(0x8E);
    case 0xFF: return static_cast<char>(0x9F);
    default: return c;
  }
}

std::string ToLower1252(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToLower1252(c);
  return result;
}

std::string ToUpper1252(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToUpper1252(c);
  return result;
}

int CompareNoCase1252(std::string_view a, std::string_view b) noexcept {
  std::size_t n = a.size() < b.size() ? a.size() : b.size();
  for (std::size_t i = 0; i < n; ++i) {
    auto x = static_cast<unsigned char>(ToLower1252(a[i]));
    auto y = static_cast<unsigned char>(ToLower1252(b[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

std::string Format(const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list copy;
  va_copy(copy, args);
  int needed = std::vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string result;
  if (needed > 0) {
    result.resize(static_cast<std::size_t>(needed));
    std::vsnprintf(result.data(), result.size() + 1, format, args);
  }
  va_end(args);
  return result;
}

}  // namespace kvdao::platform
