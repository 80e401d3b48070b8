// Writing a sample's section of a generic batch file. The mass and
// wavelength writers put the masses and wavelengths that triggers name
// first, and rewrite some trigger texts on the way; the fraction trigger
// writer then turns every trigger into the name of the entry it fires on
// ("Mass A", "WaveLength B", "Analog 2", "UV 254", "No Trigger").

#include <cstdlib>

#include "kvdao/genericbatch/generic_file.h"
#include "kvdao/genericbatch/generic_sample.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/text.h"

namespace kvdao {
namespace {

bool Contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

double ToNumber(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

std::string Numbered(const std::string& prefix, int number) {
  return prefix + std::to_string(number);
}

// The overall cap of "Fraction" lines of one sample.
constexpr int kMaxTriggerLines = 10;

}  // namespace

// Friend of GenericSample: the writers need the trigger lists writable.
class GenericSampleWriter {
 public:
  GenericSampleWriter(GenericSample& sample, StdioFile& file) : s_(sample), file_(file) {}

  int Write(const std::string& section);

 private:
  bool Entry(const std::string& key, const std::string& value) {
    return WriteGenericEntry(file_, key, value) != 0;
  }
  bool Entry(const std::string& key, int value) { return WriteGenericEntry(file_, key, value) != 0; }
  bool Entry(const std::string& key, const std::string& format, double value) {
    return WriteGenericEntry(file_, key, format.c_str(), value) != 0;
  }

  bool WriteScalars();
  bool WriteTriggerEntries(StringArray& triggers, const std::string& prefix, const char* named,
                           int& written);
  bool WriteMasses();
  bool WriteWavelengths();
  bool WriteFractionTriggers();
  bool WriteTextList(const StringArray& list, const std::string& countKey,
                     const std::string& prefix);
  bool WriteNumberList(const DoubleArray& list, const std::string& countKey,
                       const std::string& prefix, const std::string& format);

  GenericSample& s_;
  StdioFile& file_;
};

int GenericSampleWriter::Write(const std::string& section) {
  using G = GenericSample;
  if (WriteGenericSection(file_, section) == 0) return 0;
  bool ok = WriteScalars() && WriteMasses() &&
            WriteTextList(s_.m_compounds, G::CompoundCountEntry, G::CompoundPrefix) &&
            WriteWavelengths() && WriteFractionTriggers() &&
            WriteNumberList(s_.m_concentrations, G::ConcsCountEntry, G::ConcPrefix,
                            G::ConcFormat) &&
            WriteTextList(s_.m_formulae, G::FormulaeCountEntry, G::FormulaPrefix) &&
            WriteNumberList(s_.m_factors, G::FactorsCountEntry, G::FactorPrefix,
                            G::FactorFormat) &&
            WriteTextList(s_.m_userFields, G::UserFieldCountEntry, G::UserFieldPrefix) &&
            // Whole numbers only: the offset is rounded in the file.
            Entry(G::RetentionTimeOffsetEntry, "%.f", s_.m_msRetentionTimeOffset) &&
            Entry(G::PrepInjectionVolumeEntry, "%.4f", s_.m_prepInjectionVolume) &&
            Entry(G::MITFileEntry, s_.m_mitFile);
  return ok ? 1 : 0;
}

bool GenericSampleWriter::WriteScalars() {
  using G = GenericSample;
  return Entry(G::LocationEntry, s_.m_location) &&
         Entry(G::ReinjectionsEntry, s_.m_reinjections) &&
         Entry(G::DescriptionEntry, s_.m_description) &&
         Entry(G::ConditionsEntry, s_.m_conditions) && Entry(G::SampleIDEntry, s_.m_sampleID) &&
         Entry(G::MSDataNameEntry, s_.m_msDataName) &&
         Entry(G::TypeEntry, static_cast<int>(s_.m_type)) &&
         Entry(G::AutoAdditionEntry, s_.m_autoAddition.text) &&
         Entry(G::CartridgeLocation1Entry, s_.m_cartridgeLocation1.text) &&
         Entry(G::CartridgeLocation2Entry, s_.m_cartridgeLocation2.text) &&
         Entry(G::MSInjVolume, "%.4f", s_.m_msInjectionVolume) &&
         Entry(G::SampleGroupEntry, s_.m_sampleGroup) && Entry(G::QuanRefEntry, s_.m_quanRef) &&
         Entry(G::MethDBEntry, s_.m_methDB) && Entry(G::SubjectTextEntry, s_.m_subjectText) &&
         Entry(G::SubjectTimeEntry, "%.4f", s_.m_subjectTime) &&
         Entry(G::SubjectSexEntry, s_.m_subjectSex) &&
         Entry(G::SubjectSpeciesEntry, s_.m_subjectSpecies) &&
         Entry(G::MSMethodEntry, s_.m_msMethod) && Entry(G::InletMethodEntry, s_.m_inletMethod) &&
         Entry(G::MSTuneEntry, s_.m_msTune) && Entry(G::ASMethodEntry, s_.m_asMethod) &&
         Entry(G::InletPreRunEntry, s_.m_inletPreRun) &&
         Entry(G::InletPostRunEntry, s_.m_inletPostRun) &&
         Entry(G::InletSwitchEntry, s_.m_inletSwitch) &&
         Entry(G::FractionFileEntry, s_.m_fractionFile) &&
         Entry(G::ProcessParamsEntry, s_.m_processParams) &&
         Entry(G::QualityReferenceEntry, s_.m_qualityReference);
}

// The entries that triggers name come first under `prefix` (Mass1, …):
// "Trigger-x:value" writes the value and is cut back to "Trigger-x";
// "Dummy-v" writes v (reserving a slot); "Formula-f" (masses only) writes f;
// resolved names (`named`, "No Trigger") and TIC triggers write nothing; a
// text that is no number becomes a "Trigger-" item; a number is written as
// it stands. `written` counts the numbers used.
bool GenericSampleWriter::WriteTriggerEntries(StringArray& triggers, const std::string& prefix,
                                              const char* named, int& written) {
  bool masses = prefix == GenericSample::MassPrefix;
  for (std::string& t : triggers) {
    if (t.empty() || Contains(t, "TIC")) continue;
    std::string key = Numbered(prefix, written + 1);
    if (Contains(t, "Trigger-")) {
      std::size_t colon = t.find(':');
      if (colon != std::string::npos) {
        if (!Entry(key, t.substr(colon + 1))) return false;
        t.resize(colon);
      }
      ++written;  // without ":" the number is used all the same
    } else if (Contains(t, "Dummy-")) {
      if (!Entry(key, t.substr(6))) return false;
      ++written;
    } else if (masses && Contains(t, "Formula-")) {
      if (!Entry(key, t.substr(8))) return false;
      ++written;
    } else if (Contains(t, named) || Contains(t, "No Trigger")) {
      continue;
    } else if (ToNumber(t) == 0.0) {
      t = "Trigger-" + t;
    } else {
      if (!Entry(key, t)) return false;
      ++written;
    }
  }
  return true;
}

bool GenericSampleWriter::WriteMasses() {
  using G = GenericSample;
  bool asEntered = !s_.m_formulaMasses.IsEmpty();
  int own = asEntered ? s_.m_formulaMasses.GetSize() : s_.m_masses.GetSize();
  int written = 0;
  if (!WriteTriggerEntries(s_.m_fractionTriggers, G::MassPrefix, "Mass ", written)) return false;
  if (!Entry(G::MassesCountEntry, own + written)) return false;
  for (int j = 0; j < own; ++j) {
    std::string key = Numbered(G::MassPrefix, written + 1 + j);
    bool ok = asEntered ? Entry(key, s_.m_formulaMasses[j])
                        : Entry(key, G::MassFormat, s_.m_masses[j]);
    if (!ok) return false;
  }
  return true;
}

bool GenericSampleWriter::WriteWavelengths() {
  using G = GenericSample;
  int written = 0;
  if (!WriteTriggerEntries(s_.m_fractionPDATriggers, G::WavePrefix, "Wavelength ", written)) {
    return false;
  }
  if (!Entry(G::WavesCountEntry, s_.m_wavelengths.GetSize() + written)) return false;
  for (int j = 0; j < s_.m_wavelengths.GetSize(); ++j) {
    if (!Entry(Numbered(G::WavePrefix, written + 1 + j), G::WaveFormat, s_.m_wavelengths[j])) {
      return false;
    }
  }
  return true;
}

namespace {

// The letter index that a resolved name such as "Mass C" or "Mass AB"
// carries after `name`; false when no letter follows it.
bool LetterIndex(const std::string& t, const std::string& name, int& index) {
  std::size_t at = t.find(name);
  if (at == std::string::npos) return false;
  std::size_t letter = at + name.size();
  if (letter >= t.size()) return false;
  if (t.size() == name.size() + 2 && letter + 1 < t.size()) {
    index = 26 + (t[letter + 1] - 'A');  // a two-letter name, its first letter taken as 'A'
  } else {
    index = t[letter] - 'A';
  }
  return true;
}

// The name a mass or PDA trigger fires on. `letter` is the letter of this
// trigger's entry; `available` the number of entries the name may point at;
// `special` counts the triggers that hold no entry.
std::string ResolveLetterTrigger(const std::string& t, const char* kind, const char* tic,
                                 const std::string& named, char letter, int available,
                                 int& special) {
  if (Contains(t, "TIC")) {
    ++special;
    return tic;
  }
  if (Contains(t, "Trigger-")) return t.substr(8);
  if (Contains(t, "Dummy-")) return "No Trigger";  // the dummy keeps its letter
  if ((named == "Mass " && Contains(t, "Formula-")) || ToNumber(t) != 0.0) {
    return platform::Format("%s %c", kind, letter);
  }
  int index = 0;
  if (LetterIndex(t, named, index) && index <= available - 1) return t;
  ++special;
  return "No Trigger";
}

}  // namespace

bool GenericSampleWriter::WriteFractionTriggers() {
  using G = GenericSample;
  int lines = 0;
  auto line = [&](const std::string& value) {
    ++lines;
    return Entry(Numbered(G::FractionTriggerPrefix, lines), value);
  };

  if (!Entry(G::FractionTriggersCountEntry, s_.m_fractionTriggers.GetSize())) return false;
  int inList = 0, special = 0;
  for (const std::string& t : s_.m_fractionTriggers) {
    if (lines >= kMaxTriggerLines) return true;
    if (t.empty()) continue;
    char letter = static_cast<char>('A' + (inList - special));
    if (!line(ResolveLetterTrigger(t, "Mass", "Mass TIC", "Mass ", letter,
                                   s_.m_formulaMasses.GetSize(), special))) {
      return false;
    }
    ++inList;
  }
  if (lines >= kMaxTriggerLines) return true;

  if (!Entry(G::FractionPDATriggersCountEntry, s_.m_fractionPDATriggers.GetSize())) return false;
  inList = 0;
  special = 0;
  for (const std::string& t : s_.m_fractionPDATriggers) {
    if (lines >= kMaxTriggerLines) return true;
    if (t.empty()) continue;
    char letter = static_cast<char>('A' + (inList - special));
    if (!line(ResolveLetterTrigger(t, "WaveLength", "PDA TIC", "Wavelength ", letter,
                                   s_.m_wavelengths.GetSize(), special))) {
      return false;
    }
    ++inList;
  }

  if (!Entry(G::FractionAnaTriggersCountEntry, s_.m_fractionAnaTriggers.GetSize())) return false;
  for (const std::string& t : s_.m_fractionAnaTriggers) {
    if (lines >= kMaxTriggerLines) return true;
    if (t.empty()) continue;
    std::string value = "No Trigger";
    if (ToNumber(t) != 0.0) {
      value = "Analog " + t;
    } else if (std::size_t at = t.find("Analog "); at != std::string::npos) {
      int channel = std::atoi(t.c_str() + at + 7);
      if (channel >= 1 && channel <= G::MaxAnaFractionTriggers) value = t;
    }
    if (!line(value)) return false;
  }

  if (!Entry(G::FractionUVTriggersCountEntry, s_.m_fractionUVTriggers.GetSize())) return false;
  for (const std::string& t : s_.m_fractionUVTriggers) {
    if (lines >= kMaxTriggerLines) return true;
    if (!line(!t.empty() && ToNumber(t) != 0.0 ? "UV " + t : "No Trigger")) return false;
  }
  return true;
}

bool GenericSampleWriter::WriteTextList(const StringArray& list, const std::string& countKey,
                                        const std::string& prefix) {
  if (!Entry(countKey, list.GetSize())) return false;
  for (int i = 0; i < list.GetSize(); ++i) {
    if (!Entry(Numbered(prefix, i + 1), list[i])) return false;
  }
  return true;
}

bool GenericSampleWriter::WriteNumberList(const DoubleArray& list, const std::string& countKey,
                                          const std::string& prefix, const std::string& format) {
  if (!Entry(countKey, list.GetSize())) return false;
  for (int i = 0; i < list.GetSize(); ++i) {
    if (!Entry(Numbered(prefix, i + 1), format, list[i])) return false;
  }
  return true;
}

int GenericSample::Write(StdioFile& file, int plate, int sample, const std::string& sep) {
  std::string section;
  if (SampleSectFormat(section, plate, sample, sep) == 0) return 0;
  return GenericSampleWriter(*this, file).Write(section);
}

int GenericSample::Write(const std::string& file, int plate, int sample, const std::string& sep) {
  return platform::WriteFileThrough(
             file, [&](StdioFile& out) { return Write(out, plate, sample, sep) != 0; })
             ? 1
             : 0;
}

int GenericSample::WritePrepInjectionEntry(StdioFile& file, const std::string& key, double value) {
  if (key.empty()) return 0;
  if (value == 0.0) return 1;
  return WriteGenericEntry(file, key, "%.2f", value);
}

}  // namespace kvdao
