// kvdao sample: shows a sample record text file, or the current-sample file,
// in readable form.

#include <cstdlib>
#include <iomanip>
#include <ostream>

#include "cli.h"
#include "kvdao/platform/access_db.h"
#include "kvdao/platform/path.h"
#include "kvdao/platform/profile.h"
#include "kvdao/platform/record_database.h"
#include "kvdao/platform/text.h"
#include "kvdao/samplelist/batch_sample_record.h"

namespace kvdao::cli {
namespace {

// The filled fields of a record, one "COLUMN  value" line each: texts that
// are not empty and numbers that are not zero.
void PrintRecord(const CSampleRecord& record, std::ostream& out) {
  CSampleListRow row;
  record.GetSample(&row);
  for (int column = 0; column < kSampleColumnCount; ++column) {
    const CKVVariant& cell = row[column];
    if (cell.IsText() ? cell.text().empty() : cell.dblVal() == 0.0) continue;
    out << "  " << std::left << std::setw(24) << kSampleColumns[column].name
        << GetString(cell) << "\n";
  }
}

// The samples of a legacy ".SDB" list: all of them, or number `only`.
int ShowSampleList(const std::string& path, int only, std::ostream& out, std::ostream& err) {
  platform::tagACCESSDB block{};
  if (platform::AccessDBOpen(path.c_str(), platform::kDB3KindSample, static_cast<int>(kSampleRecordSize), &block,
                             0) == 0) {
    err << "kvdao sample show: '" << path << "' is not a readable sample list\n";
    return kExitFailure;
  }
  int status = kExitOk;
  for (int number = 1; number <= block.nNumRecords && status == kExitOk; ++number) {
    if (only > 0 && number != only) continue;
    _tagINTERNAL_SAMPLES_DB_RECORD flat{};
    if (platform::AccessDBGetRecord(&block, number, &flat) == 0) {
      err << "kvdao sample show: sample " << number << " of '" << path << "' is damaged\n";
      status = kExitFailure;
      break;
    }
    CSampleRecord record;
    record.SetSample(&flat);
    out << "sample " << number << "\n";
    PrintRecord(record, out);
  }
  if (only > block.nNumRecords) {
    err << "kvdao sample show: " << path << " has no sample " << only << "\n";
    status = kExitFailure;
  }
  platform::AccessDBClose(&block, 0);
  return status;
}

}  // namespace

int RunSampleCommand(CommandContext& context) {
  std::vector<std::string>& args = context.args;
  if (args.empty() || args[0] != "show") {
    context.err << "kvdao sample: expected 'show' (see 'kvdao sample --help')\n";
    return kExitUsage;
  }
  args.erase(args.begin());
  int sample = 0;  // 0: the first (every sample of an .SDB list)
  for (std::size_t i = 0; i + 1 < args.size(); ++i) {
    if (args[i] == "--sample") {
      sample = std::atoi(args[i + 1].c_str());
      auto at = args.begin() + static_cast<std::ptrdiff_t>(i);
      args.erase(at, at + 2);
      break;
    }
  }
  bool current = TakeFlag(args, "--current");
  if (int status = RejectExtraArguments(context, "sample show", current ? 0 : 1);
      status != kExitOk) {
    return status;
  }
  std::string path = current ? CBatchSampleRecord::GetDefaultFileName()
                     : args.empty() ? std::string()
                                    : args[0];
  if (path.empty()) {
    context.err << "kvdao sample show: give a FILE or --current\n";
    return kExitUsage;
  }

  if (platform::ToLower1252(platform::SplitPath(path).extension) == ".sdb") return ShowSampleList(path, sample, context.out, context.err);
  if (sample == 0) sample = 1;

  bool isBatch =
      !platform::GetPrivateProfileKeys(CBatchSampleRecord::BatchParagraph.c_str(), path).empty();
  if (isBatch) {
    CBatchSampleRecord record;
    if (record.Read(path.c_str()) == 0) {
      context.err << "kvdao sample show: cannot read " << path << "\n";
      return kExitFailure;
    }
    context.out << "batch " << record.GetBatchFile() << "\n  samples " << record.GetFirstSample()
                << " to " << record.GetLastSample() << ", current " << record.GetCurrentSample()
                << ", submitted by " << record.GetBatchUserName() << "\n";
    context.out << "sample\n";
    PrintRecord(record, context.out);
    return kExitOk;
  }
  CSampleRecord record;
  if (record.Read(path.c_str(), sample) == 0) {
    context.err << "kvdao sample show: " << path << " has no sample " << sample << "\n";
    return kExitFailure;
  }
  context.out << "sample " << sample << "\n";
  PrintRecord(record, context.out);
  return kExitOk;
}

}  // namespace kvdao::cli
