#include "kvdao/samplelist/sample_record.h"

#include <gtest/gtest.h>

#include <cstring>

namespace kvdao {
namespace {

struct FixedField {
  const char* name;
  std::string (CSampleRecord::*get)() const;
  void (CSampleRecord::*set)(const char*);
  std::size_t width;
};

TEST(SampleRecordTest, FixedTextsKeepAtMostTheirWidth) {
  const FixedField fields[] = {
      {"Description", &CSampleRecord::GetDescription, &CSampleRecord::SetDescription, 119},
      {"MSFile", &CSampleRecord::GetMSFile, &CSampleRecord::SetMSFile, 259},
      {"InletFile", &CSampleRecord::GetInletFile, &CSampleRecord::SetInletFile, 259},
      {"ASFile", &CSampleRecord::GetASFile, &CSampleRecord::SetASFile, 259},
      {"VialReference", &CSampleRecord::GetVialReference, &CSampleRecord::SetVialReference, 19},
      {"Job", &CSampleRecord::GetJob, &CSampleRecord::SetJob, 50},
      {"Task", &CSampleRecord::GetTask, &CSampleRecord::SetTask, 50},
      {"User", &CSampleRecord::GetUser, &CSampleRecord::SetUser, 18},
      {"Submitter", &CSampleRecord::GetSubmitter, &CSampleRecord::SetSubmitter, 50},
      {"Conditions", &CSampleRecord::GetConditions, &CSampleRecord::SetConditions, 254},
      {"Type", &CSampleRecord::GetType, &CSampleRecord::SetType, 11},
      {"ControlType", &CSampleRecord::GetControlType, &CSampleRecord::SetControlType, 11},
      {"ID", &CSampleRecord::GetID, &CSampleRecord::SetID, 50},
      {"QualityReference", &CSampleRecord::GetQualityReference,
       &CSampleRecord::SetQualityReference, 15},
      {"QuantityReference", &CSampleRecord::GetQuantityReference,
       &CSampleRecord::SetQuantityReference, 15},
      {"Reinjections", &CSampleRecord::GetReinjections, &CSampleRecord::SetReinjections, 5},
      {"SubjectText", &CSampleRecord::GetSubjectText, &CSampleRecord::SetSubjectText, 119},
      {"DataFile", &CSampleRecord::GetDataFile, &CSampleRecord::SetDataFile, 259},
  };
  const std::string longText(400, 'x');
  for (const FixedField& field : fields) {
    CSampleRecord record;
    const std::string before(reinterpret_cast<const char*>(
                                 static_cast<const _tagINTERNAL_SAMPLES_DB_RECORD*>(record)),
                             sizeof(_tagINTERNAL_SAMPLES_DB_RECORD));
    (record.*field.set)(longText.c_str());
    EXPECT_EQ((record.*field.get)(), longText.substr(0, field.width)) << field.name;
    (record.*field.set)("short");
    EXPECT_EQ((record.*field.get)(), "short") << field.name;
    (record.*field.set)(nullptr);
    EXPECT_EQ((record.*field.get)(), "short") << field.name;
    // Only this field's bytes changed: every other field still reads empty.
    (record.*field.set)("");
    const std::string after(reinterpret_cast<const char*>(
                                static_cast<const _tagINTERNAL_SAMPLES_DB_RECORD*>(record)),
                            sizeof(_tagINTERNAL_SAMPLES_DB_RECORD));
    EXPECT_EQ(before, after) << field.name;
  }
  CSampleRecord record;
  record.SetQuanRef("Q1");
  EXPECT_EQ(record.GetQuantityReference(), "Q1");
}

TEST(SampleRecordTest, NumbersAreKeptAsFifteenCharacterTexts) {
  CSampleRecord record;
  record.SetInjectionVolume(12.5);
  EXPECT_EQ(record.GetInjectionVolume(), 12.5);
  record.SetStockDilution("3.25e1 ml");
  EXPECT_EQ(record.GetStockDilution(), 32.5);
  record.SetUserFactor2("abc");
  EXPECT_EQ(record.GetUserFactor2(), 0.0);
  // "%lf" of 1e20 has 28 characters; the field keeps 15 of them.
  record.SetUserFactor1(1e20);
  EXPECT_EQ(record.GetUserFactor1(), 1e14);
  record.SetRetentionTimeOffset("0.75");
  EXPECT_EQ(record.GetRetentionTimeOffset(), 0.75);
  record.SetSamplePosition("12:B");
  EXPECT_EQ(record.GetSamplePosition(), 12);
}

TEST(SampleRecordTest, TypesByNumberAndByNameIgnoringCase) {
  CSampleRecord record;
  record.SetType(1);
  EXPECT_EQ(record.GetType(), "Standard");
  record.SetType(8);
  EXPECT_EQ(record.GetType(), "");
  record.SetType(-1);
  EXPECT_EQ(record.GetType(), "");
  record.SetType("blank");
  int n = -1;
  EXPECT_EQ(record.GetType(n), 3);
  EXPECT_EQ(n, 3);
  record.SetType("Unknown");
  EXPECT_EQ(record.GetType(n), 0);
  record.SetControlType("CONTROL");
  EXPECT_EQ(record.GetControlType(n), 1);
  record.SetControlType(2);
  EXPECT_EQ(record.GetControlType(), "");
}

TEST(SampleRecordTest, GroupsWriteTheFixedSlotAndTheAttributes) {
  CSampleRecord record;
  record.SetMass(0, "301.2");
  record.SetMass(2, 445.5);
  EXPECT_EQ(record.GetNumMasses(), 3);
  EXPECT_EQ(record.GetMassText(0), "301.2");
  EXPECT_EQ(record.GetMass(2), 445.5);
  EXPECT_EQ(record.GetMass(1), 0.0);
  EXPECT_EQ(record.GetMass(3), 0.0);

  _tagINTERNAL_SAMPLES_DB_RECORD before;
  record.GetSample(&before);
  record.SetMass(30, "999");
  record.SetMass(-1, "999");
  _tagINTERNAL_SAMPLES_DB_RECORD after;
  record.GetSample(&after);
  EXPECT_EQ(std::memcmp(&before, &after, sizeof before), 0);
  EXPECT_EQ(record.GetNumMasses(), 3);

  record.SetConcentration(4, "12.5");
  EXPECT_EQ(record.GetNumConcentrations(), 5);
  EXPECT_EQ(record.GetConcentration(4), 12.5);
  EXPECT_EQ(record.GetConcentration(5), 0.0);
  EXPECT_EQ(record.GetConcentration(20), 0.0);
  record.SetConcentration(0, std::string(40, '7').c_str());
  EXPECT_EQ(record.GetConcentrationText(0), std::string(40, '7'));

  record.SetWavelength(1, 254.0);
  record.SetCompound(29, "caffeine");
  record.SetSpare(4, "s");
  record.SetFractionTrigger(9, "t");
  EXPECT_EQ(record.GetNumWavelengths(), 2);
  EXPECT_EQ(record.GetCompound(29), "caffeine");
  EXPECT_EQ(record.GetSpare(5), "");
  EXPECT_EQ(record.GetNumFractionTriggers(), 10);
}

TEST(SampleRecordTest, FlatRecordsCarryMassesAndCopiesAreIndependent) {
  CSampleRecord source;
  source.SetMass(0, "301.2");
  source.SetMass(1, "445.1");
  source.SetConcentration(0, "5");
  source.SetDescription("standard 1");
  source.SetProcess("Quantify");
  _tagINTERNAL_SAMPLES_DB_RECORD flat;
  source.GetSample(&flat);

  CSampleRecord fromFlat(flat);
  EXPECT_EQ(fromFlat.GetNumMasses(), 2);
  EXPECT_EQ(fromFlat.GetMassText(1), "445.1");
  EXPECT_EQ(fromFlat.GetNumConcentrations(), 1);
  EXPECT_EQ(fromFlat.GetDescription(), "standard 1");
  EXPECT_EQ(fromFlat.GetProcess(), "");  // not part of the flat record

  CSampleRecord copy(source);
  copy.SetDescription("changed");
  copy.SetProcess("Other");
  EXPECT_EQ(source.GetDescription(), "standard 1");
  EXPECT_EQ(source.GetProcess(), "Quantify");
  copy = source;
  EXPECT_EQ(copy.GetProcess(), "Quantify");
  EXPECT_EQ(CSampleRecord::SubjectSex, "Subject Sex");
  EXPECT_EQ(CSampleRecord::DumpFile, "Quan LIMS File");
}

}  // namespace
}  // namespace kvdao
