#include "method_xml_io.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <ostream>

namespace kvdao::cli {
namespace {

constexpr const char* kMethodElement = "METHOD";
constexpr const char* kRecordElement = "METHODRECORD";

}  // namespace

bool MethodRecordsToXml(const std::vector<CMethodRecord>& records, std::string& xml, std::ostream& err,
                        const char* command) {
  XmlBuilder builder;
  builder.AddDeclaration("1.0");
  builder.Open(kMethodElement);
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (!records[i].WriteXML(builder)) {
      err << "kvdao " << command << ": cannot build the XML of record " << i << "\n";
      return false;
    }
  }
  builder.Close();
  xml = builder.ToString();
  return true;
}

bool MethodRecordsFromXml(const std::string& path, std::vector<CMethodRecord>& records, std::ostream& err,
                          const char* command) {
  pugi::xml_document document;
  pugi::xml_parse_result loaded = document.load_file(path.c_str());
  if (!loaded) {
    err << "kvdao " << command << ": '" << path << "' is not XML: " << loaded.description() << " at offset "
        << loaded.offset << "\n";
    return false;
  }
  std::vector<pugi::xml_node> elements;
  pugi::xml_node root = document.document_element();
  if (std::strcmp(root.name(), kRecordElement) == 0) {
    elements.push_back(root);
  } else {
    for (pugi::xml_node child : root.children(kRecordElement)) elements.push_back(child);
  }
  if (elements.empty()) {
    err << "kvdao " << command << ": '" << path << "' holds no " << kRecordElement << " element\n";
    return false;
  }
  records.assign(elements.size(), CMethodRecord());
  for (std::size_t i = 0; i < elements.size(); ++i) records[i].ReadXML(elements[i]);
  return true;
}

bool WriteFileSafely(const std::string& path, const std::string& bytes, std::ostream& err, const char* command) {
  std::string temporary = path + ".kvdao-new";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.flush();
    if (!out) {
      err << "kvdao " << command << ": cannot write '" << temporary << "'\n";
      std::error_code ignored;
      std::filesystem::remove(temporary, ignored);
      return false;
    }
  }
  std::error_code error;
  std::filesystem::rename(temporary, path, error);
  if (error) {
    err << "kvdao " << command << ": cannot replace '" << path << "': " << error.message() << "\n";
    std::filesystem::remove(temporary, error);
    return false;
  }
  return true;
}

}  // namespace kvdao::cli
