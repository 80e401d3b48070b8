// Reading a sample's section of a generic batch file.

#include <algorithm>

#include "kvdao/genericbatch/generic_file.h"
#include "kvdao/genericbatch/generic_sample.h"
#include "kvdao/platform/text.h"

namespace kvdao {
namespace {

// Reads a list count. A negative count fails. A count beyond the list's
// maximum is believed only as far as the section has keys: entries past
// that many cannot all be in the file, and a file claiming two billion
// masses must not make us allocate them.
bool ReadCount(int& count, int maxCount, const std::string& file, const std::string& section,
               const std::string& key) {
  ReadGenericInteger(count, file, section, key);
  if (count < 0) return false;
  if (count > maxCount) count = std::min(count, CountGenericKeys(file, section));
  return true;
}

std::string Numbered(const std::string& prefix, int number) {
  return prefix + std::to_string(number);
}

template <typename ARG>
void ReadTexts(Dim1Data<std::string, ARG>& list, int first, const std::string& prefix,
               const std::string& file, const std::string& section) {
  for (int i = 0; i < list.GetSize(); ++i) {
    ReadGenericString(list[i], file, section, Numbered(prefix, first + i));
  }
}

template <typename ARG>
void ReadNumbers(Dim1Data<double, ARG>& list, const std::string& prefix, const std::string& file,
                 const std::string& section) {
  for (int i = 0; i < list.GetSize(); ++i) {
    ReadGenericDouble(list[i], file, section, Numbered(prefix, i + 1));
  }
}

bool ReadTextList(StringArray& list, int maxCount, const std::string& countKey,
                  const std::string& prefix, const std::string& file,
                  const std::string& section) {
  int count;
  if (!ReadCount(count, maxCount, file, section, countKey)) return false;
  list.SetSize(count);
  ReadTexts(list, 1, prefix, file, section);
  return true;
}

bool ReadNumberList(DoubleArray& list, int maxCount, const std::string& countKey,
                    const std::string& prefix, const std::string& file,
                    const std::string& section) {
  int count;
  if (!ReadCount(count, maxCount, file, section, countKey)) return false;
  list.SetSize(count);
  ReadNumbers(list, prefix, file, section);
  return true;
}

}  // namespace

int GenericSample::SampleSectFormat(std::string& section, int plate, int sample,
                                    const std::string& sep) const {
  section.clear();
  if (plate < 0 || sample < 0) return 0;
  section = m_sectionPrefix + sep + std::to_string(plate) + sep + std::to_string(sample);
  return 1;
}

int GenericSample::ReadLists(const std::string& file, const std::string& section) {
  // Masses: the numbers, then the same keys again as entered (number or
  // formula).
  if (!ReadNumberList(m_masses, MaxMasses, MassesCountEntry, MassPrefix, file, section)) return 0;
  m_formulaMasses.SetSize(m_masses.GetSize());
  ReadTexts(m_formulaMasses, 1, MassPrefix, file, section);
  if (!ReadTextList(m_compounds, MaxCompounds, CompoundCountEntry, CompoundPrefix, file,
                    section)) {
    return 0;
  }
  // The four trigger lists share one numbering of "Fraction" keys.
  struct TriggerList {
    StringArray& list;
    int maxCount;
    const std::string& countKey;
  };
  TriggerList triggers[] = {
      {m_fractionTriggers, MaxFractionTriggers, FractionTriggersCountEntry},
      {m_fractionPDATriggers, MaxPDAFractionTriggers, FractionPDATriggersCountEntry},
      {m_fractionAnaTriggers, MaxAnaFractionTriggers, FractionAnaTriggersCountEntry},
      {m_fractionUVTriggers, MaxUVFractionTriggers, FractionUVTriggersCountEntry}};
  int next = 1;
  for (TriggerList& trigger : triggers) {
    int count;
    if (!ReadCount(count, trigger.maxCount, file, section, trigger.countKey)) return 0;
    trigger.list.SetSize(count);
    ReadTexts(trigger.list, next, FractionTriggerPrefix, file, section);
    next += count;
  }
  return ReadNumberList(m_wavelengths, MaxWaves, WavesCountEntry, WavePrefix, file, section) &&
         ReadNumberList(m_concentrations, MaxConcs, ConcsCountEntry, ConcPrefix, file,
                        section) &&
         ReadTextList(m_formulae, MaxFormulae, FormulaeCountEntry, FormulaPrefix, file,
                      section) &&
         ReadNumberList(m_factors, MaxFactors, FactorsCountEntry, FactorPrefix, file, section) &&
         ReadTextList(m_userFields, MaxUserFields, UserFieldCountEntry, UserFieldPrefix, file,
                      section);
}

int GenericSample::Read(const std::string& file, int plate, int sample, const std::string& sep) {
  std::string section;
  if (SampleSectFormat(section, plate, sample, sep) == 0) return 0;
  if (ReadLists(file, section) == 0) return 0;
  ReadGenericString(m_location, file, section, LocationEntry);
  if (m_location.empty()) return 0;  // a section without a well is no sample

  ReadGenericString(m_reinjections, file, section, ReinjectionsEntry);
  ReadGenericString(m_description, file, section, DescriptionEntry);
  ReadGenericString(m_conditions, file, section, ConditionsEntry);
  ReadGenericString(m_sampleID, file, section, SampleIDEntry);
  ReadGenericString(m_msDataName, file, section, MSDataNameEntry);
  int code;
  ReadGenericInteger(code, file, section, TypeEntry);
  m_type = static_cast<SampleType>(code >= FirstType && code <= LastSampleType ? code : 0);
  ReadGenericInteger(code, file, section, ControlTypeEntry);
  m_controlType = static_cast<SampleType>(code >= FirstType && code <= LastControlType ? code : 0);
  ReadGenericString(m_qualityReference, file, section, QualityReferenceEntry);
  ReadGenericDouble(m_msInjectionVolume, file, section, MSInjVolume);
  ReadGenericString(m_sampleGroup, file, section, SampleGroupEntry);
  ReadGenericString(m_quanRef, file, section, QuanRefEntry);
  ReadGenericString(m_methDB, file, section, MethDBEntry);
  // Read and dropped: these three change only through SetField.
  std::string discarded;
  ReadGenericString(discarded, file, section, AutoAdditionEntry);
  ReadGenericString(discarded, file, section, CartridgeLocation1Entry);
  ReadGenericString(discarded, file, section, CartridgeLocation2Entry);
  ReadGenericString(m_subjectText, file, section, SubjectTextEntry);
  ReadGenericDouble(m_subjectTime, file, section, SubjectTimeEntry);
  ReadGenericString(m_subjectSex, file, section, SubjectSexEntry);
  ReadGenericString(m_subjectSpecies, file, section, SubjectSpeciesEntry);
  ReadGenericDouble(m_msRetentionTimeOffset, file, section, RetentionTimeOffsetEntry);
  ReadGenericString(m_msMethod, file, section, MSMethodEntry);
  ReadGenericString(m_inletMethod, file, section, InletMethodEntry);
  ReadGenericString(m_msTune, file, section, MSTuneEntry);
  // The same key again: a file holds one method for inlet and autosampler.
  ReadGenericString(m_asMethod, file, section, ASMethodEntry);
  ReadGenericString(m_inletPreRun, file, section, InletPreRunEntry);
  ReadGenericString(m_inletPostRun, file, section, InletPostRunEntry);
  ReadGenericString(m_inletSwitch, file, section, InletSwitchEntry);
  ReadGenericString(m_fractionFile, file, section, FractionFileEntry);
  ReadGenericString(m_processParams, file, section, ProcessParamsEntry);
  ReadGenericDouble(m_prepInjectionVolume, file, section, PrepInjectionVolumeEntry);
  ReadGenericString(m_mitFile, file, section, MITFileEntry);
  return 1;
}

}  // namespace kvdao
