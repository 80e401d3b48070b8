#include "kvdao/platform/code_page.h"

namespace kvdao {
namespace {

// Unicode code points of bytes 0x80..0x9F in code page 1252. The five bytes
// the code page leaves undefined keep their own number (a C1 control).
constexpr char16_t kHigh1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

namespace platform {

char32_t CodePointFrom1252(unsigned char byte) noexcept {
  if (byte >= 0x80 && byte < 0xA0) return kHigh1252[byte - 0x80];
  return byte;
}

char ByteFrom1252CodePoint(char32_t cp) noexcept {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (int i = 0; i < 32; ++i) {
    if (kHigh1252[i] == cp) return static_cast<char>(0x80 + i);
  }
  return '?';
}


bool IsAscii(std::string_view text) noexcept {
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

void Utf8From1252(std::string_view text, std::string& out) {
  out.clear();
  out.reserve(text.size() + text.size() / 2);
  for (char c : text) AppendUtf8(out, CodePointFrom1252(static_cast<unsigned char>(c)));
}

void Cp1252FromUtf8(std::string_view text, std::string& out) {
  out.clear();
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      out += static_cast<char>(lead);
      ++i;
      continue;
    }
    int extra = lead >= 0xF0 && lead < 0xF5   ? 3
                : lead >= 0xE0 && lead < 0xF0 ? 2
                : lead >= 0xC2 && lead < 0xE0 ? 1
                                              : -1;
    if (extra < 0 || text.size() - i <= static_cast<std::size_t>(extra)) {
      out += '?';
      ++i;
      continue;
    }
    char32_t cp = lead & (0x3F >> extra);
    bool ok = true;
    for (int k = 1; k <= extra; ++k) {
      auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
      if ((next & 0xC0) != 0x80) {
        ok = false;
        break;
      }
      cp = (cp << 6) | (next & 0x3F);
    }
    if (!ok) {
      out += '?';
      ++i;
      continue;
    }
    out += ByteFrom1252CodePoint(cp);
    i += static_cast<std::size_t>(extra) + 1;
  }
}

}  // namespace platform
}  // namespace kvdao
