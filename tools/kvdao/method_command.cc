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
#include "method_xml_io.h"
#include "kvdao/method/method_record.h"

namespace kvdao::cli {
namespace {

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

  std::vector<CMethodRecord> records(raw.size() / kMethodRecordSize);
  for (std::size_t i = 0; i < records.size(); ++i)
    std::memcpy(records[i].GetData(), raw.data() + i * kMethodRecordSize, kMethodRecordSize);
  std::string xml;
  if (!MethodRecordsToXml(records, xml, context.err, "method")) return kExitFailure;
  if (context.args.size() == 1) {
    context.out << xml;
    return kExitOk;
  }
  return WriteFileSafely(context.args[1], xml, context.err, "method") ? kExitOk : kExitFailure;
}

int FromXml(CommandContext& context) {
  if (context.args.size() != 2) {
    context.err << "usage: kvdao method from-xml XMLFILE RAWFILE\n";
    return kExitUsage;
  }
  std::vector<CMethodRecord> records;
  if (!MethodRecordsFromXml(context.args[0], records, context.err, "method")) return kExitFailure;
  std::string raw;
  raw.reserve(records.size() * kMethodRecordSize);
  for (const CMethodRecord& record : records)
    raw.append(reinterpret_cast<const char*>(record.GetData()), kMethodRecordSize);
  return WriteFileSafely(context.args[1], raw, context.err, "method") ? kExitOk : kExitFailure;
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
