#include "kvdao/genericbatch/generic_plate.h"

#include <algorithm>

#include "kvdao/genericbatch/generic_file.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/profile.h"
#include "kvdao/platform/text.h"

namespace kvdao {

std::vector<std::string> GenericPlate::TrackTypeDesc = {"R", "C"};

const std::string GenericPlate::SectionPrefix = "Plate";
const std::string GenericPlate::SectionFormat = "%s%s%d";
const std::string GenericPlate::PlateIDEntry = "PlateID";
const std::string GenericPlate::PlatePositionEntry = "PlatePosition";
const std::string GenericPlate::OriginEntry = "Origin";
const std::string GenericPlate::JobCodeEntry = "JobCode";
const std::string GenericPlate::UserNameEntry = "UserName";
const std::string GenericPlate::RowsEntry = "Rows";
const std::string GenericPlate::ColumnsEntry = "Columns";
const std::string GenericPlate::TrackEntry = "Track";
const std::string GenericPlate::NumberOfWellsEntry = "NumberOfWells";
const std::string GenericPlate::NumberOfCompoundsEntry = "NumberOfCompounds";
const std::string GenericPlate::CompoundPrefix = "Compound";

namespace {

bool InRange(int index, int count) { return index >= 0 && index < count; }

// The description slot of a track index, or null outside the table.
std::string* TrackText(GenericPlate::TrackType track) {
  int index = static_cast<int>(track);
  if (!InRange(index, static_cast<int>(GenericPlate::TrackTypeDesc.size()))) return nullptr;
  return &GenericPlate::TrackTypeDesc[static_cast<std::size_t>(index)];
}

}  // namespace

bool GenericPlate::operator==(const GenericPlate& other) const {
  return platform::CompareNoCase1252(m_plateID, other.m_plateID) == 0;
}

int GenericPlate::RemoveSample(int index) {
  if (!InRange(index, m_samples.GetSize())) return 0;
  m_samples.RemoveAt(index);
  return 1;
}

int GenericPlate::SetSample(int index, const GenericSample& sample) {
  if (!InRange(index, m_samples.GetSize())) return 0;
  m_samples[index] = sample;
  return 1;
}

int GenericPlate::GetSample(int index, GenericSample& sample) const {
  if (!InRange(index, m_samples.GetSize())) return 0;
  sample = m_samples[index];
  return 1;
}

int GenericPlate::NumberOfCompounds(int& compounds, int& wells, int& total) const {
  total = m_samples.GetSize();
  compounds = static_cast<int>(std::count_if(m_samples.begin(), m_samples.end(), [](const GenericSample& s) {
    return s.GetSectionPrefix() == CompoundPrefix;
  }));
  wells = total - compounds;
  return 1;
}

int GenericPlate::GetNumberOfWells(const char* file, int& n, const char* section) {
  n = 0;
  if (file == nullptr || section == nullptr) return 1;
  ReadGenericInteger(n, file, section, NumberOfWellsEntry);
  return 1;
}

int GenericPlate::PlateSectFormat(std::string& section, int plate, const std::string& sep) const {
  section.clear();
  if (plate < 0) return 0;
  section = SectionPrefix + sep + std::to_string(plate);
  return 1;
}

int GenericPlate::Read(const std::string& file, int plate, const std::string& sep) {
  std::string section;
  if (PlateSectFormat(section, plate, sep) == 0) return 0;
  ReadGenericString(m_plateID, file, section, PlateIDEntry);
  ReadGenericString(m_platePosition, file, section, PlatePositionEntry);
  ReadGenericString(m_origin, file, section, OriginEntry);
  ReadGenericString(m_jobCode, file, section, JobCodeEntry);
  ReadGenericString(m_userName, file, section, UserNameEntry);
  ReadGenericInteger(m_rows, file, section, RowsEntry);
  ReadGenericInteger(m_columns, file, section, ColumnsEntry);
  // The text replaces the shared description of this plate's track; the
  // plate's Track itself stays.
  std::string track;
  ReadGenericString(track, file, section, TrackEntry);
  if (std::string* text = TrackText(m_track)) *text = track;

  int count = 0;
  ReadGenericInteger(count, file, section,
                     m_sectionPrefix == CompoundPrefix ? NumberOfCompoundsEntry : NumberOfWellsEntry);
  if (count < 0) return 0;
  // Every sample needs a section of its own, so a count beyond the file's
  // sections fails at the first sample past them: allocate no more.
  int bound = CountGenericSections(file) + 1;
  m_samples.SetSize(std::min(count, bound));
  for (int i = 0; i < m_samples.GetSize(); ++i) {
    m_samples[i].SetSectionPrefix(m_sectionPrefix);
    if (m_samples[i].Read(file, plate, i + 1, sep) == 0) return 0;
  }
  return 1;
}

int GenericPlate::Write(StdioFile& file, int plate, const std::string& sep) {
  int compounds, wells, total;
  NumberOfCompounds(compounds, wells, total);
  std::string section;
  if (PlateSectFormat(section, plate, sep) == 0) return 0;
  if (WriteGenericSection(file, section) == 0) return 0;
  const std::string* track = TrackText(m_track);
  bool ok = WriteGenericEntry(file, PlateIDEntry, m_plateID) &&
            WriteGenericEntry(file, PlatePositionEntry, m_platePosition) &&
            WriteGenericEntry(file, OriginEntry, m_origin) &&
            WriteGenericEntry(file, JobCodeEntry, m_jobCode) &&
            WriteGenericEntry(file, UserNameEntry, m_userName) &&
            WriteGenericEntry(file, RowsEntry, m_rows) &&
            WriteGenericEntry(file, ColumnsEntry, m_columns) &&
            WriteGenericEntry(file, TrackEntry, track != nullptr ? *track : std::string()) &&
            WriteGenericEntry(file, NumberOfWellsEntry, wells) &&
            WriteGenericEntry(file, NumberOfCompoundsEntry, compounds);
  if (!ok) return 0;
  // Compounds stand first; compounds and wells are numbered apart.
  for (int i = 0; i < total; ++i) {
    int number = i < compounds ? i + 1 : i - compounds + 1;
    if (m_samples[i].Write(file, plate, number, sep) == 0) return 0;
  }
  return 1;
}

int GenericPlate::Write(const std::string& file, int plate, const std::string& sep) {
  return platform::WriteFileThrough(
             file, [&](StdioFile& out) { return Write(out, plate, sep) != 0; })
             ? 1
             : 0;
}

}  // namespace kvdao
