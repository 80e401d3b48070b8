#pragma once

// GenericSample: one sample of a generic batch (one well of a plate, or one
// compound entry): its identity, acquisition methods and bounded lists
// (target masses, fraction-collection triggers, wavelengths, concentrations,
// formulae, factors, user fields). It reads and writes itself as one
// "[Prefix:plate:sample]" section of a generic batch file, and gives generic
// access to every field by its file key through the `AllFields` table.
//
// Promises:
//  - accessors: `X()` reads a field, `X(value)` stores and returns it. The
//    setters of AutoAddition and the two cartridge locations store nothing
//    (those fields change only through SetField);
//  - copying (construction or assignment) copies every field except
//    AutoAddition and the cartridge locations: a copy starts with them
//    empty, an assignment keeps the target's. Moving carries every field;
//  - results are 1 (success) or 0; nothing throws for bad input and no
//    message is shown;
//  - writing is not const: the mass and wavelength writers rewrite some
//    trigger texts of the sample (see docs/generic-batch.md);
//  - reading never allocates more list elements than the section has keys,
//    whatever count a file claims.

#include <array>
#include <string>
#include <vector>

#include "kvdao/genericbatch/dim1_data.h"
#include "kvdao/platform/stdio_file.h"

namespace kvdao {

using DoubleArray = Dim1Data<double, double&>;
using StringArray = Dim1Data<std::string, std::string&>;

class GenericSample {
 public:
  // Sample and control type codes. The front end gives them their meaning;
  // files only bound them: sample types 0 … 3, control types 0 … 4.
  enum SampleType : int { FirstType = 0, LastSampleType = 3, LastControlType = 4 };

  // One entry of the generic field table.
  struct FieldInfo {
    enum Type : int { Integer = 1, Double = 2, String = 3 };
    const char* name;
    int type;
    int maxCount;           // 0 for a scalar
    const char* countName;  // "" for a scalar
    // The field in the sample that last called SetFieldAddresses(); null
    // before any did.
    void* address;
  };
  static constexpr int FieldCount = 43;
  // The generic field table, in table order. Generic access (SetField,
  // IsValidField, SampleFields) does not depend on the addresses, so
  // samples used on different threads do not disturb each other.
  static std::array<FieldInfo, FieldCount> AllFields;

  // List maxima.
  static constexpr int MaxMasses = 30;
  static constexpr int MaxCompounds = 1;
  static constexpr int MaxFractionTriggers = 10;
  static constexpr int MaxPDAFractionTriggers = 10;
  static constexpr int MaxAnaFractionTriggers = 4;
  static constexpr int MaxUVFractionTriggers = 4;
  static constexpr int MaxWaves = 10;
  static constexpr int MaxConcs = 10;
  static constexpr int MaxFormulae = 10;
  static constexpr int MaxFactors = 1;
  static constexpr int MaxUserFields = 5;

  // Keys of the sample section.
  static const std::string LocationEntry;             // "Well"
  static const std::string ReinjectionsEntry;         // "Reinjections"
  static const std::string SampleIDEntry;             // "SampleID"
  static const std::string DescriptionEntry;          // "SampleDescription"
  static const std::string ConditionsEntry;           // "Conditions"
  static const std::string TypeEntry;                 // "SampleType"
  static const std::string ControlTypeEntry;          // "Control"
  static const std::string MSDataNameEntry;           // "MSDataName"
  static const std::string MSInjVolume;               // "MSInjectionVolume"
  static const std::string QualityReferenceEntry;     // "Quality Reference"
  static const std::string SampleGroupEntry;          // "SampleGroup"
  static const std::string QuanRefEntry;              // "QuanRef"
  static const std::string MethDBEntry;               // "MethDB"
  static const std::string SubjectTextEntry;          // "SubjectText"
  static const std::string SubjectTimeEntry;          // "SubjectTime"
  static const std::string SubjectSexEntry;           // "SubjectSex"
  static const std::string SubjectSpeciesEntry;       // "SubjectSpecies"
  static const std::string MSMethodEntry;             // "MSMethod"
  static const std::string InletMethodEntry;          // "LCMethod"
  static const std::string MSTuneEntry;               // "MSTune"
  static const std::string ASMethodEntry;             // "LCMethod"
  static const std::string InletPreRunEntry;          // "InletPreRunMethod"
  static const std::string InletPostRunEntry;         // "InletPostRunMethod"
  static const std::string InletSwitchEntry;          // "InletSwitchMethod"
  static const std::string FractionFileEntry;         // "FractionMethod"
  static const std::string ProcessParamsEntry;        // "ProcessParameters"
  static const std::string PrepInjectionVolumeEntry;  // "PrepInjectionVolume"
  static const std::string MITFileEntry;              // "MITFile"
  static const std::string AutoAdditionEntry;         // "AutoAddition"
  static const std::string CartridgeLocation1Entry;   // "Cartridge Location 1"
  static const std::string CartridgeLocation2Entry;   // "Cartridge Location 2"
  static const std::string RetentionTimeOffsetEntry;  // "RetentionTimeOffset"
  // List key prefixes (numbered from 1 with CountedEntryFormat).
  static const std::string MassPrefix;                // "Mass"
  static const std::string CompoundPrefix;            // "Compound"
  static const std::string FractionTriggerPrefix;     // "Fraction"
  static const std::string FractionPDATriggerPrefix;  // "PDA Fraction"
  static const std::string FractionAnaTriggerPrefix;  // "Analog Fraction"
  static const std::string FractionUVTriggerPrefix;   // "UVFraction"
  static const std::string WavePrefix;                // "Wavelength"
  static const std::string ConcPrefix;                // "Conc"
  static const std::string FormulaPrefix;             // "Formula"
  static const std::string FactorPrefix;              // "Factor"
  static const std::string UserFieldPrefix;           // "User"
  // List count keys.
  static const std::string MassesCountEntry;               // "NumberOfMasses"
  static const std::string CompoundCountEntry;             // "NumberOfCompounds"
  static const std::string FractionTriggersCountEntry;     // "NumberOfMassFractionTriggers"
  static const std::string FractionPDATriggersCountEntry;  // "NumberOfPDAFractionTriggers"
  static const std::string FractionAnaTriggersCountEntry;  // "NumberOfAnalogFractionTriggers"
  static const std::string FractionUVTriggersCountEntry;   // "NumberOfUVFractionTriggers"
  static const std::string WavesCountEntry;                // "NumberOfWaveLengths"
  static const std::string ConcsCountEntry;                // "NumberOfConcs"
  static const std::string FormulaeCountEntry;             // "NumberOfFormulae"
  static const std::string FactorsCountEntry;              // "NumberOfFactors"
  static const std::string UserFieldCountEntry;            // "NumberOfUserFields"
  // Number formats and section naming.
  static const std::string MassFormat;          // "%.4f"
  static const std::string WaveFormat;          // "%.1f"
  static const std::string ConcFormat;          // "%.3f"
  static const std::string FactorFormat;        // "%.4f"
  static const std::string CountedEntryFormat;  // "%s%d"
  static const std::string SectionFormat;       // "%s%s%d%s%d"
  static const std::string SectionPrefix;       // "Sample"

  GenericSample() = default;
  GenericSample(const GenericSample& other) = default;
  GenericSample(GenericSample&& other) noexcept = default;
  GenericSample& operator=(const GenericSample& other) = default;
  GenericSample& operator=(GenericSample&& other) noexcept = default;
  ~GenericSample() = default;

  // Equal when the SampleIDs are equal without regard to case.
  bool operator==(const GenericSample& other) const;
  bool operator!=(const GenericSample& other) const { return !(*this == other); }

  // --- Scalar fields ---
  // Stores although const: the index is bookkeeping of the caller's, not
  // part of the sample's value.
  int MultiMethodSampleIndex(int index) const { return m_multiMethodSampleIndex = index; }
  int MultiMethodSampleIndex() const noexcept { return m_multiMethodSampleIndex; }

  const std::string& Location(const std::string& v) { return m_location = v; }
  const std::string& Location() const noexcept { return m_location; }
  const std::string& Reinjections(const std::string& v) { return m_reinjections = v; }
  const std::string& Reinjections() const noexcept { return m_reinjections; }
  const std::string& SampleID(const std::string& v) { return m_sampleID = v; }
  const std::string& SampleID() const noexcept { return m_sampleID; }
  const std::string& GetSampleName() const noexcept { return m_sampleID; }
  const std::string& Description(const std::string& v) { return m_description = v; }
  const std::string& Description() const noexcept { return m_description; }
  const std::string& Conditions(const std::string& v) { return m_conditions = v; }
  const std::string& Conditions() const noexcept { return m_conditions; }
  const std::string& MSDataName(const std::string& v) { return m_msDataName = v; }
  const std::string& MSDataName() const noexcept { return m_msDataName; }
  // These three store nothing and return the current value.
  const std::string& AutoAddition(const std::string&) const noexcept { return m_autoAddition.text; }
  const std::string& AutoAddition() const noexcept { return m_autoAddition.text; }
  const std::string& CartridgeLocation1(const std::string&) const noexcept {
    return m_cartridgeLocation1.text;
  }
  const std::string& CartridgeLocation1() const noexcept { return m_cartridgeLocation1.text; }
  const std::string& CartridgeLocation2(const std::string&) const noexcept {
    return m_cartridgeLocation2.text;
  }
  const std::string& CartridgeLocation2() const noexcept { return m_cartridgeLocation2.text; }
  const std::string& QualityReference(const std::string& v) { return m_qualityReference = v; }
  const std::string& QualityReference() const noexcept { return m_qualityReference; }
  double MSInjectionVolume(double v) noexcept { return m_msInjectionVolume = v; }
  double MSInjectionVolume() const noexcept { return m_msInjectionVolume; }
  double MSRetentionTimeOffset(double v) noexcept { return m_msRetentionTimeOffset = v; }
  double MSRetentionTimeOffset() const noexcept { return m_msRetentionTimeOffset; }
  SampleType Type(SampleType v) noexcept { return m_type = v; }
  SampleType Type() const noexcept { return m_type; }
  SampleType ControlType(SampleType v) noexcept { return m_controlType = v; }
  SampleType ControlType() const noexcept { return m_controlType; }
  void SetSectionPrefix(const std::string& prefix) { m_sectionPrefix = prefix; }
  const std::string& GetSectionPrefix() const noexcept { return m_sectionPrefix; }
  const std::string& SampleGroup(const std::string& v) { return m_sampleGroup = v; }
  const std::string& SampleGroup() const noexcept { return m_sampleGroup; }
  const std::string& QuanRef(const std::string& v) { return m_quanRef = v; }
  const std::string& QuanRef() const noexcept { return m_quanRef; }
  const std::string& MethDB(const std::string& v) { return m_methDB = v; }
  const std::string& MethDB() const noexcept { return m_methDB; }
  const std::string& SubjectText(const std::string& v) { return m_subjectText = v; }
  const std::string& SubjectText() const noexcept { return m_subjectText; }
  double SubjectTime(double v) noexcept { return m_subjectTime = v; }
  double SubjectTime() const noexcept { return m_subjectTime; }
  const std::string& SubjectSex(const std::string& v) { return m_subjectSex = v; }
  const std::string& SubjectSex() const noexcept { return m_subjectSex; }
  const std::string& SubjectSpecies(const std::string& v) { return m_subjectSpecies = v; }
  const std::string& SubjectSpecies() const noexcept { return m_subjectSpecies; }
  const std::string& MSMethod(const std::string& v) { return m_msMethod = v; }
  const std::string& MSMethod() const noexcept { return m_msMethod; }
  const std::string& InletMethod(const std::string& v) { return m_inletMethod = v; }
  const std::string& InletMethod() const noexcept { return m_inletMethod; }
  const std::string& MSTune(const std::string& v) { return m_msTune = v; }
  const std::string& MSTune() const noexcept { return m_msTune; }
  const std::string& ASMethod(const std::string& v) { return m_asMethod = v; }
  const std::string& ASMethod() const noexcept { return m_asMethod; }
  const std::string& InletPreRun(const std::string& v) { return m_inletPreRun = v; }
  const std::string& InletPreRun() const noexcept { return m_inletPreRun; }
  const std::string& InletPostRun(const std::string& v) { return m_inletPostRun = v; }
  const std::string& InletPostRun() const noexcept { return m_inletPostRun; }
  const std::string& InletSwitch(const std::string& v) { return m_inletSwitch = v; }
  const std::string& InletSwitch() const noexcept { return m_inletSwitch; }
  const std::string& FractionFile(const std::string& v) { return m_fractionFile = v; }
  const std::string& FractionFile() const noexcept { return m_fractionFile; }
  const std::string& ProcessParams(const std::string& v) { return m_processParams = v; }
  const std::string& ProcessParams() const noexcept { return m_processParams; }
  const std::string& MITFile(const std::string& v) { return m_mitFile = v; }
  const std::string& MITFile() const noexcept { return m_mitFile; }
  bool IsSampleIDUpdated(bool v) noexcept { return m_isSampleIDUpdated = v; }
  bool IsSampleIDUpdated() const noexcept { return m_isSampleIDUpdated; }
  double PrepInjectionVolume(double v) noexcept { return m_prepInjectionVolume = v; }
  double PrepInjectionVolume() const noexcept { return m_prepInjectionVolume; }

  // --- Whole lists: replace (no limit check, result 1) or read ---
  int Masses(const DoubleArray& list);
  const DoubleArray& Masses() const noexcept { return m_masses; }
  int FormulaMasses(const StringArray& list);
  const StringArray& FormulaMasses() const noexcept { return m_formulaMasses; }
  int Compounds(const StringArray& list);
  const StringArray& Compounds() const noexcept { return m_compounds; }
  int FractionTriggers(const StringArray& list);
  const StringArray& FractionTriggers() const noexcept { return m_fractionTriggers; }
  int FractionPDATriggers(const StringArray& list);
  const StringArray& FractionPDATriggers() const noexcept { return m_fractionPDATriggers; }
  int FractionAnaTriggers(const StringArray& list);
  const StringArray& FractionAnaTriggers() const noexcept { return m_fractionAnaTriggers; }
  int FractionUVTriggers(const StringArray& list);
  const StringArray& FractionUVTriggers() const noexcept { return m_fractionUVTriggers; }
  int Wavelengths(const DoubleArray& list);
  const DoubleArray& Wavelengths() const noexcept { return m_wavelengths; }
  int Concentrations(const DoubleArray& list);
  const DoubleArray& Concentrations() const noexcept { return m_concentrations; }
  int Formulae(const StringArray& list);
  const StringArray& Formulae() const noexcept { return m_formulae; }
  int Factors(const DoubleArray& list);
  const DoubleArray& Factors() const noexcept { return m_factors; }
  int UserFields(const StringArray& list);
  const StringArray& UserFields() const noexcept { return m_userFields; }

  // --- Counts: the resize forms add zeros or empty texts, result 1 ---
  int NumMasses(int count);
  int NumMasses() const noexcept { return m_masses.GetSize(); }
  int NumCompounds(int count);
  int NumCompounds() const noexcept { return m_compounds.GetSize(); }
  int NumFractionTriggers(int count);
  int NumFractionTriggers() const noexcept { return m_fractionTriggers.GetSize(); }
  int NumFractionPDATriggers() const noexcept { return m_fractionPDATriggers.GetSize(); }
  int NumFractionAnaTriggers() const noexcept { return m_fractionAnaTriggers.GetSize(); }
  int NumFractionUVTriggers() const noexcept { return m_fractionUVTriggers.GetSize(); }
  int NumWavelengths(int count);
  int NumWavelengths() const noexcept { return m_wavelengths.GetSize(); }
  int NumConcentrations(int count);
  int NumConcentrations() const noexcept { return m_concentrations.GetSize(); }
  int NumFormulae(int count);
  int NumFormulae() const noexcept { return m_formulae.GetSize(); }
  int NumFactors(int count);
  int NumFactors() const noexcept { return m_factors.GetSize(); }
  int NumUserField(int count);
  int NumUserField() const noexcept { return m_userFields.GetSize(); }

  // --- Element operations (index-checked unless said otherwise) ---
  // Appends the value to the masses and its "%.3f" text to the formula
  // masses, each while below 30. The result is always 0, appended or not.
  int AddMass(double mass);
  int AddDoubleMass(double mass) { return AddMass(mass); }
  // Appends the text to the formula masses and its numeric value (0 for a
  // formula) to the masses, each while below 30; 1 only if both appended.
  int AddMass(const std::string& mass);
  int AddFormulaMass(const std::string& mass) { return AddMass(mass); }
  int RemoveMass(int index);
  int RemoveFormulaMass(int index);
  int SetMass(int index, double mass);
  int SetFormulaMass(int index, const std::string& mass);
  int GetMass(int index, double& mass) const;

  int AddWavelength(double wavelength);
  int RemoveWavelength(int index);
  int SetWavelength(int index, double wavelength);
  int GetWavelength(int index, double& wavelength) const;
  int AddConcentration(double concentration);
  int RemoveConcentration(int index);
  int SetConcentration(int index, double concentration);
  int GetConcentration(int index, double& concentration) const;
  int AddFactor(double factor);
  int RemoveFactor(int index);
  int SetFactor(int index, double factor);
  int GetFactor(int index, double& factor) const;

  int AddFormula(const std::string& formula);
  int RemoveFormula(int index);
  int SetFormula(int index, const std::string& formula);
  int GetFormula(int index, std::string& formula) const;

  // Appends without a limit.
  int AddUserField(const std::string& field);
  int RemoveUserField(int index);
  int SetUserField(int index, const std::string& field);
  int GetUserField(int index, std::string& field) const;

  // Appends without a limit.
  int AddFractionTrigger(const std::string& trigger);
  // Accepts 0 … count (the count itself passes the bound test, and then
  // removes nothing).
  int RemoveFractionTrigger(int index);
  // Element copies; an index outside the list gives an empty text.
  std::string GetFractionTrigger(int index) const;
  std::string GetFractionPDATrigger(int index) const;
  std::string GetFractionAnaTrigger(int index) const;
  std::string GetFractionUVTrigger(int index) const;

  // Append "Formula-", "Trigger-" or "Dummy-" + value to the list field
  // called `name` (SetField with index -1).
  int AddFormulaTrigger(const std::string& name, const std::string& value);
  int AddMixedTrigger(const std::string& name, const std::string& value);
  int AddDummyTrigger(const std::string& name, const std::string& value);
  // No formula-to-mass computation here: true, `massText` unchanged.
  bool GetMassFromFormula(const std::string& formula, std::string& massText) const;

  // --- Generic field access ---
  // The index of the AllFields entry that `name` names (its own name, its
  // count key, or a list name followed by 1 … max), without regard to case;
  // -1 when none does.
  static int IsValidField(const std::string& name);
  // Stores a value into the field `name`. Scalars ignore `index`; for a
  // list, `index` is -1 (append while below the maximum) or 0 … max − 1
  // (grows the list to index + 1 when needed). The text form converts to
  // the field's type; a number stored into a text field fails (0).
  int SetField(const std::string& name, int& value, int index);
  int SetField(const std::string& name, double& value, int index);
  int SetField(const std::string& name, std::string& value, int index);
  // Every field name in table order (lists as numbered names, then their
  // count key when `withCounts`); returns the number of names.
  static int SampleFields(std::vector<std::string>& names, int withCounts);
  // Points AllFields' addresses at this sample's fields.
  void SetFieldAddresses();
  // The address of the field of AllFields entry `index` in this sample.
  void* FieldAddress(int index);

  // --- File operations ---
  // "%s%s%d%s%d" over (prefix, sep, plate, sep, sample); 0 and an empty
  // name when a number is negative.
  int SampleSectFormat(std::string& section, int plate, int sample, const std::string& sep) const;
  int Read(const std::string& file, int plate, int sample, const std::string& sep);
  // The path form replaces the file with this one section.
  int Write(const std::string& file, int plate, int sample, const std::string& sep);
  int Write(StdioFile& file, int plate, int sample, const std::string& sep);
  // key=value with "%.2f"; 0 for an empty key, nothing written (1) for 0.
  static int WritePrepInjectionEntry(StdioFile& file, const std::string& key, double value);

 private:
  friend class GenericSampleWriter;

  int ReadLists(const std::string& file, const std::string& section);

  mutable int m_multiMethodSampleIndex = -1;
  DoubleArray m_masses;
  StringArray m_compounds;
  StringArray m_formulaMasses;
  StringArray m_fractionTriggers;
  StringArray m_fractionPDATriggers;
  StringArray m_fractionAnaTriggers;
  StringArray m_fractionUVTriggers;
  DoubleArray m_wavelengths;
  DoubleArray m_concentrations;
  StringArray m_formulae;
  DoubleArray m_factors;
  StringArray m_userFields;
  std::string m_location;
  std::string m_reinjections = "0";
  std::string m_sampleID;
  std::string m_description;
  std::string m_conditions;
  std::string m_msDataName;
  // A text that copies leave behind: a copy starts empty and an assignment
  // keeps the target's own text; moving carries it.
  struct UncopiedText {
    std::string text;
    UncopiedText() = default;
    UncopiedText(const UncopiedText&) {}
    UncopiedText(UncopiedText&&) noexcept = default;
    UncopiedText& operator=(const UncopiedText&) { return *this; }
    UncopiedText& operator=(UncopiedText&&) noexcept = default;
  };

  UncopiedText m_autoAddition;
  UncopiedText m_cartridgeLocation1;
  UncopiedText m_cartridgeLocation2;
  std::string m_qualityReference;
  double m_msInjectionVolume = 0.0;
  double m_msRetentionTimeOffset = 0.0;
  SampleType m_type = FirstType;
  SampleType m_controlType = FirstType;
  std::string m_sectionPrefix = "Sample";
  std::string m_sampleGroup;
  std::string m_quanRef;
  std::string m_methDB;
  std::string m_subjectText;
  double m_subjectTime = 0.0;
  std::string m_subjectSex;
  std::string m_subjectSpecies;
  std::string m_msMethod;
  std::string m_inletMethod;
  std::string m_msTune;
  std::string m_asMethod;
  std::string m_inletPreRun;
  std::string m_inletPostRun;
  std::string m_inletSwitch;
  std::string m_fractionFile;
  std::string m_processParams;
  std::string m_mitFile;
  bool m_isSampleIDUpdated = false;
  double m_prepInjectionVolume = 0.0;
};

}  // namespace kvdao
