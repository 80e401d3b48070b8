// Readers of single "[Batch]" keys, for callers that need one setting of a
// batch file without loading its plates and samples.

#include <cstdlib>
#include <string_view>

#include "kvdao/genericbatch/generic_batch.h"
#include "kvdao/genericbatch/generic_file.h"
#include "kvdao/platform/profile.h"
#include "kvdao/platform/text.h"

namespace kvdao {
namespace {

int ReadText(const char* file, const std::string& key, std::string& value,
             std::size_t limit = kGenericValueMax) {
  if (file == nullptr) return 0;
  value = platform::GetPrivateProfileString(GenericBatch::SectionPrefix.c_str(), key.c_str(), "",
                                            limit + 1, file);
  return 1;
}

int ReadNumber(const char* file, const std::string& key, int& value) {
  if (file == nullptr) return 0;
  return ReadGenericInteger(value, file, GenericBatch::SectionPrefix, key);
}

}  // namespace

int GenericBatch::GetUserAddress(const char* file, std::string& user, std::string& address) {
  user.clear();
  address.clear();
  // Each text up to 259 characters, as a path-sized buffer holds.
  return ReadText(file, UserNameEntry, user, 259) & ReadText(file, UserAddressEntry, address, 259);
}

int GenericBatch::GetReportScheme(const char* file, std::string& scheme) {
  return ReadText(file, ReportSchemeEntry, scheme);
}

int GenericBatch::GetSampleReportEnable(const char* file, int& enable) {
  return ReadNumber(file, SampleReportEnableEntry, enable);
}

int GenericBatch::GetSampleReportScheme(const char* file, std::string& scheme) {
  return ReadText(file, SampleReportSchemeEntry, scheme);
}

int GenericBatch::GetPrioritySchedule(const char* file, int& priority) {
  return ReadNumber(file, PrioritySchedulingEntry, priority);
}

int GenericBatch::GetEconomySchedule(const char* file, int& economy) {
  return ReadNumber(file, EconomySchedulingEntry, economy);
}

int GenericBatch::GetAnalysisTime(const char* file, float& minutes) {
  std::string text;
  if (ReadText(file, AnalysisTimeEntry, text, 19) == 0) return 0;
  minutes = std::strtof(text.c_str(), nullptr);
  return 1;
}

int GenericBatch::GetNumOfSamples(const char* file, int& n) {
  int plates = 0;
  if (ReadNumber(file, NumberOfPlatesEntry, plates) == 0) return 0;
  // Plates without a section add 0, so walking the sections that exist
  // finds every plate of 1 … plates without trying each number.
  const std::string prefix = GenericPlate::SectionPrefix + ":";
  for (const std::string& name : platform::GetPrivateProfileSectionNames(file)) {
    if (name.size() <= prefix.size() ||
        platform::CompareNoCase1252(std::string_view(name).substr(0, prefix.size()), prefix) != 0) {
      continue;
    }
    std::string digits = name.substr(prefix.size());
    long number = std::strtol(digits.c_str(), nullptr, 10);
    if (number < 1 || number > plates || std::to_string(number) != digits) continue;
    int wells = 0;
    GenericPlate::GetNumberOfWells(file, wells, name.c_str());
    // 32-bit arithmetic: sums past the int range wrap instead of overflowing.
    n = static_cast<int>(static_cast<unsigned>(n) + static_cast<unsigned>(wells));
  }
  return 1;
}

int GenericBatch::GetPrintDravonicReport(const char* file, int& print) {
  return ReadNumber(file, PrintDravonicReportEntry, print);
}

int GenericBatch::GetZQAnalyticalToPrep(const char* file, int& on) {
  return ReadNumber(file, ZQAnalyticalToPrepEntry, on);
}

int GenericBatch::GetZQPrepToAnalytical(const char* file, int& on) {
  return ReadNumber(file, ZQPrepToAnalyticalEntry, on);
}

int GenericBatch::GetZQFileCreationPath(const char* file, std::string& path) {
  return ReadText(file, ZQFileCreationPathID, path);
}

int GenericBatch::GetAutoPurifyBatch(const char* file, int& autoPurify) {
  int purify = 0, toPrep = 0, toAnalytical = 0, submission = 0;
  if (ReadNumber(file, ZQAutoPurifyEntry, purify) == 0) return 0;
  ReadNumber(file, ZQAnalyticalToPrepEntry, toPrep);
  ReadNumber(file, ZQPrepToAnalyticalEntry, toAnalytical);
  ReadNumber(file, ZQFileSubmissionID, submission);
  autoPurify = purify != 0 && (toPrep != 0 || toAnalytical != 0) && submission == 0 ? 1 : 0;
  return 1;
}

}  // namespace kvdao
