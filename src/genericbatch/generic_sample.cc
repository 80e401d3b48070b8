#include "kvdao/genericbatch/generic_sample.h"

#include <cstdlib>

#include "kvdao/platform/text.h"

namespace kvdao {

const std::string GenericSample::LocationEntry = "Well";
const std::string GenericSample::ReinjectionsEntry = "Reinjections";
const std::string GenericSample::SampleIDEntry = "SampleID";
const std::string GenericSample::DescriptionEntry = "SampleDescription";
const std::string GenericSample::ConditionsEntry = "Conditions";
const std::string GenericSample::TypeEntry = "SampleType";
const std::string GenericSample::ControlTypeEntry = "Control";
const std::string GenericSample::MSDataNameEntry = "MSDataName";
const std::string GenericSample::MSInjVolume = "MSInjectionVolume";
const std::string GenericSample::QualityReferenceEntry = "Quality Reference";
const std::string GenericSample::SampleGroupEntry = "SampleGroup";
const std::string GenericSample::QuanRefEntry = "QuanRef";
const std::string GenericSample::MethDBEntry = "MethDB";
const std::string GenericSample::SubjectTextEntry = "SubjectText";
const std::string GenericSample::SubjectTimeEntry = "SubjectTime";
const std::string GenericSample::SubjectSexEntry = "SubjectSex";
const std::string GenericSample::SubjectSpeciesEntry = "SubjectSpecies";
const std::string GenericSample::MSMethodEntry = "MSMethod";
const std::string GenericSample::InletMethodEntry = "LCMethod";
const std::string GenericSample::MSTuneEntry = "MSTune";
const std::string GenericSample::ASMethodEntry = "LCMethod";
const std::string GenericSample::InletPreRunEntry = "InletPreRunMethod";
const std::string GenericSample::InletPostRunEntry = "InletPostRunMethod";
const std::string GenericSample::InletSwitchEntry = "InletSwitchMethod";
const std::string GenericSample::FractionFileEntry = "FractionMethod";
const std::string GenericSample::ProcessParamsEntry = "ProcessParameters";
const std::string GenericSample::PrepInjectionVolumeEntry = "PrepInjectionVolume";
const std::string GenericSample::MITFileEntry = "MITFile";
const std::string GenericSample::AutoAdditionEntry = "AutoAddition";
const std::string GenericSample::CartridgeLocation1Entry = "Cartridge Location 1";
const std::string GenericSample::CartridgeLocation2Entry = "Cartridge Location 2";
const std::string GenericSample::RetentionTimeOffsetEntry = "RetentionTimeOffset";
const std::string GenericSample::MassPrefix = "Mass";
const std::string GenericSample::CompoundPrefix = "Compound";
const std::string GenericSample::FractionTriggerPrefix = "Fraction";
const std::string GenericSample::FractionPDATriggerPrefix = "PDA Fraction";
const std::string GenericSample::FractionAnaTriggerPrefix = "Analog Fraction";
const std::string GenericSample::FractionUVTriggerPrefix = "UVFraction";
const std::string GenericSample::WavePrefix = "Wavelength";
const std::string GenericSample::ConcPrefix = "Conc";
const std::string GenericSample::FormulaPrefix = "Formula";
const std::string GenericSample::FactorPrefix = "Factor";
const std::string GenericSample::UserFieldPrefix = "User";
const std::string GenericSample::MassesCountEntry = "NumberOfMasses";
const std::string GenericSample::CompoundCountEntry = "NumberOfCompounds";
const std::string GenericSample::FractionTriggersCountEntry = "NumberOfMassFractionTriggers";
const std::string GenericSample::FractionPDATriggersCountEntry = "NumberOfPDAFractionTriggers";
const std::string GenericSample::FractionAnaTriggersCountEntry = "NumberOfAnalogFractionTriggers";
const std::string GenericSample::FractionUVTriggersCountEntry = "NumberOfUVFractionTriggers";
const std::string GenericSample::WavesCountEntry = "NumberOfWaveLengths";
const std::string GenericSample::ConcsCountEntry = "NumberOfConcs";
const std::string GenericSample::FormulaeCountEntry = "NumberOfFormulae";
const std::string GenericSample::FactorsCountEntry = "NumberOfFactors";
const std::string GenericSample::UserFieldCountEntry = "NumberOfUserFields";
const std::string GenericSample::MassFormat = "%.4f";
const std::string GenericSample::WaveFormat = "%.1f";
const std::string GenericSample::ConcFormat = "%.3f";
const std::string GenericSample::FactorFormat = "%.4f";
const std::string GenericSample::CountedEntryFormat = "%s%d";
const std::string GenericSample::SectionFormat = "%s%s%d%s%d";
const std::string GenericSample::SectionPrefix = "Sample";

namespace {

bool InRange(int index, int count) { return index >= 0 && index < count; }

template <typename T, typename ARG>
int AppendBelow(Dim1Data<T, ARG>& list, const T& value, int limit) {
  if (list.GetSize() >= limit) return 0;
  list.Add(value);
  return 1;
}

template <typename T, typename ARG>
int RemoveChecked(Dim1Data<T, ARG>& list, int index) {
  if (!InRange(index, list.GetSize())) return 0;
  list.RemoveAt(index);
  return 1;
}

template <typename T, typename ARG>
int SetChecked(Dim1Data<T, ARG>& list, int index, const T& value) {
  if (!InRange(index, list.GetSize())) return 0;
  list[index] = value;
  return 1;
}

template <typename T, typename ARG>
int GetChecked(const Dim1Data<T, ARG>& list, int index, T& value) {
  if (!InRange(index, list.GetSize())) return 0;
  value = list[index];
  return 1;
}

template <typename T, typename ARG>
int Resize(Dim1Data<T, ARG>& list, int count) {
  list.SetSize(count);
  return 1;
}

std::string ElementOrEmpty(const StringArray& list, int index) {
  return InRange(index, list.GetSize()) ? list[index] : std::string();
}

}  // namespace

bool GenericSample::operator==(const GenericSample& other) const {
  return platform::CompareNoCase1252(m_sampleID, other.m_sampleID) == 0;
}

int GenericSample::Masses(const DoubleArray& list) { m_masses = list; return 1; }
int GenericSample::FormulaMasses(const StringArray& list) { m_formulaMasses = list; return 1; }
int GenericSample::Compounds(const StringArray& list) { m_compounds = list; return 1; }
int GenericSample::FractionTriggers(const StringArray& list) { m_fractionTriggers = list; return 1; }
int GenericSample::FractionPDATriggers(const StringArray& list) {
  m_fractionPDATriggers = list;
  return 1;
}
int GenericSample::FractionAnaTriggers(const StringArray& list) {
  m_fractionAnaTriggers = list;
  return 1;
}
int GenericSample::FractionUVTriggers(const StringArray& list) {
  m_fractionUVTriggers = list;
  return 1;
}
int GenericSample::Wavelengths(const DoubleArray& list) { m_wavelengths = list; return 1; }
int GenericSample::Concentrations(const DoubleArray& list) { m_concentrations = list; return 1; }
int GenericSample::Formulae(const StringArray& list) { m_formulae = list; return 1; }
int GenericSample::Factors(const DoubleArray& list) { m_factors = list; return 1; }
int GenericSample::UserFields(const StringArray& list) { m_userFields = list; return 1; }

int GenericSample::NumMasses(int count) { return Resize(m_masses, count); }
int GenericSample::NumCompounds(int count) { return Resize(m_compounds, count); }
int GenericSample::NumFractionTriggers(int count) { return Resize(m_fractionTriggers, count); }
int GenericSample::NumWavelengths(int count) { return Resize(m_wavelengths, count); }
int GenericSample::NumConcentrations(int count) { return Resize(m_concentrations, count); }
int GenericSample::NumFormulae(int count) { return Resize(m_formulae, count); }
int GenericSample::NumFactors(int count) { return Resize(m_factors, count); }
int GenericSample::NumUserField(int count) { return Resize(m_userFields, count); }

int GenericSample::AddMass(double mass) {
  AppendBelow(m_masses, mass, MaxMasses);
  AppendBelow(m_formulaMasses, platform::Format("%.3f", mass), MaxMasses);
  return 0;
}

int GenericSample::AddMass(const std::string& mass) {
  int text = AppendBelow(m_formulaMasses, mass, MaxMasses);
  int number = AppendBelow(m_masses, std::strtod(mass.c_str(), nullptr), MaxMasses);
  return text != 0 && number != 0 ? 1 : 0;
}

int GenericSample::RemoveMass(int index) { return RemoveChecked(m_masses, index); }
int GenericSample::RemoveFormulaMass(int index) { return RemoveChecked(m_formulaMasses, index); }
int GenericSample::SetMass(int index, double mass) { return SetChecked(m_masses, index, mass); }
int GenericSample::SetFormulaMass(int index, const std::string& mass) {
  return SetChecked(m_formulaMasses, index, mass);
}
int GenericSample::GetMass(int index, double& mass) const {
  return GetChecked(m_masses, index, mass);
}

int GenericSample::AddWavelength(double v) { return AppendBelow(m_wavelengths, v, MaxWaves); }
int GenericSample::RemoveWavelength(int index) { return RemoveChecked(m_wavelengths, index); }
int GenericSample::SetWavelength(int index, double v) { return SetChecked(m_wavelengths, index, v); }
int GenericSample::GetWavelength(int index, double& v) const {
  return GetChecked(m_wavelengths, index, v);
}
int GenericSample::AddConcentration(double v) {
  return AppendBelow(m_concentrations, v, MaxConcs);
}
int GenericSample::RemoveConcentration(int index) { return RemoveChecked(m_concentrations, index); }
int GenericSample::SetConcentration(int index, double v) {
  return SetChecked(m_concentrations, index, v);
}
int GenericSample::GetConcentration(int index, double& v) const {
  return GetChecked(m_concentrations, index, v);
}
int GenericSample::AddFactor(double v) { return AppendBelow(m_factors, v, MaxFactors); }
int GenericSample::RemoveFactor(int index) { return RemoveChecked(m_factors, index); }
int GenericSample::SetFactor(int index, double v) { return SetChecked(m_factors, index, v); }
int GenericSample::GetFactor(int index, double& v) const { return GetChecked(m_factors, index, v); }

int GenericSample::AddFormula(const std::string& f) { return AppendBelow(m_formulae, f, MaxFormulae); }
int GenericSample::RemoveFormula(int index) { return RemoveChecked(m_formulae, index); }
int GenericSample::SetFormula(int index, const std::string& f) {
  return SetChecked(m_formulae, index, f);
}
int GenericSample::GetFormula(int index, std::string& f) const {
  return GetChecked(m_formulae, index, f);
}

int GenericSample::AddUserField(const std::string& field) {
  m_userFields.Add(field);
  return 1;
}
int GenericSample::RemoveUserField(int index) { return RemoveChecked(m_userFields, index); }
int GenericSample::SetUserField(int index, const std::string& field) {
  return SetChecked(m_userFields, index, field);
}
int GenericSample::GetUserField(int index, std::string& field) const {
  return GetChecked(m_userFields, index, field);
}

int GenericSample::AddFractionTrigger(const std::string& trigger) {
  m_fractionTriggers.Add(trigger);
  return 1;
}

int GenericSample::RemoveFractionTrigger(int index) {
  if (index < 0 || index > m_fractionTriggers.GetSize()) return 0;
  m_fractionTriggers.RemoveAt(index);  // an index equal to the count removes nothing
  return 1;
}

std::string GenericSample::GetFractionTrigger(int index) const {
  return ElementOrEmpty(m_fractionTriggers, index);
}
std::string GenericSample::GetFractionPDATrigger(int index) const {
  return ElementOrEmpty(m_fractionPDATriggers, index);
}
std::string GenericSample::GetFractionAnaTrigger(int index) const {
  return ElementOrEmpty(m_fractionAnaTriggers, index);
}
std::string GenericSample::GetFractionUVTrigger(int index) const {
  return ElementOrEmpty(m_fractionUVTriggers, index);
}

int GenericSample::AddFormulaTrigger(const std::string& name, const std::string& value) {
  std::string trigger = "Formula-" + value;
  return SetField(name, trigger, -1);
}
int GenericSample::AddMixedTrigger(const std::string& name, const std::string& value) {
  std::string trigger = "Trigger-" + value;
  return SetField(name, trigger, -1);
}
int GenericSample::AddDummyTrigger(const std::string& name, const std::string& value) {
  std::string trigger = "Dummy-" + value;
  return SetField(name, trigger, -1);
}

bool GenericSample::GetMassFromFormula(const std::string&, std::string&) const { return true; }

}  // namespace kvdao
