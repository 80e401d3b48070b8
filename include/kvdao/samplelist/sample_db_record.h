#pragma once

// _tagINTERNAL_SAMPLES_DB_RECORD: one sample as a flat, byte-copyable record
// of 4262 bytes. It is the unit of legacy ".SDB" sample lists and of the
// record-database sample file, and the fixed store behind CSampleRecord.
// docs/sample-record-format.md describes the layout as a file format.
//
// Texts are 8-bit (code page 1252) and NUL-terminated; each buffer is one
// byte longer than the most characters a setter copies, so a text always
// ends inside its buffer. Numbers other than the two integers are kept as
// text ("%lf" on writing, atof on reading). Integers are little-endian.
// A record is all zero bytes when new; the reserved bytes stay zero.

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace kvdao {

// Widths: the most characters the setters copy into each text field.
inline constexpr int kSampleDescriptionWidth = 119;
inline constexpr int kSampleFileWidth = 259;  // data, MS, inlet and AS files
inline constexpr int kSampleVialReferenceWidth = 19;
inline constexpr int kSampleJobWidth = 50;    // job, task, submitter, ID
inline constexpr int kSampleUserWidth = 18;
inline constexpr int kSampleConditionsWidth = 254;
inline constexpr int kSampleTypeWidth = 11;   // sample and control type
inline constexpr int kSampleReferenceWidth = 15;  // quality and quantity reference
inline constexpr int kSampleReinjectionsWidth = 5;
inline constexpr int kSampleSubjectTextWidth = 119;
inline constexpr int kSampleNumberWidth = 15;  // numbers kept as text
inline constexpr int kSampleGroupValueWidth = 30;  // a concentration or a mass
inline constexpr int kSampleRecordConcentrations = 20;
inline constexpr int kSampleRecordMasses = 30;

#pragma pack(push, 1)
struct _tagINTERNAL_SAMPLES_DB_RECORD {
  std::int32_t nSamplePosition;
  std::int32_t nSampleNumber;
  char szDataFile[kSampleFileWidth + 1];
  char szDescription[kSampleDescriptionWidth + 1];
  char szMSFile[kSampleFileWidth + 1];
  char szInletFile[kSampleFileWidth + 1];
  char szASFile[kSampleFileWidth + 1];
  char szVialReference[kSampleVialReferenceWidth + 1];
  char szJob[kSampleJobWidth + 1];
  char szTask[kSampleJobWidth + 1];
  char szUser[kSampleUserWidth + 1];
  char szSubmitter[kSampleJobWidth + 1];
  char szConditions[kSampleConditionsWidth + 1];
  char szType[kSampleTypeWidth + 1];
  char szControlType[kSampleTypeWidth + 1];
  char szID[kSampleJobWidth + 1];
  char szQualityReference[kSampleReferenceWidth + 1];
  char szQuanRef[kSampleReferenceWidth + 1];
  char szReinjections[kSampleReinjectionsWidth + 1];
  char szSubjectText[kSampleSubjectTextWidth + 1];
  char szInjectionVolume[kSampleNumberWidth + 1];
  char szStockDilution[kSampleNumberWidth + 1];
  char szUserDivisor1[kSampleNumberWidth + 1];
  char szUserFactor1[kSampleNumberWidth + 1];
  char szUserFactor2[kSampleNumberWidth + 1];
  char szUserFactor3[kSampleNumberWidth + 1];
  char szSubjectTime[kSampleNumberWidth + 1];
  char szPrepInjectionVolume[kSampleNumberWidth + 1];
  char szConcentration[kSampleRecordConcentrations][kSampleGroupValueWidth + 1];
  char szMass[kSampleRecordMasses][kSampleGroupValueWidth + 1];
  char reserved[736];
};
#pragma pack(pop)

using INTERNAL_SAMPLES_DB_RECORD = _tagINTERNAL_SAMPLES_DB_RECORD;

inline constexpr std::size_t kSampleRecordSize = 4262;

static_assert(sizeof(_tagINTERNAL_SAMPLES_DB_RECORD) == kSampleRecordSize);
static_assert(std::is_trivially_copyable_v<_tagINTERNAL_SAMPLES_DB_RECORD>);
static_assert(std::is_standard_layout_v<_tagINTERNAL_SAMPLES_DB_RECORD>);

#define KVDAO_SAMPLE_OFFSET(field, at) \
  static_assert(offsetof(_tagINTERNAL_SAMPLES_DB_RECORD, field) == (at), #field)
KVDAO_SAMPLE_OFFSET(nSamplePosition, 0);
KVDAO_SAMPLE_OFFSET(nSampleNumber, 4);
KVDAO_SAMPLE_OFFSET(szDataFile, 8);
KVDAO_SAMPLE_OFFSET(szDescription, 268);
KVDAO_SAMPLE_OFFSET(szMSFile, 388);
KVDAO_SAMPLE_OFFSET(szInletFile, 648);
KVDAO_SAMPLE_OFFSET(szASFile, 908);
KVDAO_SAMPLE_OFFSET(szVialReference, 1168);
KVDAO_SAMPLE_OFFSET(szJob, 1188);
KVDAO_SAMPLE_OFFSET(szTask, 1239);
KVDAO_SAMPLE_OFFSET(szUser, 1290);
KVDAO_SAMPLE_OFFSET(szSubmitter, 1309);
KVDAO_SAMPLE_OFFSET(szConditions, 1360);
KVDAO_SAMPLE_OFFSET(szType, 1615);
KVDAO_SAMPLE_OFFSET(szControlType, 1627);
KVDAO_SAMPLE_OFFSET(szID, 1639);
KVDAO_SAMPLE_OFFSET(szQualityReference, 1690);
KVDAO_SAMPLE_OFFSET(szQuanRef, 1706);
KVDAO_SAMPLE_OFFSET(szReinjections, 1722);
KVDAO_SAMPLE_OFFSET(szSubjectText, 1728);
KVDAO_SAMPLE_OFFSET(szInjectionVolume, 1848);
KVDAO_SAMPLE_OFFSET(szStockDilution, 1864);
KVDAO_SAMPLE_OFFSET(szUserDivisor1, 1880);
KVDAO_SAMPLE_OFFSET(szUserFactor1, 1896);
KVDAO_SAMPLE_OFFSET(szUserFactor2, 1912);
KVDAO_SAMPLE_OFFSET(szUserFactor3, 1928);
KVDAO_SAMPLE_OFFSET(szSubjectTime, 1944);
KVDAO_SAMPLE_OFFSET(szPrepInjectionVolume, 1960);
KVDAO_SAMPLE_OFFSET(szConcentration, 1976);
KVDAO_SAMPLE_OFFSET(szMass, 2596);
KVDAO_SAMPLE_OFFSET(reserved, 3526);
#undef KVDAO_SAMPLE_OFFSET

}  // namespace kvdao
