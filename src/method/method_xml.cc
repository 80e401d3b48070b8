// The XML and byte-array forms of method records.

#include <cstring>
#include <new>

#include "kvdao/method/method_record.h"
#include "kvdao/platform/text.h"
#include "number_text.h"

namespace kvdao {
namespace {

constexpr const char* kRecordElement = "METHODRECORD";
constexpr const char* kParameterElement = "PARAMETER";
constexpr const char* kIdAttribute = "id";
constexpr const char* kValueAttribute = "value";

}  // namespace

bool CMethodRecord::AddValue(XmlBuilder& builder, int id, const char* value) {
  pugi::xml_node parameter = builder.AddElement(kParameterElement);
  return parameter && XmlBuilder::SetAttribute(parameter, kIdAttribute, id) &&
         XmlBuilder::SetAttribute(parameter, kValueAttribute, value != nullptr ? value : "");
}

bool CMethodRecord::AddValue(XmlBuilder& builder, int id, int value) {
  char text[16];
  std::snprintf(text, sizeof text, "%d", value);
  return AddValue(builder, id, text);
}

bool CMethodRecord::AddValue(XmlBuilder& builder, int id, double value) {
  // "%lf"; formatted without the process locale so that the decimal point is
  // always a point.
  char text[400];
  auto [end, error] = std::to_chars(text, text + sizeof text - 1, value, std::chars_format::fixed, 6);
  if (error != std::errc()) return false;
  *end = '\0';
  return AddValue(builder, id, text);
}

bool CMethodRecord::WriteXML(XmlBuilder& builder) const {
  if (!m_pRecord) return false;
  if (builder.IsNew() && !builder.AddDeclaration("1.0")) return false;
  if (!builder.Open(kRecordElement)) return false;
  char buffer[kMethodFieldBufferSize];
  bool ok = true;
  for (int field = 0; field < MDF_Count && ok; ++field) {
    double number;
    // Unassigned numbers are written too, with an empty value.
    MethodGetFieldStr(field, true, buffer, 0, number);
    ok = AddValue(builder, field, buffer);
  }
  builder.Close();
  return ok;
}

bool CMethodRecord::ReadXML(const pugi::xml_node& element) {
  if (!element || !m_pRecord) return false;
  std::string converted;
  for (pugi::xml_node parameter = element.first_child(); parameter; parameter = parameter.next_sibling()) {
    if (parameter.type() != pugi::node_element) continue;
    // A missing "id" reads as 0 and a missing "value" as an empty text, as
    // the conversions of any other text would.
    int id = method_text::ParseInt(parameter.attribute(kIdAttribute).value());
    const char* value = parameter.attribute(kValueAttribute).value();
    if (!platform::IsAscii(value)) {
      platform::Cp1252FromUtf8(value, converted);
      value = converted.c_str();
    }
    MethodSetFieldStr(id, true, value, 0);
  }
  return true;
}

bool CMethodRecord::ReadBSTR(const std::u16string& xml) {
  pugi::xml_document document;
  pugi::xml_parse_result loaded = document.load_buffer(xml.data(), xml.size() * sizeof(char16_t),
                                                       pugi::parse_default, pugi::encoding_utf16_le);
  if (!loaded) return false;
  return ReadXML(document.document_element());
}

std::shared_ptr<ByteArray> CMethodRecord::WriteAsSafeArray() const {
  if (!m_pRecord) return nullptr;
  try {
    return std::make_shared<ByteArray>(Bytes(), Bytes() + kMethodRecordSize);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

bool CMethodRecord::ReadFromSafeArray(const std::shared_ptr<ByteArray>& bytes) {
  if (!bytes || bytes->size() < kMethodRecordSize || !m_pRecord) return false;
  std::memcpy(m_pRecord.get(), bytes->data(), kMethodRecordSize);
  FixInternalStandards();
  return true;
}

}  // namespace kvdao
