#include "kvdao/method/method_record.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "kvdao/platform/word_match.h"
#include "number_text.h"

namespace kvdao {

namespace {
constexpr std::size_t kNameWidth = 80;
constexpr int kMassPairs = 50;
}  // namespace

CMethodRecord::CMethodRecord() : m_pRecord(std::make_unique<tagINTERNAL_METHOD>()) {
  SetRecord(nullptr);
}

CMethodRecord::CMethodRecord(const CMethodRecord* source)
    : m_pRecord(std::make_unique<tagINTERNAL_METHOD>()) {
  SetRecord(source ? source->GetData() : nullptr);
}

CMethodRecord::CMethodRecord(const CMethodRecord& source)
    : CRecord(source), m_pRecord(std::make_unique<tagINTERNAL_METHOD>()) {
  SetRecord(source.GetData());
}

CMethodRecord::CMethodRecord(const tagINTERNAL_METHOD* source)
    : m_pRecord(std::make_unique<tagINTERNAL_METHOD>()) {
  SetRecord(source);
}

CMethodRecord::CMethodRecord(const tagINTERNAL_METHOD& source)
    : m_pRecord(std::make_unique<tagINTERNAL_METHOD>()) {
  SetRecord(&source);
}

CMethodRecord::~CMethodRecord() = default;

CMethodRecord& CMethodRecord::operator=(const CMethodRecord& source) {
  if (this != &source) SetRecord(source.GetData());
  return *this;
}

CMethodRecord& CMethodRecord::operator=(const tagINTERNAL_METHOD& source) {
  SetRecord(&source);
  return *this;
}

CMethodRecord* CMethodRecord::CreateRecord(CMethodRecord* source) { return new CMethodRecord(source); }

void CMethodRecord::ReleaseRecord(CMethodRecord* record) { delete record; }

void CMethodRecord::SetRecord(const tagINTERNAL_METHOD* source) {
  if (source == nullptr) {
    Default();
  } else if (source != m_pRecord.get()) {
    std::memcpy(m_pRecord.get(), source, kMethodRecordSize);
  }
}

// ---- Text storage -----------------------------------------------------------

std::string_view CMethodRecord::TextAt(std::size_t offset) const noexcept {
  const char* text = reinterpret_cast<const char*>(Bytes()) + offset;
  return std::string_view(text, strnlen(text, kMethodRecordSize - offset));
}

void CMethodRecord::StoreText(std::size_t offset, std::string_view value, std::size_t keep) noexcept {
  std::size_t length = std::min(value.size(), keep);
  // A text object may hold a NUL; the stored text ends there as it would in
  // any C string.
  length = std::min(length, value.substr(0, length).find('\0'));
  unsigned char* target = Bytes() + offset;
  if (length > 0) std::memcpy(target, value.data(), length);
  target[length] = '\0';
}

void CMethodRecord::CopyBytes(std::size_t offset, const char* value, std::size_t bound) noexcept {
  if (value == nullptr) value = "";
  std::size_t room = kMethodRecordSize - offset;
  std::size_t length = strnlen(value, std::min(bound, room));
  unsigned char* target = Bytes() + offset;
  std::memcpy(target, value, length);
  if (length < bound && length < room) target[length] = '\0';
}

void CMethodRecord::SetNoisePeakMethod(const char* value) {
  // No bound of its own: what does not fit the 16-byte buffer runs on into
  // the following fields. The copy stops at the end of the record, keeping
  // its last byte for the terminator.
  if (value == nullptr) value = "";
  constexpr std::size_t offset = offsetof(tagINTERNAL_METHOD, NoisePeakMethod);
  constexpr std::size_t room = kMethodRecordSize - offset;
  std::size_t length = strnlen(value, room - 1);
  std::memcpy(Bytes() + offset, value, length);
  Bytes()[offset + length] = '\0';
}

std::string CMethodRecord::GetTargetTrace(const int& index) const {
  if (!InRange(index, 4)) return std::string();
  return ReadText(offsetof(tagINTERNAL_METHOD, TargetTrace) + 81 * static_cast<std::size_t>(index));
}

const char* CMethodRecord::GetTargetTraceByRef(const int& index) const {
  return InRange(index, 4) ? m_pRecord->TargetTrace[index] : nullptr;
}

const char* CMethodRecord::GetTargetTraceLPCTSTR(const int& index) const {
  return InRange(index, 4) ? m_pRecord->TargetTrace[index] : "";
}

void CMethodRecord::SetTargetTrace(const int& index, const std::string& value) {
  if (InRange(index, 4)) {
    StoreText(offsetof(tagINTERNAL_METHOD, TargetTrace) + 81 * static_cast<std::size_t>(index), value, 80);
  }
}

void CMethodRecord::SetTargetTrace(const int& index, const char* value) {
  if (InRange(index, 4)) {
    CopyBytes(offsetof(tagINTERNAL_METHOD, TargetTrace) + 81 * static_cast<std::size_t>(index), value, 80);
  }
}

// ---- Views ------------------------------------------------------------------

void CMethodRecord::SetFlagBit(int bit, int value) noexcept {
  std::int32_t& flags = m_pRecord->TargetFlags;
  if (value != 0) {
    flags |= bit;
  } else if ((flags & bit) != 0) {
    flags -= bit;
  }
}

void CMethodRecord::SetUseTrace(const int& mask, const int& on) {
  if (on != 0) {
    m_pRecord->QuantificationTraces |= mask;
  } else {
    m_pRecord->QuantificationTraces &= ~mask;
  }
}

// Wrapping arithmetic: a reference number is a plain 32-bit word in the
// record and may hold anything a file brought in.
int CMethodRecord::GetRRef() const {
  return static_cast<int>(static_cast<std::uint32_t>(m_pRecord->IStd[0]) + 1u);
}

void CMethodRecord::SetRRef(const int& value) {
  m_pRecord->IStd[0] = static_cast<std::int32_t>(static_cast<std::uint32_t>(value) - 1u);
}

void CMethodRecord::GetMassIntData(std::string& text) const {
  char pair[32];
  for (const auto& entry : m_pRecord->MassIntData) {
    if (entry[0] <= 0) continue;
    if (!text.empty()) text += '\n';
    text.append(pair, method_text::FormatPair(pair, entry[0], entry[1]));
  }
}

std::string CMethodRecord::GetMassIntData() const {
  std::string text;
  GetMassIntData(text);
  return text;
}

void CMethodRecord::SetMassIntData(std::string_view text) {
  if (text.empty()) {
    std::memset(m_pRecord->MassIntData, 0, sizeof m_pRecord->MassIntData);
    return;
  }
  constexpr std::string_view kSeparators = ",\n\t";
  int pair = 0;
  int half = 0;
  std::int32_t mass = 0;
  std::size_t pos = 0;
  while (pair < kMassPairs) {
    std::size_t start = text.find_first_not_of(kSeparators, pos);
    if (start == std::string_view::npos) break;
    std::size_t end = text.find_first_of(kSeparators, start);
    if (end == std::string_view::npos) end = text.size();
    std::int32_t number = method_text::ParseInt(text.substr(start, end - start));
    if (half == 0) {
      mass = number;
      half = 1;
    } else {
      m_pRecord->MassIntData[pair][0] = mass;
      m_pRecord->MassIntData[pair][1] = number;
      ++pair;
      half = 0;
    }
    pos = end;
  }
}

// ---- Whole-record operations ----------------------------------------------

void CMethodRecord::Default() {
  tagINTERNAL_METHOD& r = *m_pRecord;
  std::memset(&r, 0, kMethodRecordSize);
  StoreText(offsetof(tagINTERNAL_METHOD, Name), "New Compound", kNameWidth);

  r.ChroMassWindowABS = 0.02f;
  r.ChroMassWindowPPM = 10.0f;
  r.ChroMassWindowAbs = 1;
  r.ChroAuto = 1;
  r.SmooEnabled = 1;
  r.SmooMethod = 0;
  r.SmooIter = 1;
  r.SmooWidth = 2;
  r.PkWatThreshold = 10.0f;
  r.PkWatWidth = 30.0f;
  r.PkWatDownThreshold = 0.5f;
  r.PkThreshMethod = 10;
  r.PkRespAreaRel = 2.0f;
  r.PkRespHeightRel = 1.5f;
  r.LocateBy = 1;
  r.LocateRTWin = 0.2f;
  r.CCalc = 1;
  r.Origin = 1;
  r.WeightingFunction = 1;
  r.NoiseFactor = 3.0f;
  std::fill(std::begin(r.IStd), std::end(r.IStd), -1);
  std::fill(std::begin(r.TargetRef), std::end(r.TargetRef), -1);
  r.MinSigNoise = 2.0;
  r.MinCoeffDet = 0.5;
  r.MaxRecovery = 100.0;
  r.QuantificationTraces = 1;

  StoreText(offsetof(tagINTERNAL_METHOD, CalCompound), TextAt(offsetof(tagINTERNAL_METHOD, Name)), 80);

  for (double* window :
       {&r.PeakQualityRTWindow, &r.PeakQualityRRTWindow, &r.PeakQualityISAreaWindow,
        &r.PeakQualityBaseWidthWindow, &r.PeakQualityWidthWindow, &r.PeakQualityHeightOverAreaWindow,
        &r.PeakQualitySkewWindow, &r.PeakQualityKurtosisWindow, &r.PeakQualitySigmaWindow,
        &r.PeakQualityRefRTWindow, &r.PeakQualityRefWidthWindow, &r.PeakQualityRefSigmaWindow,
        &r.PeakQualityRefSkewWindow}) {
    *window = 5.0;
  }
  r.PeakQualityHeightOverAreaValue = 8.0;

  r.SymmetryThreshold = 90.0;
  r.QuanTraceRatio = 1.0;
  r.QuanOverTarget = 1;

  for (std::int32_t* action :
       {&r.MonitorBlankAction, &r.MonitorBlankReinjections, &r.MonitorBlankMaxAction,
        &r.MonitorSolventAction, &r.MonitorSolventReinjections, &r.MonitorSolventMaxAction,
        &r.MonitorQCAction, &r.MonitorQCReinjections, &r.MonitorQCMaxAction, &r.MonitorAnalyteAction,
        &r.MonitorAnalyteReinjections, &r.MonitorAnalyteMaxAction, &r.MonitorCalibrationAction}) {
    *action = 1;
  }

  r.IFITThreshold = 100.0;
  r.IFITNThreshold = 0.005;
  r.IFITCThreshold = 95.0;
  r.ppmThreshold = 5.0;
  r.absThreshold = 5.0;
  r.QualWindow = 0.02;
  r.AlwaysPrint = 1;
}

void CMethodRecord::FixInternalStandards() {
  tagINTERNAL_METHOD& r = *m_pRecord;
  constexpr int kCount = 6;
  if (r.RCalc != 1) {
    for (int i = kCount - 1; i >= 0; --i) r.IStd[i] = -1;
    r.UseMulti = 0;
    return;
  }
  bool seen = false;
  bool several = false;
  for (int i = kCount - 1; i >= 0; --i) {
    if (r.IStd[i] == -1) continue;
    if (seen) several = true;
    seen = true;
  }
  // Each empty entry is closed up over and the length shrinks, but the walk
  // moves on without looking again at the slot that was just filled.
  int length = kCount;
  for (int i = 0; i < length; ++i) {
    if (r.IStd[i] != -1) continue;
    for (int j = i; j < length - 1; ++j) r.IStd[j] = r.IStd[j + 1];
    r.IStd[length - 1] = -1;
    --length;
  }
  if (r.IStdNumber > 0 && r.IStd[0] == -1) r.IStd[0] = r.IStdNumber - 1;
  r.UseMulti = several ? 1 : 0;
}

void CMethodRecord::ResetReferences() {
  tagINTERNAL_METHOD& r = *m_pRecord;
  std::fill(std::begin(r.IStd), std::end(r.IStd), -1);
  r.RRTRef = 0;
  r.IonRatioRef = 0;
  std::fill(std::begin(r.TargetRef), std::end(r.TargetRef), -1);
  StoreText(offsetof(tagINTERNAL_METHOD, CalCompound), TextAt(offsetof(tagINTERNAL_METHOD, Name)), 80);
}

bool CMethodRecord::IsMemberOf(const std::string& groups) const {
  return platform::CWordMatch::CompareLists(TextAt(offsetof(tagINTERNAL_METHOD, TotalsGroup)), groups);
}

}  // namespace kvdao
