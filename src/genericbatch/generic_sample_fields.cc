// Generic access to a sample's fields by their file key names, through the
// class-wide AllFields table.

#include <cstdlib>
#include <string_view>

#include "kvdao/genericbatch/generic_sample.h"
#include "kvdao/platform/text.h"

namespace kvdao {
namespace {

using Field = GenericSample::FieldInfo;
constexpr int I = Field::Integer;
constexpr int D = Field::Double;
constexpr int S = Field::String;

// The name matches `entry` as a numbered list key: the entry's name followed
// by a number 1 … max, without regard to case.
bool IsNumberedKey(std::string_view name, const Field& entry) {
  std::string_view prefix = entry.name;
  if (entry.maxCount == 0 || name.size() <= prefix.size()) return false;
  if (platform::CompareNoCase1252(name.substr(0, prefix.size()), prefix) != 0) return false;
  long number = 0;
  for (char c : name.substr(prefix.size())) {
    if (c < '0' || c > '9') return false;
    number = number * 10 + (c - '0');
    if (number > entry.maxCount) return false;
  }
  return number >= 1;
}

// Stores `value` into the list at `index` (-1: append while below the
// maximum; at or past the end: grow to index + 1).
template <typename T, typename ARG>
int StoreInList(Dim1Data<T, ARG>& list, int maxCount, int index, const T& value) {
  if (index < -1 || index >= maxCount) return 0;
  if (index == -1) {
    if (list.GetSize() >= maxCount) return 0;
    list.Add(value);
  } else {
    if (index >= list.GetSize()) list.SetSize(index + 1);
    list[index] = value;
  }
  return 1;
}

}  // namespace

std::array<GenericSample::FieldInfo, GenericSample::FieldCount> GenericSample::AllFields = {{
    {"Well", S, 0, "", nullptr},
    {"SampleID", S, 0, "", nullptr},
    {"SampleDescription", S, 0, "", nullptr},
    {"Conditions", S, 0, "", nullptr},
    {"SampleType", I, 0, "", nullptr},
    {"Control", I, 0, "", nullptr},
    {"MSDataName", S, 0, "", nullptr},
    {"MSInjectionVolume", D, 0, "", nullptr},
    {"SampleGroup", S, 0, "", nullptr},
    {"QuanRef", S, 0, "", nullptr},
    {"MethDB", S, 0, "", nullptr},
    {"Mass", D, MaxMasses, "NumberOfMasses", nullptr},
    {"Wavelength", D, MaxWaves, "NumberOfWaveLengths", nullptr},
    {"Conc", D, MaxConcs, "NumberOfConcs", nullptr},
    {"Formula", S, MaxFormulae, "NumberOfFormulae", nullptr},
    {"Fraction", S, MaxFractionTriggers, "NumberOfMassFractionTriggers", nullptr},
    {"PDA Fraction", S, MaxPDAFractionTriggers, "NumberOfPDAFractionTriggers", nullptr},
    {"Analog Fraction", S, MaxAnaFractionTriggers, "NumberOfAnalogFractionTriggers", nullptr},
    {"UVFraction", S, MaxUVFractionTriggers, "NumberOfUVFractionTriggers", nullptr},
    {"Factor", D, MaxFactors, "NumberOfFactors", nullptr},
    {"User", S, MaxUserFields, "NumberOfUserFields", nullptr},
    {"AutoAddition", S, 0, "", nullptr},
    {"Cartridge Location 1", S, 0, "", nullptr},
    {"Cartridge Location 2", S, 0, "", nullptr},
    {"SubjectText", S, 0, "", nullptr},
    {"SubjectTime", D, 0, "", nullptr},
    {"MSMethod", S, 0, "", nullptr},
    {"LCMethod", S, 0, "", nullptr},  // the inlet method
    {"MSTune", S, 0, "", nullptr},
    {"LCMethod", S, 0, "", nullptr},  // the autosampler method
    {"InletPreRunMethod", S, 0, "", nullptr},
    {"InletPostRunMethod", S, 0, "", nullptr},
    {"InletSwitchMethod", S, 0, "", nullptr},
    {"FractionMethod", S, 0, "", nullptr},
    {"ProcessParameters", S, 0, "", nullptr},
    {"PrepInjectionVolume", D, 0, "", nullptr},
    {"RetentionTimeOffset", D, 0, "", nullptr},
    {"SubjectSpecies", S, 0, "", nullptr},
    {"SubjectSex", S, 0, "", nullptr},
    {"Compound", S, MaxCompounds, "NumberOfCompounds", nullptr},
    {"Quality Reference", S, 0, "", nullptr},
    {"MITFile", S, 0, "", nullptr},
    {"Reinjections", S, 0, "", nullptr},
}};

void* GenericSample::FieldAddress(int index) {
  // In table order; list entries address the whole Dim1Data.
  void* const addresses[FieldCount] = {
      &m_location, &m_sampleID, &m_description, &m_conditions, &m_type, &m_controlType,
      &m_msDataName, &m_msInjectionVolume, &m_sampleGroup, &m_quanRef, &m_methDB, &m_masses,
      &m_wavelengths, &m_concentrations, &m_formulae, &m_fractionTriggers,
      &m_fractionPDATriggers, &m_fractionAnaTriggers, &m_fractionUVTriggers, &m_factors,
      &m_userFields, &m_autoAddition.text, &m_cartridgeLocation1.text,
      &m_cartridgeLocation2.text, &m_subjectText, &m_subjectTime, &m_msMethod, &m_inletMethod,
      &m_msTune, &m_asMethod, &m_inletPreRun, &m_inletPostRun, &m_inletSwitch, &m_fractionFile,
      &m_processParams, &m_prepInjectionVolume, &m_msRetentionTimeOffset, &m_subjectSpecies,
      &m_subjectSex, &m_compounds, &m_qualityReference, &m_mitFile, &m_reinjections};
  return index >= 0 && index < FieldCount ? addresses[index] : nullptr;
}

void GenericSample::SetFieldAddresses() {
  for (int i = 0; i < FieldCount; ++i) AllFields[static_cast<std::size_t>(i)].address = FieldAddress(i);
}

int GenericSample::IsValidField(const std::string& name) {
  for (int i = 0; i < FieldCount; ++i) {
    const Field& entry = AllFields[static_cast<std::size_t>(i)];
    if (platform::CompareNoCase1252(name, entry.name) == 0) return i;
    if (entry.maxCount == 0) continue;
    if (platform::CompareNoCase1252(name, entry.countName) == 0 || IsNumberedKey(name, entry)) {
      return i;
    }
  }
  return -1;
}

int GenericSample::SetField(const std::string& name, double& value, int index) {
  int i = IsValidField(name);
  if (i < 0) return 0;
  const Field& entry = AllFields[static_cast<std::size_t>(i)];
  void* address = FieldAddress(i);
  if (entry.type == Field::String) return 0;
  if (entry.maxCount > 0) {
    return StoreInList(*static_cast<DoubleArray*>(address), entry.maxCount, index, value);
  }
  if (entry.type == Field::Integer) {
    // Saturated: a double outside int's range has no int value.
    int number = value >= 2147483647.0 ? 2147483647
                 : value > -2147483648.0 ? static_cast<int>(value)
                                         : -2147483647 - 1;
    *static_cast<SampleType*>(address) = static_cast<SampleType>(number);
  } else {
    *static_cast<double*>(address) = value;
  }
  return 1;
}

int GenericSample::SetField(const std::string& name, int& value, int index) {
  double number = value;
  return SetField(name, number, index);
}

int GenericSample::SetField(const std::string& name, std::string& value, int index) {
  int i = IsValidField(name);
  if (i < 0) return 0;
  const Field& entry = AllFields[static_cast<std::size_t>(i)];
  int result;
  if (entry.type == Field::Integer) {
    double number = static_cast<double>(std::strtol(value.c_str(), nullptr, 10));
    result = SetField(name, number, index);
  } else if (entry.type == Field::Double) {
    double number = std::strtod(value.c_str(), nullptr);
    result = SetField(name, number, index);
  } else if (entry.maxCount > 0) {
    result = StoreInList(*static_cast<StringArray*>(FieldAddress(i)), entry.maxCount, index, value);
  } else {
    *static_cast<std::string*>(FieldAddress(i)) = value;
    result = 1;
  }
  if (name == SampleIDEntry && !value.empty()) m_isSampleIDUpdated = true;
  return result;
}

int GenericSample::SampleFields(std::vector<std::string>& names, int withCounts) {
  names.clear();
  for (const Field& entry : AllFields) {
    if (entry.maxCount == 0) {
      names.emplace_back(entry.name);
      continue;
    }
    for (int n = 1; n <= entry.maxCount; ++n) names.push_back(entry.name + std::to_string(n));
    if (withCounts != 0) names.emplace_back(entry.countName);
  }
  return static_cast<int>(names.size());
}

}  // namespace kvdao
