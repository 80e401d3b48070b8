// kvdao method: converts quantify method records between their raw form (a
// file of consecutive 3504-byte records, as method files and shared memory
// hold them; docs/method-record.md) and their XML form.

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "cli.h"
#include "kvdao/method/method_record.h"

namespace kvdao::cli {
namespace {

constexpr const char* kMethodElement = "METHOD";
constexpr const char* kRecordElement = "METHODRECORD";

bool ReadWholeFile(const std::string& path, std::string& bytes, std::ostream& err) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    err << "kvdao method: cannot open '" << path << "': " << std::strerror(errno) << "\n";
    return false;
  }
  bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  if (in.bad()) {
    err << "kvdao method: cannot read '" << path << "'\n";
    return false;
  }
  return true;
}

// Writes a new file beside the target and renames it over the target, so an
// existing file is never left half written.
bool WriteFileSafely(const std::string& path, const std::string& bytes, std::ostream& err) {
  std::string temporary = path + ".kvdao-new";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.flush();
    if (!out) {
      err << "kvdao method: cannot write '" << temporary << "'\n";
      std::error_code ignored;
      std::filesystem::remove(temporary, ignored);
      return false;
    }
  }
  std::error_code error;
  std::filesystem::rename(temporary, path, error);
  if (error) {
    err << "kvdao method: cannot replace '" << path << "': " << error.message() << "\n";
    std::filesystem::remove(temporary, error);
    return false;
  }
  return true;
}

int ToXml(CommandContext& context) {
  if (context.args.empty() || context.args.size() > 2) {
    context.err << "usage: kvdao method to-xml RAWFILE [XMLFILE]\n";
    return kExitUsage;
  }
  std::string raw;
  if (!ReadWholeFile(context.args[0], raw, context.err)) return kExitFailure;
  if (raw.size() % kMethodRecordSize != 0) {
    context.err << "kvdao method: '" << context.args[0] << "' holds " << raw.size()
                << " bytes, not a whole number of " << kMethodRecordSize << "-byte method records\n";
    return kExitFailure;
  }

  XmlBuilder builder;
  builder.AddDeclaration("1.0");
  builder.Open(kMethodElement);
  CMethodRecord record;
  for (std::size_t at = 0; at < raw.size(); at += kMethodRecordSize) {
    std::memcpy(record.GetData(), raw.data() + at, kMethodRecordSize);
    if (!record.WriteXML(builder)) {
      context.err << "kvdao method: cannot build the XML of record " << at / kMethodRecordSize << "\n";
      return kExitFailure;
    }
  }
  builder.Close();
  std::string xml = builder.ToString();
  if (context.args.size() == 1) {
    context.out << xml;
    return kExitOk;
  }
  return WriteFileSafely(context.args[1], xml, context.err) ? kExitOk : kExitFailure;
}

int FromXml(CommandContext& context) {
  if (context.args.size() != 2) {
    context.err << "usage: kvdao method from-xml XMLFILE RAWFILE\n";
    return kExitUsage;
  }
  pugi::xml_document document;
  pugi::xml_parse_result loaded = document.load_file(context.args[0].c_str());
  if (!loaded) {
    context.err << "kvdao method: '" << context.args[0] << "' is not XML: " << loaded.description()
                << " at offset " << loaded.offset << "\n";
    return kExitFailure;
  }
  std::vector<pugi::xml_node> elements;
  pugi::xml_node root = document.document_element();
  if (std::strcmp(root.name(), kRecordElement) == 0) {
    elements.push_back(root);
  } else {
    for (pugi::xml_node child : root.children(kRecordElement)) elements.push_back(child);
  }
  if (elements.empty()) {
    context.err << "kvdao method: '" << context.args[0] << "' holds no " << kRecordElement << " element\n";
    return kExitFailure;
  }

  std::string raw;
  raw.reserve(elements.size() * kMethodRecordSize);
  for (const pugi::xml_node& element : elements) {
    // Fields the XML leaves out keep their defaults.
    CMethodRecord record;
    record.ReadXML(element);
    raw.append(reinterpret_cast<const char*>(record.GetData()), kMethodRecordSize);
  }
  return WriteFileSafely(context.args[1], raw, context.err) ? kExitOk : kExitFailure;
}

}  // namespace

int RunMethodCommand(CommandContext& context) {
  if (context.args.empty()) {
    context.err << "kvdao method: missing action (see 'kvdao method --help')\n";
    return kExitUsage;
  }
  std::string action = context.args.front();
  context.args.erase(context.args.begin());
  for (const std::string& arg : context.args) {
    if (arg.size() > 1 && arg[0] == '-') {
      context.err << "kvdao method: unknown option '" << arg << "'\n";
      return kExitUsage;
    }
  }
  if (action == "to-xml") return ToXml(context);
  if (action == "from-xml") return FromXml(context);
  context.err << "kvdao method: unknown action '" << action << "' (see 'kvdao method --help')\n";
  return kExitUsage;
}

}  // namespace kvdao::cli
