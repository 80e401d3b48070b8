#include "kvdao/platform/xml_builder.h"

#include <sstream>

namespace kvdao {
namespace {

// Unicode code points of bytes 0x80..0x9F in code page 1252. The five bytes
// the code page leaves undefined keep their own number (a C1 control).
constexpr char16_t kHigh1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CodePointOf(unsigned char byte) noexcept {
  if (byte >= 0x80 && byte < 0xA0) return kHigh1252[byte - 0x80];
  return byte;
}

char ByteOf(char32_t cp) noexcept {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (int i = 0; i < 32; ++i) {
    if (kHigh1252[i] == cp) return static_cast<char>(0x80 + i);
  }
  return '?';
}

struct StringWriter : pugi::xml_writer {
  std::string text;
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
};

constexpr unsigned kSaveFlags = pugi::format_indent | pugi::format_no_declaration;

}  // namespace

bool XmlBuilder::AddDeclaration(const char* version) {
  pugi::xml_node declaration = m_document.prepend_child(pugi::node_declaration);
  if (!declaration) return false;
  return declaration.append_attribute("version").set_value(version);
}

pugi::xml_node XmlBuilder::Open(const char* name) {
  pugi::xml_node element = Current().append_child(name);
  if (element) m_open.push_back(element);
  return element;
}

bool XmlBuilder::Close() noexcept {
  if (m_open.empty()) return false;
  m_open.pop_back();
  return true;
}

bool XmlBuilder::SetAttribute(pugi::xml_node element, const char* name, std::string_view text1252) {
  pugi::xml_attribute attribute = element.append_attribute(name);
  if (!attribute) return false;
  if (platform::IsAscii(text1252)) {
    return attribute.set_value(text1252.data(), text1252.size());
  }
  thread_local std::string utf8;
  platform::Utf8From1252(text1252, utf8);
  return attribute.set_value(utf8.data(), utf8.size());
}

bool XmlBuilder::SetAttribute(pugi::xml_node element, const char* name, int value) {
  pugi::xml_attribute attribute = element.append_attribute(name);
  return attribute && attribute.set_value(value);
}

std::string XmlBuilder::ToString() const {
  StringWriter writer;
  m_document.save(writer, "\t", kSaveFlags, pugi::encoding_utf8);
  return std::move(writer.text);
}

std::u16string XmlBuilder::ToBSTR() const {
  StringWriter writer;
  m_document.save(writer, "\t", kSaveFlags, pugi::encoding_utf16_le);
  std::u16string wide(writer.text.size() / 2, u'\0');
  for (std::size_t i = 0; i < wide.size(); ++i) {
    wide[i] = static_cast<char16_t>(static_cast<unsigned char>(writer.text[2 * i]) |
                                    static_cast<unsigned char>(writer.text[2 * i + 1]) << 8);
  }
  return wide;
}

namespace platform {

bool IsAscii(std::string_view text) noexcept {
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

void Utf8From1252(std::string_view text, std::string& out) {
  out.clear();
  out.reserve(text.size() + text.size() / 2);
  for (char c : text) {
    char32_t cp = CodePointOf(static_cast<unsigned char>(c));
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | (cp >> 6));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | (cp >> 12));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
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
    out += ByteOf(cp);
    i += static_cast<std::size_t>(extra) + 1;
  }
}

}  // namespace platform
}  // namespace kvdao
