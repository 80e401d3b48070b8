// Field-by-number text access of method records (MethodSetFieldStr,
// MethodGetFieldStr and the option-bit fields). Grids call it for every cell
// they show, so it works in place: no allocation on either path.

#include <cstring>

#include "kvdao/method/method_record.h"
#include "method_field_table.h"
#include "number_text.h"

namespace kvdao {

using method_fields::FieldInfo;
using method_fields::FieldKind;
using method_fields::kFieldTable;
using method_fields::Scalar;

namespace {

constexpr int kFirstWatOption = MDF_PkWatOption1;
constexpr int kLastWatOption = MDF_PkWatOption4;
constexpr int kFirstThreshOption = MDF_PkThreshOption2;
constexpr int kLastThreshOption = MDF_PkThreshOption4;
// PkWatOperations masks 1 and 2 are stored inverted: set means "off".
constexpr std::int32_t kInvertedWatOptions = 1 | 2;

std::int32_t LoadInt(const unsigned char* at) noexcept {
  std::int32_t value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

void StoreInt(unsigned char* at, std::int32_t value) noexcept { std::memcpy(at, &value, sizeof value); }

double LoadNumber(const unsigned char* at, Scalar scalar) noexcept {
  switch (scalar) {
    case Scalar::kInt:
      return LoadInt(at);
    case Scalar::kFloat: {
      float value;
      std::memcpy(&value, at, sizeof value);
      return value;
    }
    case Scalar::kDouble: {
      double value;
      std::memcpy(&value, at, sizeof value);
      return value;
    }
    case Scalar::kNone:
      break;
  }
  return 0.0;
}

void StoreNumber(unsigned char* at, Scalar scalar, std::string_view text) noexcept {
  switch (scalar) {
    case Scalar::kInt:
      StoreInt(at, method_text::ParseInt(text));
      break;
    case Scalar::kFloat: {
      float value = method_text::ToFloat(method_text::ParseDouble(text));
      std::memcpy(at, &value, sizeof value);
      break;
    }
    case Scalar::kDouble: {
      double value = method_text::ParseDouble(text);
      std::memcpy(at, &value, sizeof value);
      break;
    }
    case Scalar::kNone:
      break;
  }
}

// The yes/no rule: only exactly "NO" is off.
std::int32_t YesNoValue(std::string_view text) noexcept { return text == "NO" ? 0 : 1; }
const char* YesNoText(bool on) noexcept { return on ? "YES" : "NO"; }

std::int32_t OptionMask(int field) noexcept { return kFieldTable[field].aux; }

// Copies a literal or a text view into the caller's buffer, terminated.
void Put(char* buffer, std::string_view text) noexcept {
  std::size_t length = text.size() < kMethodFieldBufferSize ? text.size() : kMethodFieldBufferSize - 1;
  std::memcpy(buffer, text.data(), length);
  buffer[length] = '\0';
}

void PutNumber(char* buffer, double value) noexcept {
  std::size_t length = method_text::FormatFixed(buffer, kMethodFieldBufferSize - 1, value);
  buffer[length] = '\0';
}

}  // namespace

bool CMethodRecord::MethodSetFieldStr(int field, bool, const char* text, int index) {
  if (!m_pRecord || field < 0 || field >= MDF_Count) return false;
  const FieldInfo& info = kFieldTable[field];
  std::string_view value = text != nullptr ? std::string_view(text) : std::string_view();
  unsigned char* at = Bytes() + info.offset;
  switch (info.kind) {
    case FieldKind::kUnassigned:
    case FieldKind::kReadOnlyNumber:
    case FieldKind::kReadOnlyYesNo:
      return false;
    case FieldKind::kText:
      StoreText(info.offset, value, static_cast<std::size_t>(info.aux));
      break;
    case FieldKind::kTextUnbounded:
      SetNoisePeakMethod(text);
      break;
    case FieldKind::kMassList:
      SetMassIntData(value);
      break;
    case FieldKind::kNumber:
      StoreNumber(at, info.scalar, value);
      // The standard monitor's maximum action also carries the asymmetry
      // propagation switch; a full record read in id order sets that switch
      // again afterwards with its own value.
      if (field == MDF_MonitorStandardMaxAction) m_pRecord->AsymmetryPropagate = YesNoValue(value);
      break;
    case FieldKind::kIndexedNumber:
      if (InRange(index, info.aux)) StoreNumber(at + sizeof(double) * static_cast<std::size_t>(index), info.scalar, value);
      break;
    case FieldKind::kRRef:
      SetRRef(method_text::ParseInt(value));
      break;
    case FieldKind::kYesNo:
      StoreInt(at, YesNoValue(value));
      break;
    case FieldKind::kPeakMode:
      StoreInt(at, value == "YES" ? 5 : -1);
      break;
    case FieldKind::kWatOption:
      SetWatOpField(text, field);
      break;
    case FieldKind::kThreshOption:
      SetThresholdField(text, field);
      break;
    case FieldKind::kTraceInUse:
      SetUseTrace(info.aux, YesNoValue(value));
      break;
    case FieldKind::kFlagBit:
      SetFlagBit(info.aux, YesNoValue(value));
      break;
  }
  return true;
}

bool CMethodRecord::MethodGetFieldStr(int field, bool, char* buffer, int index, double& value) const {
  if (buffer != nullptr) buffer[0] = '\0';
  value = 0.0;
  if (!m_pRecord || buffer == nullptr || field < 0 || field >= MDF_Count) return false;
  const FieldInfo& info = kFieldTable[field];
  const unsigned char* at = Bytes() + info.offset;
  switch (info.kind) {
    case FieldKind::kUnassigned:
      return false;
    case FieldKind::kText:
    case FieldKind::kTextUnbounded:
      Put(buffer, TextAt(info.offset));
      break;
    case FieldKind::kMassList: {
      // At most 50 pairs of 23 characters and a line feed: well inside the
      // buffer.
      char* out = buffer;
      for (const auto& pair : m_pRecord->MassIntData) {
        if (pair[0] <= 0) continue;
        if (out != buffer) *out++ = '\n';
        out += method_text::FormatPair(out, pair[0], pair[1]);
      }
      *out = '\0';
      break;
    }
    case FieldKind::kNumber:
    case FieldKind::kReadOnlyNumber:
      value = LoadNumber(at, info.scalar);
      PutNumber(buffer, value);
      break;
    case FieldKind::kIndexedNumber:
      value = InRange(index, info.aux)
                  ? LoadNumber(at + sizeof(double) * static_cast<std::size_t>(index), info.scalar)
                  : 0.0;
      PutNumber(buffer, value);
      break;
    case FieldKind::kRRef:
      value = GetRRef();
      PutNumber(buffer, value);
      break;
    case FieldKind::kYesNo:
    case FieldKind::kReadOnlyYesNo:
      Put(buffer, YesNoText(LoadInt(at) != 0));
      break;
    case FieldKind::kPeakMode:
      Put(buffer, YesNoText(LoadInt(at) == 5));
      break;
    case FieldKind::kWatOption:
    case FieldKind::kThreshOption: {
      bool set = (LoadInt(at) & info.aux) != 0;
      bool inverted = info.kind == FieldKind::kWatOption && (info.aux & kInvertedWatOptions) != 0;
      Put(buffer, set != inverted ? "1" : "0");
      break;
    }
    case FieldKind::kTraceInUse:
      Put(buffer, YesNoText(GetUseTrace(info.aux) != 0));
      break;
    case FieldKind::kFlagBit:
      Put(buffer, YesNoText(FlagBit(info.aux) != 0));
      break;
  }
  return true;
}

bool CMethodRecord::MethodGetFieldStr(int field, bool flag, std::string& text, int index, double& value) const {
  char buffer[kMethodFieldBufferSize];
  bool ok = MethodGetFieldStr(field, flag, buffer, index, value);
  text.assign(buffer);
  return ok;
}

void CMethodRecord::SetWatOpField(const char* text, int field) {
  if (field < kFirstWatOption || field > kLastWatOption) return;
  bool on = text == nullptr || std::strcmp(text, "0") != 0;
  std::int32_t mask = OptionMask(field);
  bool set = (mask & kInvertedWatOptions) != 0 ? !on : on;
  if (set) {
    m_pRecord->PkWatOperations |= mask;
  } else {
    m_pRecord->PkWatOperations &= ~mask;
  }
}

std::string CMethodRecord::GetWatOpField(int field) const {
  if (field < kFirstWatOption || field > kLastWatOption) return "0";
  std::int32_t mask = OptionMask(field);
  bool set = (m_pRecord->PkWatOperations & mask) != 0;
  bool on = (mask & kInvertedWatOptions) != 0 ? !set : set;
  return on ? "1" : "0";
}

void CMethodRecord::SetThresholdField(const char* text, int field) {
  if (field < kFirstThreshOption || field > kLastThreshOption) return;
  bool on = text == nullptr || std::strcmp(text, "0") != 0;
  std::int32_t mask = OptionMask(field);
  if (on) {
    m_pRecord->PkThreshMethod |= mask;
  } else {
    m_pRecord->PkThreshMethod &= ~mask;
  }
}

std::string CMethodRecord::GetThresholdField(int field) const {
  if (field < kFirstThreshOption || field > kLastThreshOption) return "0";
  return (m_pRecord->PkThreshMethod & OptionMask(field)) != 0 ? "1" : "0";
}

}  // namespace kvdao
