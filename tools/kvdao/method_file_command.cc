// kvdao method-file: lists, dumps as XML and builds quantify method files
// (record-database files of 3504-byte method records, docs/record-store.md).

#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

#include "cli.h"
#include "kvdao/method/method_manager.h"
#include "method_xml_io.h"

namespace kvdao::cli {
namespace {

constexpr const char* kCommand = "method-file";

// The records of the method file at `path`, read through a method manager.
bool LoadRecords(const std::string& path, std::vector<CMethodRecord>& records, std::ostream& err) {
  CMethodManager manager;
  if (!manager.OpenFile(path.c_str(), 0)) {
    err << "kvdao " << kCommand << ": '" << path << "' is not a readable method file\n";
    return false;
  }
  records.clear();
  const int count = manager.GetFile()->GetLength();
  if (count < 0) {
    err << "kvdao " << kCommand << ": cannot read '" << path << "'\n";
    return false;
  }
  manager.GetFile()->BeginBatch();  // one lock for the whole read
  for (int i = 0; i < count; ++i) {
    CMethodRecord record;
    if (!manager.Read(&record, i)) {
      err << "kvdao " << kCommand << ": record " << i + 1 << " of '" << path << "' is damaged\n";
      return false;
    }
    records.push_back(record);
  }
  return true;
}

int List(const std::string& path, std::ostream& out, std::ostream& err) {
  std::vector<CMethodRecord> records;
  if (!LoadRecords(path, records, err)) return kExitFailure;
  out << std::left << std::setw(8) << "record" << std::setw(32) << "name" << std::setw(24) << "quan trace"
      << "RT\n";
  for (std::size_t i = 0; i < records.size(); ++i) {
    out << std::left << std::setw(8) << i + 1 << std::setw(32) << records[i].GetName() << std::setw(24)
        << records[i].GetQuanTrace() << records[i].GetPredRT() << "\n";
  }
  return kExitOk;
}

int Dump(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  std::vector<CMethodRecord> records;
  std::string xml;
  if (!LoadRecords(args[0], records, err) || !MethodRecordsToXml(records, xml, err, kCommand))
    return kExitFailure;
  if (args.size() == 1) {
    out << xml;
    return kExitOk;
  }
  return WriteFileSafely(args[1], xml, err, kCommand) ? kExitOk : kExitFailure;
}

int Build(const std::string& xmlPath, const std::string& path, std::ostream& err) {
  std::vector<CMethodRecord> records;
  if (!MethodRecordsFromXml(xmlPath, records, err, kCommand)) return kExitFailure;
  CMethodManager manager;
  if (!manager.OpenFile(path.c_str(), CDB3File::modeCreate)) {
    err << "kvdao " << kCommand << ": cannot create '" << path
        << "' (a file that is not a method file is never overwritten)\n";
    return kExitFailure;
  }
  if (!manager.WriteFile(records.data(), static_cast<int>(records.size()))) {
    err << "kvdao " << kCommand << ": cannot write '" << path << "'\n";
    return kExitFailure;
  }
  return kExitOk;
}

}  // namespace

int RunMethodFileCommand(CommandContext& context) {
  std::vector<std::string>& args = context.args;
  if (args.empty()) {
    context.err << "kvdao method-file: missing action (see 'kvdao method-file --help')\n";
    return kExitUsage;
  }
  std::string action = args.front();
  args.erase(args.begin());
  for (const std::string& arg : args) {
    if (arg.size() > 1 && arg[0] == '-') {
      context.err << "kvdao method-file: unknown option '" << arg << "'\n";
      return kExitUsage;
    }
  }
  if (action == "list" && args.size() == 1) return List(args[0], context.out, context.err);
  if (action == "dump" && (args.size() == 1 || args.size() == 2)) return Dump(args, context.out, context.err);
  if (action == "build" && args.size() == 2) return Build(args[0], args[1], context.err);
  context.err << "usage: kvdao method-file list FILE | dump FILE [XMLFILE] | build XMLFILE FILE\n";
  return kExitUsage;
}

}  // namespace kvdao::cli
