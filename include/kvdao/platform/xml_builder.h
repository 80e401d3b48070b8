#pragma once

// kvdao::XmlBuilder: writing XML documents, on pugixml. A builder is a
// document plus the stack of elements that are open for appending: Open()
// appends an element under the innermost open element (or the document) and
// makes it the innermost one, Close() ends it, AddElement() appends without
// opening. Reading goes straight through pugixml (const pugi::xml_node&).
//
// Text: the library's strings are 8-bit code page 1252, XML text is Unicode.
// The builder converts attribute values from code page 1252 on the way in,
// and the conversions below serve readers on the way out. The document text
// is UTF-8 (ToString) or UTF-16 (ToBSTR, for interfaces that pass XML as a
// wide string).

#include <pugixml.hpp>

#include "kvdao/platform/code_page.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvdao {

class XmlBuilder {
 public:
  XmlBuilder() = default;
  XmlBuilder(const XmlBuilder&) = delete;
  XmlBuilder& operator=(const XmlBuilder&) = delete;

  pugi::xml_document& Document() noexcept { return m_document; }
  const pugi::xml_document& Document() const noexcept { return m_document; }

  // True for a document that holds nothing yet: no node and nothing open.
  bool IsNew() const noexcept { return m_open.empty() && !m_document.first_child(); }
  // Depth of the open-element stack.
  std::size_t OpenCount() const noexcept { return m_open.size(); }
  // The innermost open element, or the document when none is open.
  pugi::xml_node Current() const noexcept {
    return m_open.empty() ? pugi::xml_node(m_document) : m_open.back();
  }

  // Adds the XML declaration with the given version in front of the
  // document's first node; false if the document cannot take it.
  bool AddDeclaration(const char* version = "1.0");
  // Appends an element under Current() and opens it; a null node (nothing
  // opened) when the DOM refuses.
  pugi::xml_node Open(const char* name);
  // Ends the innermost open element; false when none is open.
  bool Close() noexcept;
  // Appends an element under Current() without opening it.
  pugi::xml_node AddElement(const char* name) { return Current().append_child(name); }
  // Sets an attribute from code page 1252 text, converting it to Unicode.
  static bool SetAttribute(pugi::xml_node element, const char* name, std::string_view text1252);
  static bool SetAttribute(pugi::xml_node element, const char* name, int value);

  // The document as UTF-8 text, indented with tabs, declaration as added.
  std::string ToString() const;
  // The same text in UTF-16.
  std::u16string ToBSTR() const;

 private:
  pugi::xml_document m_document;
  std::vector<pugi::xml_node> m_open;
};

}  // namespace kvdao
