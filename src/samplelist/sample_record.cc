#include "kvdao/samplelist/sample_record.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "kvdao/platform/text.h"

namespace kvdao {
namespace {

// Copies at most `width` characters of `text` into a buffer of width + 1
// bytes, zero-filling the rest.
template <std::size_t N>
void CopyFixed(char (&buffer)[N], const char* text) {
  std::size_t length = strnlen(text, N - 1);
  std::memcpy(buffer, text, length);
  std::memset(buffer + length, 0, N - length);
}

template <std::size_t N>
std::string ReadFixed(const char (&buffer)[N]) {
  return std::string(buffer, strnlen(buffer, N));
}

std::string FormatNumber(double value) { return platform::Format("%lf", value); }

}  // namespace

const char* const CSampleRecord::kSampleTypeNames[8] = {
    "Analyte", "Standard", "QC", "Blank", "Donor", "Receptor", "Recovery", "Solvent"};
const char* const CSampleRecord::kControlTypeNames[2] = {"Analyte", "Control"};

CSampleRecord::CSampleRecord() { Initialise(); }

CSampleRecord::CSampleRecord(const _tagINTERNAL_SAMPLES_DB_RECORD& record) {
  Initialise();
  SetSample(&record);
}

CSampleRecord::CSampleRecord(const CSampleRecord& other)
    : m_pRecord(std::make_unique<_tagINTERNAL_SAMPLES_DB_RECORD>(*other.m_pRecord)),
      m_pAttributes(std::make_unique<CSampleRecordAttributes>(*other.m_pAttributes)) {}

CSampleRecord& CSampleRecord::operator=(const CSampleRecord& other) {
  if (this != &other) {
    *m_pRecord = *other.m_pRecord;
    *m_pAttributes = *other.m_pAttributes;
  }
  return *this;
}

CSampleRecord::~CSampleRecord() = default;

void CSampleRecord::Initialise() {
  if (!m_pRecord) m_pRecord = std::make_unique<_tagINTERNAL_SAMPLES_DB_RECORD>();
  if (!m_pAttributes) m_pAttributes = std::make_unique<CSampleRecordAttributes>();
  std::memset(m_pRecord.get(), 0, sizeof(_tagINTERNAL_SAMPLES_DB_RECORD));
}

void CSampleRecord::GetSample(_tagINTERNAL_SAMPLES_DB_RECORD* record) const {
  if (record != nullptr) *record = *m_pRecord;
}

void CSampleRecord::SetSample(const _tagINTERNAL_SAMPLES_DB_RECORD* record) {
  if (record == nullptr) return;
  *m_pRecord = *record;
  // A legacy record carries its masses and concentrations only in its slots.
  m_pAttributes->masses.Clear();
  m_pAttributes->concentrations.Clear();
  for (int i = 0; i < kSampleRecordMasses; ++i) {
    m_pAttributes->masses.Set(i, ReadFixed(m_pRecord->szMass[i]));
  }
  for (int i = 0; i < kSampleRecordConcentrations; ++i) {
    m_pAttributes->concentrations.Set(i, ReadFixed(m_pRecord->szConcentration[i]));
  }
  m_pAttributes->masses.TrimTrailingEmpty();
  m_pAttributes->concentrations.TrimTrailingEmpty();
}

#define KVDAO_FIXED_TEXT(Name, member)                                         \
  std::string CSampleRecord::Get##Name() const { return ReadFixed(m_pRecord->member); } \
  void CSampleRecord::Set##Name(const char* text) {                            \
    if (text != nullptr) CopyFixed(m_pRecord->member, text);                   \
  }
KVDAO_FIXED_TEXT(Description, szDescription)
KVDAO_FIXED_TEXT(MSFile, szMSFile)
KVDAO_FIXED_TEXT(InletFile, szInletFile)
KVDAO_FIXED_TEXT(ASFile, szASFile)
KVDAO_FIXED_TEXT(VialReference, szVialReference)
KVDAO_FIXED_TEXT(Job, szJob)
KVDAO_FIXED_TEXT(Task, szTask)
KVDAO_FIXED_TEXT(User, szUser)
KVDAO_FIXED_TEXT(Submitter, szSubmitter)
KVDAO_FIXED_TEXT(Conditions, szConditions)
KVDAO_FIXED_TEXT(Type, szType)
KVDAO_FIXED_TEXT(ControlType, szControlType)
KVDAO_FIXED_TEXT(ID, szID)
KVDAO_FIXED_TEXT(QualityReference, szQualityReference)
KVDAO_FIXED_TEXT(QuantityReference, szQuanRef)
KVDAO_FIXED_TEXT(Reinjections, szReinjections)
KVDAO_FIXED_TEXT(SubjectText, szSubjectText)
KVDAO_FIXED_TEXT(DataFile, szDataFile)
#undef KVDAO_FIXED_TEXT

#define KVDAO_NUMBER_FIELD(Name, member)                                          \
  double CSampleRecord::Get##Name() const { return std::atof(ReadFixed(m_pRecord->member).c_str()); } \
  void CSampleRecord::Set##Name(const char* text) {                               \
    if (text != nullptr) CopyFixed(m_pRecord->member, text);                      \
  }                                                                               \
  void CSampleRecord::Set##Name(double value) {                                   \
    CopyFixed(m_pRecord->member, FormatNumber(value).c_str());                    \
  }
KVDAO_NUMBER_FIELD(InjectionVolume, szInjectionVolume)
KVDAO_NUMBER_FIELD(StockDilution, szStockDilution)
KVDAO_NUMBER_FIELD(UserDivisor1, szUserDivisor1)
KVDAO_NUMBER_FIELD(UserFactor1, szUserFactor1)
KVDAO_NUMBER_FIELD(UserFactor2, szUserFactor2)
KVDAO_NUMBER_FIELD(UserFactor3, szUserFactor3)
KVDAO_NUMBER_FIELD(SubjectTime, szSubjectTime)
KVDAO_NUMBER_FIELD(PrepInjectionVolume, szPrepInjectionVolume)
#undef KVDAO_NUMBER_FIELD

double CSampleRecord::GetRetentionTimeOffset() const { return m_pAttributes->retentionTimeOffset; }
void CSampleRecord::SetRetentionTimeOffset(const char* text) {
  if (text != nullptr) m_pAttributes->retentionTimeOffset = std::atof(text);
}
void CSampleRecord::SetRetentionTimeOffset(double value) {
  m_pAttributes->retentionTimeOffset = value;
}

int CSampleRecord::GetSamplePosition() const { return m_pRecord->nSamplePosition; }
void CSampleRecord::SetSamplePosition(int position) { m_pRecord->nSamplePosition = position; }
void CSampleRecord::SetSamplePosition(const char* text) {
  if (text != nullptr) m_pRecord->nSamplePosition = std::atoi(text);
}
int CSampleRecord::GetSampleNumber() const { return m_pRecord->nSampleNumber; }
void CSampleRecord::SetSampleNumber(int number) { m_pRecord->nSampleNumber = number; }

namespace {

template <std::size_t N>
int MatchLastName(const std::string& stored, const char* const (&names)[N]) {
  int found = 0;
  for (std::size_t i = 0; i < N; ++i) {
    if (platform::CompareNoCase1252(stored, names[i]) == 0) found = static_cast<int>(i);
  }
  return found;
}

}  // namespace

void CSampleRecord::SetType(int n) { SetType(n >= 0 && n < 8 ? kSampleTypeNames[n] : ""); }

int CSampleRecord::GetType(int& n) const {
  n = MatchLastName(GetType(), kSampleTypeNames);
  return n;
}

void CSampleRecord::SetControlType(int n) {
  SetControlType(n >= 0 && n < 2 ? kControlTypeNames[n] : "");
}

int CSampleRecord::GetControlType(int& n) const {
  n = MatchLastName(GetControlType(), kControlTypeNames);
  return n;
}

int CSampleRecord::GetNumMasses() const { return m_pAttributes->masses.Count(); }
int CSampleRecord::GetNumConcentrations() const { return m_pAttributes->concentrations.Count(); }
int CSampleRecord::GetNumWavelengths() const { return m_pAttributes->wavelengths.Count(); }
int CSampleRecord::GetNumFractionTriggers() const {
  return m_pAttributes->fractionTriggers.Count();
}
int CSampleRecord::GetNumSpares() const { return m_pAttributes->spares.Count(); }
int CSampleRecord::GetNumCompounds() const { return m_pAttributes->compounds.Count(); }

std::string CSampleRecord::GetMassText(int i) const { return m_pAttributes->masses.Get(i); }
double CSampleRecord::GetMass(int i) const { return std::atof(GetMassText(i).c_str()); }

void CSampleRecord::SetMass(int i, const char* text) {
  if (i < 0 || text == nullptr) return;
  if (i < kSampleRecordMasses) CopyFixed(m_pRecord->szMass[i], text);
  m_pAttributes->masses.Set(i, text);
}

void CSampleRecord::SetMass(int i, double value) { SetMass(i, FormatNumber(value).c_str()); }

std::string CSampleRecord::GetConcentrationText(int i) const {
  return m_pAttributes->concentrations.Get(i);
}
double CSampleRecord::GetConcentration(int i) const {
  return std::atof(GetConcentrationText(i).c_str());
}

void CSampleRecord::SetConcentration(int i, const char* text) {
  if (i < 0 || text == nullptr) return;
  if (i < kSampleRecordConcentrations) CopyFixed(m_pRecord->szConcentration[i], text);
  m_pAttributes->concentrations.Set(i, text);
}

void CSampleRecord::SetConcentration(int i, double value) {
  SetConcentration(i, FormatNumber(value).c_str());
}

double CSampleRecord::GetWavelength(int i) const { return m_pAttributes->wavelengths.Get(i); }
void CSampleRecord::SetWavelength(int i, double value) { m_pAttributes->wavelengths.Set(i, value); }

std::string CSampleRecord::GetFractionTrigger(int i) const {
  return m_pAttributes->fractionTriggers.Get(i);
}
void CSampleRecord::SetFractionTrigger(int i, const char* text) {
  if (text != nullptr) m_pAttributes->fractionTriggers.Set(i, text);
}
std::string CSampleRecord::GetSpare(int i) const { return m_pAttributes->spares.Get(i); }
void CSampleRecord::SetSpare(int i, const char* text) {
  if (text != nullptr) m_pAttributes->spares.Set(i, text);
}
std::string CSampleRecord::GetCompound(int i) const { return m_pAttributes->compounds.Get(i); }
void CSampleRecord::SetCompound(int i, const char* text) {
  if (text != nullptr) m_pAttributes->compounds.Set(i, text);
}

std::string CSampleRecord::GetAttribute(CSampleRecordAttributes::TextField field) const {
  return m_pAttributes->Text(field);
}

void CSampleRecord::SetAttribute(CSampleRecordAttributes::TextField field, const char* text) {
  if (text != nullptr) m_pAttributes->SetText(field, text);
}

}  // namespace kvdao
