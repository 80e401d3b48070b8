// The sample record's text form: one initialisation-file section a sample.

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/profile.h"
#include "kvdao/platform/text.h"
#include "kvdao/samplelist/sample_record.h"

namespace kvdao {
namespace {

using Attr = CSampleRecordAttributes;

// Keys of fields that the import dialogs never name.
const char* const kInjectionVolumeKey = "Injection Volume";
const char* const kStockDilutionKey = "Stock Dilution";
const char* const kSampleNumberKey = "Sample Number";
const char* const kAcquParametersKey = "Acqu Parameters";
const char* const kParametersKey = "Parameters";
const char* const kVersionKey = "Version";

// A value as a line can carry it: line breaks become blanks, and a value
// that a reader would trim or unquote is put in quotes (the reader removes
// exactly one pair).
std::string LineValue(std::string value) {
  for (char& c : value) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; };
  bool quote = !value.empty() &&
               (blank(value.front()) || blank(value.back()) ||
                ((value.front() == '"' || value.front() == '\'') && value.size() >= 2 &&
                 value.back() == value.front()));
  return quote ? "\"" + value + "\"" : value;
}

std::string Shortest(double value) {
  char buffer[32];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

// The fixed texts and the numbers kept as text, with their keys.
struct TextField {
  const std::string* key;
  std::string (CSampleRecord::*get)() const;
  void (CSampleRecord::*set)(const char*);
};

}  // namespace

const std::string CSampleRecord::TextSectionPrefix = "Sample";

namespace {

// The attribute texts and their keys, in the order they are written.
const std::vector<std::pair<std::string, Attr::TextField>>& AttributeKeys() {
  static const std::vector<std::pair<std::string, Attr::TextField>> keys = {
      {CSampleRecord::Process, Attr::Process},
      {CSampleRecord::ProcessParameters, Attr::ProcessParameters},
      {CSampleRecord::ProcessOptions, Attr::ProcessOptions},
      {CSampleRecord::ProcessAction, Attr::ProcessAction},
      {CSampleRecord::AcquProcess, Attr::AcquProcess},
      {CSampleRecord::AcquProcessParameters, Attr::AcquProcessParameters},
      {CSampleRecord::AcquProcessOptions, Attr::AcquProcessOptions},
      {kAcquParametersKey, Attr::AcquParameters},
      {kParametersKey, Attr::Parameters},
      {CSampleRecord::Molfile, Attr::Molfile},
      {CSampleRecord::FractionFile, Attr::FractionFile},
      {CSampleRecord::FractionStart, Attr::FractionStart},
      {CSampleRecord::HPLCFile, Attr::HPLCFile},
      {CSampleRecord::MSTuneFile, Attr::MSTuneFile},
      {CSampleRecord::InletPreRun, Attr::InletPreRun},
      {CSampleRecord::InletPostRun, Attr::InletPostRun},
      {CSampleRecord::InletSwitch, Attr::InletSwitch},
      {CSampleRecord::MethDB, Attr::MethDB},
      {CSampleRecord::CurveDB, Attr::CurveDB},
      {CSampleRecord::SampleGroup, Attr::SampleGroup},
      {CSampleRecord::AutoAddition, Attr::AutoAddition},
      {CSampleRecord::CartridgeLocation1, Attr::CartridgeLocation1},
      {CSampleRecord::CartridgeLocation2, Attr::CartridgeLocation2},
      {CSampleRecord::FormatFile, Attr::FormatFile},
      {CSampleRecord::DumpFile, Attr::DumpFile},
      {CSampleRecord::PlateDescription, Attr::PlateDescription},
      {CSampleRecord::MITFile, Attr::MITFile},
      {CSampleRecord::SubjectSex, Attr::SubjectSex},
      {CSampleRecord::SubjectSpecies, Attr::SubjectSpecies},
  };
  return keys;
}

}  // namespace

int CSampleRecord::WriteField(StdioFile& file, const std::string& key, const std::string& value) {
  return file.WriteString(key + "=" + LineValue(value) + "\n") ? 1 : 0;
}

int CSampleRecord::WriteField(StdioFile& file, const std::string& key, double value,
                              int precision) {
  return WriteField(file, key, platform::Format("%.*f", precision, value));
}

int CSampleRecord::Write(StdioFile& file) { return Write(file, 1); }

int CSampleRecord::Write(StdioFile& file, int n) {
  const TextField texts[] = {
      {&DataFileName, &CSampleRecord::GetDataFile, &CSampleRecord::SetDataFile},
      {&SampleDescription, &CSampleRecord::GetDescription, &CSampleRecord::SetDescription},
      {&MSFile, &CSampleRecord::GetMSFile, &CSampleRecord::SetMSFile},
      {&InletFile, &CSampleRecord::GetInletFile, &CSampleRecord::SetInletFile},
      {&ASFile, &CSampleRecord::GetASFile, &CSampleRecord::SetASFile},
      {&SampleLocation, &CSampleRecord::GetVialReference, &CSampleRecord::SetVialReference},
      {&JobCode, &CSampleRecord::GetJob, &CSampleRecord::SetJob},
      {&TaskCode, &CSampleRecord::GetTask, &CSampleRecord::SetTask},
      {&UserName, &CSampleRecord::GetUser, &CSampleRecord::SetUser},
      {&Submitter, &CSampleRecord::GetSubmitter, &CSampleRecord::SetSubmitter},
      {&Conditions, &CSampleRecord::GetConditions, &CSampleRecord::SetConditions},
      {&SampleType, &CSampleRecord::GetType, &CSampleRecord::SetType},
      {&Control, &CSampleRecord::GetControlType, &CSampleRecord::SetControlType},
      {&SampleID, &CSampleRecord::GetID, &CSampleRecord::SetID},
      {&QualityReference, &CSampleRecord::GetQualityReference,
       &CSampleRecord::SetQualityReference},
      {&QuanRef, &CSampleRecord::GetQuanRef, &CSampleRecord::SetQuanRef},
      {&Reinjections, &CSampleRecord::GetReinjections, &CSampleRecord::SetReinjections},
      {&SubjectText, &CSampleRecord::GetSubjectText, &CSampleRecord::SetSubjectText},
  };
  bool ok = file.WriteString(platform::Format("[%s%d]\n", TextSectionPrefix.c_str(), n));
  for (const TextField& field : texts) ok = ok && WriteField(file, *field.key, (this->*field.get)());
  // Numbers go out as the text the record keeps, so that they read back
  // exactly.
  const std::pair<std::string, const char*> numbers[] = {
      {kInjectionVolumeKey, m_pRecord->szInjectionVolume},
      {kStockDilutionKey, m_pRecord->szStockDilution},
      {UserDivisor1, m_pRecord->szUserDivisor1},
      {UserFactor1, m_pRecord->szUserFactor1},
      {UserFactor2, m_pRecord->szUserFactor2},
      {UserFactor3, m_pRecord->szUserFactor3},
      {SubjectTime, m_pRecord->szSubjectTime},
      {PrepInjectionVolume, m_pRecord->szPrepInjectionVolume},
  };
  for (const auto& [key, text] : numbers) {
    ok = ok && WriteField(file, key, std::string(text, strnlen(text, kSampleNumberWidth + 1)));
  }
  ok = ok && WriteField(file, SamplePosition, std::to_string(GetSamplePosition()));
  ok = ok && WriteField(file, kSampleNumberKey, std::to_string(GetSampleNumber()));
  ok = ok && WriteField(file, RetentionTimeOffset, Shortest(GetRetentionTimeOffset()));
  ok = ok && WriteField(file, kVersionKey, Shortest(m_pAttributes->layoutVersion));

  for (const auto& [key, field] : AttributeKeys()) {
    ok = ok && WriteField(file, key, GetAttribute(field));
  }

  auto writeGroup = [&](const std::string& countKey, const std::string& memberKey, int count,
                        auto member) {
    ok = ok && WriteField(file, countKey, std::to_string(count));
    for (int i = 0; i < count; ++i) {
      ok = ok && WriteField(file, memberKey + std::to_string(i + 1), member(i));
    }
  };
  writeGroup(Masses, Mass, GetNumMasses(), [&](int i) { return GetMassText(i); });
  writeGroup(Concentrations, Concentration, GetNumConcentrations(),
             [&](int i) { return GetConcentrationText(i); });
  writeGroup(Wavelengths, Wavelength, GetNumWavelengths(),
             [&](int i) { return Shortest(GetWavelength(i)); });
  writeGroup(FractionTriggers, FractionTrigger, GetNumFractionTriggers(),
             [&](int i) { return GetFractionTrigger(i); });
  writeGroup(Spares, Spare, GetNumSpares(), [&](int i) { return GetSpare(i); });
  writeGroup(Compounds, Compound, GetNumCompounds(), [&](int i) { return GetCompound(i); });
  ok = ok && file.WriteString("\n");
  return ok ? 1 : 0;
}

int CSampleRecord::Write(const char* path) { return Write(path, 1); }

int CSampleRecord::Write(const char* path, int n) {
  if (path == nullptr) return 0;
  return platform::WriteFileThrough(path, [&](StdioFile& file) { return Write(file, n) != 0; })
             ? 1
             : 0;
}

int CSampleRecord::Add(const char* path) { return Add(path, 1); }

int CSampleRecord::Add(const char* path, int n) {
  if (path == nullptr) return 0;
  StdioFile file;
  if (!file.Open(path, StdioFile::modeCreate | StdioFile::modeNoTruncate | StdioFile::modeWrite) ||
      !file.SeekToEnd()) {
    return 0;
  }
  int ok = Write(file, n);
  return file.Close() && ok ? 1 : 0;
}

std::string CSampleRecord::ReadField(const char* path, const char* section, const char* key,
                                     const char* defaultValue, int size) {
  if (path == nullptr) return defaultValue != nullptr ? defaultValue : "";
  return platform::GetPrivateProfileString(section, key, defaultValue,
                                           size > 0 ? static_cast<std::size_t>(size) : 1, path);
}

int CSampleRecord::Read(const char* path) { return Read(path, 1); }

int CSampleRecord::Read(const char* path, int n) {
  if (path == nullptr) return 0;
  const std::string section = platform::Format("%s%d", TextSectionPrefix.c_str(), n);
  if (platform::GetPrivateProfileKeys(section.c_str(), path).empty()) return 0;
  CSampleRecord read;
  auto value = [&](const std::string& key) {
    return platform::GetPrivateProfileString(section.c_str(), key.c_str(), "", path);
  };
  read.SetDataFile(value(DataFileName).c_str());
  read.SetDescription(value(SampleDescription).c_str());
  read.SetMSFile(value(MSFile).c_str());
  read.SetInletFile(value(InletFile).c_str());
  read.SetASFile(value(ASFile).c_str());
  read.SetVialReference(value(SampleLocation).c_str());
  read.SetJob(value(JobCode).c_str());
  read.SetTask(value(TaskCode).c_str());
  read.SetUser(value(UserName).c_str());
  read.SetSubmitter(value(Submitter).c_str());
  read.SetConditions(value(Conditions).c_str());
  read.SetType(value(SampleType).c_str());
  read.SetControlType(value(Control).c_str());
  read.SetID(value(SampleID).c_str());
  read.SetQualityReference(value(QualityReference).c_str());
  read.SetQuanRef(value(QuanRef).c_str());
  read.SetReinjections(value(Reinjections).c_str());
  read.SetSubjectText(value(SubjectText).c_str());
  read.SetInjectionVolume(value(kInjectionVolumeKey).c_str());
  read.SetStockDilution(value(kStockDilutionKey).c_str());
  read.SetUserDivisor1(value(UserDivisor1).c_str());
  read.SetUserFactor1(value(UserFactor1).c_str());
  read.SetUserFactor2(value(UserFactor2).c_str());
  read.SetUserFactor3(value(UserFactor3).c_str());
  read.SetSubjectTime(value(SubjectTime).c_str());
  read.SetPrepInjectionVolume(value(PrepInjectionVolume).c_str());
  read.SetSamplePosition(value(SamplePosition).c_str());
  read.SetSampleNumber(std::atoi(value(kSampleNumberKey).c_str()));
  read.SetRetentionTimeOffset(value(RetentionTimeOffset).c_str());
  read.m_pAttributes->layoutVersion = std::atof(value(kVersionKey).c_str());

  for (const auto& [key, field] : AttributeKeys()) read.SetAttribute(field, value(key).c_str());

  // Counts come from the file; they are bounded by the groups themselves.
  auto readGroup = [&](const std::string& countKey, const std::string& memberKey, int max,
                       auto set) {
    int count = platform::GetPrivateProfileInt(section.c_str(), countKey.c_str(), 0, path);
    if (count > max) count = max;
    for (int i = 0; i < count; ++i) set(i, value(memberKey + std::to_string(i + 1)));
  };
  readGroup(Masses, Mass, Attr::Group<std::string, kMassColumnCount>::kMax,
            [&](int i, const std::string& v) { read.SetMass(i, v.c_str()); });
  readGroup(Concentrations, Concentration, kConcColumnCount,
            [&](int i, const std::string& v) { read.SetConcentration(i, v.c_str()); });
  readGroup(Wavelengths, Wavelength, kWavelengthColumnCount,
            [&](int i, const std::string& v) { read.SetWavelength(i, std::atof(v.c_str())); });
  readGroup(FractionTriggers, FractionTrigger, kFractionColumnCount,
            [&](int i, const std::string& v) { read.SetFractionTrigger(i, v.c_str()); });
  readGroup(Spares, Spare, kSpareColumnCount,
            [&](int i, const std::string& v) { read.SetSpare(i, v.c_str()); });
  readGroup(Compounds, Compound, kCompoundColumnCount,
            [&](int i, const std::string& v) { read.SetCompound(i, v.c_str()); });
  *this = read;
  return 1;
}

}  // namespace kvdao
