#include "kvdao/platform/xml_builder.h"

#include "kvdao/platform/code_page.h"

#include <sstream>

namespace kvdao {
namespace {

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

}  // namespace kvdao
