#pragma once

// GenericPlate: one plate (or one compound list) of a generic batch: its
// identity and position on the instrument, its geometry and its samples,
// which it owns by value. It reads and writes itself as a "[Plate:n]"
// section followed by its samples' sections, and gives each sample the
// section prefix and numbering that place it in the file: compound entries
// (prefix "Compound") stand first and are numbered apart from the wells.
//
// Promises: results are 1 or 0; nothing throws for bad input. Reading never
// allocates more samples than the file has sections, whatever count the
// plate section claims.

#include <string>
#include <vector>

#include "kvdao/genericbatch/dim1_data.h"
#include "kvdao/genericbatch/generic_sample.h"
#include "kvdao/platform/stdio_file.h"

namespace kvdao {

using SampleArray = Dim1Data<GenericSample, GenericSample&>;

class GenericPlate {
 public:
  // The order in which wells are tracked; an index into TrackTypeDesc.
  enum TrackType : int { ByRow = 0, ByColumn = 1 };
  // The track descriptions ("R", "C" at first). Shared by every plate: a
  // plate read replaces the description at its own Track index.
  static std::vector<std::string> TrackTypeDesc;

  static const std::string SectionPrefix;           // "Plate"
  static const std::string SectionFormat;           // "%s%s%d"
  static const std::string PlateIDEntry;            // "PlateID"
  static const std::string PlatePositionEntry;      // "PlatePosition"
  static const std::string OriginEntry;             // "Origin"
  static const std::string JobCodeEntry;            // "JobCode"
  static const std::string UserNameEntry;           // "UserName"
  static const std::string RowsEntry;               // "Rows"
  static const std::string ColumnsEntry;            // "Columns"
  static const std::string TrackEntry;              // "Track"
  static const std::string NumberOfWellsEntry;      // "NumberOfWells"
  static const std::string NumberOfCompoundsEntry;  // "NumberOfCompounds"
  static const std::string CompoundPrefix;          // "Compound"

  GenericPlate() = default;

  // Equal when the PlateIDs are equal without regard to case.
  bool operator==(const GenericPlate& other) const;
  bool operator!=(const GenericPlate& other) const { return !(*this == other); }

  const std::string& PlateID(const std::string& v) { return m_plateID = v; }
  const std::string& PlateID() const noexcept { return m_plateID; }
  const std::string& PlatePosition(const std::string& v) { return m_platePosition = v; }
  const std::string& PlatePosition() const noexcept { return m_platePosition; }
  const std::string& Origin(const std::string& v) { return m_origin = v; }
  const std::string& Origin() const noexcept { return m_origin; }
  const std::string& JobCode(const std::string& v) { return m_jobCode = v; }
  const std::string& JobCode() const noexcept { return m_jobCode; }
  const std::string& UserName(const std::string& v) { return m_userName = v; }
  const std::string& UserName() const noexcept { return m_userName; }
  int Rows(int v) noexcept { return m_rows = v; }
  int Rows() const noexcept { return m_rows; }
  int Columns(int v) noexcept { return m_columns = v; }
  int Columns() const noexcept { return m_columns; }
  TrackType Track(TrackType v) noexcept { return m_track = v; }
  TrackType Track() const noexcept { return m_track; }
  void SetSectionPrefix(const std::string& prefix) { m_sectionPrefix = prefix; }
  const std::string& GetSectionPrefix() const noexcept { return m_sectionPrefix; }

  int Samples(const SampleArray& samples) {
    m_samples = samples;
    return 1;
  }
  const SampleArray& Samples() const noexcept { return m_samples; }
  int NumSamples() const noexcept { return m_samples.GetSize(); }
  // Resizes; new samples are default samples.
  int NumSamples(int count) {
    m_samples.SetSize(count);
    return 1;
  }
  int AddSample(const GenericSample& sample) {
    m_samples.Add(sample);
    return 1;
  }
  int RemoveSample(int index);
  int SetSample(int index, const GenericSample& sample);
  int GetSample(int index, GenericSample& sample) const;

  // compounds: samples whose prefix is exactly "Compound"; wells: the rest.
  int NumberOfCompounds(int& compounds, int& wells, int& total) const;
  // Adds nothing: n becomes the "NumberOfWells" of `section` (0 if absent).
  static int GetNumberOfWells(const char* file, int& n, const char* section);
  // "Plate" + sep + plate; 0 for a negative plate number.
  int PlateSectFormat(std::string& section, int plate, const std::string& sep) const;

  int Read(const std::string& file, int plate, const std::string& sep);
  // The path form replaces the file with this plate.
  int Write(const std::string& file, int plate, const std::string& sep);
  int Write(StdioFile& file, int plate, const std::string& sep);

 private:
  std::string m_plateID;
  std::string m_platePosition;
  std::string m_origin;
  std::string m_jobCode;
  std::string m_userName;
  std::string m_sectionPrefix;
  int m_rows = 0;
  int m_columns = 0;
  TrackType m_track = ByRow;
  SampleArray m_samples;
};

}  // namespace kvdao
