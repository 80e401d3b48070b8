#include "kvdao/genericbatch/generic_batch.h"

#include <gtest/gtest.h>

#include "common/test_env.h"

namespace kvdao {
namespace {

class GenericBatchTest : public test::TempEnvTest {
 protected:
  void TearDown() override {
    GenericPlate::TrackTypeDesc = {"R", "C"};  // shared by every plate
    TempEnvTest::TearDown();
  }
  std::string File(const std::string& content, const std::string& name = "in.xbt") {
    std::string path = PathTo(name);
    test::WriteFile(path, content);
    return path;
  }
  static GenericSample Well(const std::string& location, const std::string& prefix = "Sample") {
    GenericSample sample;
    sample.Location(location);
    sample.SetSectionPrefix(prefix);
    return sample;
  }
};

// What a sample with only its well set writes after its header.
const char* const kDefaultSampleBody =
    "Reinjections=0\nSampleType=0\nMSInjectionVolume=0.0000\nSubjectTime=0.0000\n"
    "NumberOfMasses=0\nNumberOfCompounds=0\nNumberOfWaveLengths=0\n"
    "NumberOfMassFractionTriggers=0\nNumberOfPDAFractionTriggers=0\n"
    "NumberOfAnalogFractionTriggers=0\nNumberOfUVFractionTriggers=0\nNumberOfConcs=0\n"
    "NumberOfFormulae=0\nNumberOfFactors=0\nNumberOfUserFields=0\nRetentionTimeOffset=0\n"
    "PrepInjectionVolume=0.0000\n";

TEST_F(GenericBatchTest, WritesTheWholeFileAndReadsItBack) {
  GenericBatch batch;
  batch.MSMethod("ms1");
  batch.UserName("ann");
  batch.BatchID("B1");
  batch.AnalysisTime(12.345f);
  batch.PrepInjectionVolume(3.0);
  batch.MITFile("batch.mit");
  GenericPlate plate;
  plate.PlateID("P1");
  plate.PlatePosition("1");
  plate.Rows(8);
  plate.Columns(12);
  plate.AddSample(Well("A1"));
  batch.AddPlate(plate);
  std::string path = PathTo("batch.xbt");
  ASSERT_EQ(batch.Write(path, ":"), 1);
  std::string expected = std::string(
                             "[Batch]\nMSMethod=ms1\nEconomyScheduling=0\nPriorityScheduling=0\n"
                             "AnalysisTime=12.35\nUserName=ann\nBatchID=B1\nEmailResults=0\n"
                             "SampleReportEnable=0\nOverrideOptimise=0\nAcquireQuantify=0\n"
                             "QuanQuanOpt=0\nEnableQuanResultsDir=0\nPrintDravonicReport=0\n"
                             "PrepInjectionVolume=3.00\nMITFile=batch.mit\n"
                             "ZQQuantitation=0\nZQQIntegrate=0\nZQQCalibrate=0\nZQQuantify=0\n"
                             "ZQQPrintReport=0\nZQQExportToLims=0\nZQQUpdateMethod=0\n"
                             "ZQAutoPurify=0\nZQAnalyticalToPrep=0\nZQPrepToAnalytical=0\n"
                             "ZQFileSubmission=0\nNumberOfPlates=1\n"
                             "[Plate:1]\nPlateID=P1\nPlatePosition=1\nRows=8\nColumns=12\n"
                             "Track=R\nNumberOfWells=1\nNumberOfCompounds=0\n"
                             "[Sample:1:1]\nWell=A1\n") +
                         kDefaultSampleBody;
  EXPECT_EQ(test::ReadFile(path), expected);

  GenericBatch read;
  read.AnalysisTime(7.0f);
  ASSERT_EQ(read.Read(path, ":"), 1);
  EXPECT_EQ(read.AnalysisTime(), 7.0f);  // not read back
  EXPECT_EQ(read.BatchID(), "B1");
  EXPECT_EQ(read.PrepInjectionVolume(), 3.0);
  ASSERT_EQ(read.NumPlates(), 1);
  EXPECT_EQ(read.Plates()[0].Rows(), 8);
  EXPECT_EQ(read.Plates()[0].Samples()[0].Location(), "A1");
  read.AnalysisTime(12.345f);
  ASSERT_EQ(read.Write(PathTo("again.xbt"), ":"), 1);
  EXPECT_EQ(test::ReadFile(PathTo("again.xbt")), expected);
}

TEST_F(GenericBatchTest, FirstSampleDecidesTheBatchVolumeAndMitFileAndQuanMarksTheFile) {
  GenericBatch batch;
  batch.PrepInjectionVolume(1.0);
  batch.MITFile("batch.mit");
  batch.ZQQuantitation(1);
  std::string path = PathTo("b.xbt");
  ASSERT_EQ(batch.Write(path, ":"), 1);  // no plates: neither key
  std::string text = test::ReadFile(path);
  EXPECT_EQ(text.rfind("[ZQQUAN]\n[Batch]\n", 0), 0u);
  EXPECT_EQ(text.find("PrepInjectionVolume"), std::string::npos);
  EXPECT_EQ(text.find("MITFile"), std::string::npos);

  GenericPlate plate;
  GenericSample sample = Well("A1");
  sample.PrepInjectionVolume(2.5);
  sample.MITFile("own.mit");
  plate.AddSample(sample);
  batch.AddPlate(plate);
  ASSERT_EQ(batch.Write(path, ":"), 1);
  text = test::ReadFile(path);
  EXPECT_EQ(text.find("PrepInjectionVolume=1.00"), std::string::npos);
  EXPECT_EQ(text.find("MITFile=batch.mit"), std::string::npos);
  EXPECT_NE(text.find("PrepInjectionVolume=2.5000"), std::string::npos);

  batch.ZQQuantitation(0);
  batch.SetZQQuanOptFlag(1);
  sample.PrepInjectionVolume(0.0);
  sample.MITFile("");
  batch.Plates()[0].Samples();
  plate.SetSample(0, sample);
  batch.SetPlate(0, plate);
  ASSERT_EQ(batch.Write(path, ":"), 1);
  text = test::ReadFile(path);
  EXPECT_EQ(text.rfind("[ZQQUAN]\n[Batch]\n", 0), 0u);
  EXPECT_NE(text.find("\nPrepInjectionVolume=1.00\nMITFile=batch.mit\n"), std::string::npos);
}

TEST_F(GenericBatchTest, PlatesNumberCompoundsAndWellsApart) {
  GenericPlate plate;
  plate.Track(GenericPlate::ByColumn);
  plate.AddSample(Well("X1", "Compound"));
  plate.AddSample(Well("X2", "Compound"));
  for (const char* well : {"A1", "A2", "A3"}) plate.AddSample(Well(well));
  int compounds = 0, wells = 0, total = 0;
  plate.NumberOfCompounds(compounds, wells, total);
  EXPECT_EQ(compounds * 100 + wells * 10 + total, 235);
  std::string path = PathTo("plate.xbt");
  ASSERT_EQ(plate.Write(path, 3, ":"), 1);
  std::string text = test::ReadFile(path);
  EXPECT_EQ(text.rfind("[Plate:3]\nRows=0\nColumns=0\nTrack=C\nNumberOfWells=3\nNumberOfCompounds=2\n"
                       "[Compound:3:1]\nWell=X1\n",
                       0),
            0u)
      << text;
  for (const char* header : {"[Compound:3:2]\nWell=X2\n", "[Sample:3:1]\nWell=A1\n",
                             "[Sample:3:2]\nWell=A2\n", "[Sample:3:3]\nWell=A3\n"}) {
    EXPECT_NE(text.find(header), std::string::npos) << header;
  }

  GenericPlate wellsOnly;
  wellsOnly.SetSectionPrefix("Sample");
  ASSERT_EQ(wellsOnly.Read(path, 3, ":"), 1);
  EXPECT_EQ(wellsOnly.NumSamples(), 3);
  EXPECT_EQ(wellsOnly.Samples()[2].Location(), "A3");
  GenericPlate compoundList;
  compoundList.SetSectionPrefix("Compound");
  ASSERT_EQ(compoundList.Read(path, 3, ":"), 1);
  EXPECT_EQ(compoundList.NumSamples(), 2);
  // The track text replaced the shared description at the reader's own
  // Track (0), which stays as it was.
  EXPECT_EQ(compoundList.Track(), GenericPlate::ByRow);
  EXPECT_EQ(GenericPlate::TrackTypeDesc[0], "C");
}

TEST_F(GenericBatchTest, BadFilesFailOrReadAsFarAsTheyGoWithoutRunningAway) {
  GenericBatch batch;
  EXPECT_EQ(batch.Read(File("[Batch]\nBatchID=x"), ":"), 1);  // no final line end
  EXPECT_EQ(batch.NumPlates(), 0);
  EXPECT_EQ(batch.BatchID(), "x");
  EXPECT_EQ(batch.Read(File("[Batch]\r\nNumberOfPlates=-1\r\n"), ":"), 0);
  EXPECT_EQ(batch.Read(File("[Batch]\nNumberOfPlates=1\n[Plate:1]\nNumberOfWells=3\n"
                            "[Sample:1:1]\nWell=A1\n[Sample:1:2]\nWell=A2\n"),
                       ":"),
            0);
  // A plate without a section is an empty plate, but more plates or wells
  // than the file has sections cannot come from a writer: such counts fail
  // before anything is allocated for them.
  EXPECT_EQ(batch.Read(File("[Batch]\nNumberOfPlates=2\n[Plate:1]\n"), ":"), 1);
  EXPECT_EQ(batch.NumPlates(), 2);
  EXPECT_EQ(batch.Read(File("[Batch]\nNumberOfPlates=2000000000\n[Plate:1]\n"), ":"), 0);
  EXPECT_LE(batch.NumPlates(), 2);
  EXPECT_EQ(batch.Read(File("[Batch]\nNumberOfPlates=1\n[Plate:1]\nNumberOfWells=2000000000\n"
                            "[Sample:1:1]\nWell=A1\n"),
                       ":"),
            0);
  EXPECT_LE(batch.Plates()[0].NumSamples(), 4);
  // "[Plate:1" is no header: plate 1 reads as an empty plate.
  std::string garbage("[Batch]\nNumberOfPlates=1\n\x01\xff\0[Plate:1\n=\n[]\n", 36);
  garbage += std::string(100000, 'z');
  ASSERT_EQ(batch.Read(File(garbage), ":"), 1);
  EXPECT_EQ(batch.Plates()[0].NumSamples(), 0);
  EXPECT_EQ(batch.Read(PathTo("missing.xbt"), ":"), 1);  // reads as an empty batch
  EXPECT_EQ(batch.NumPlates(), 0);
}

TEST_F(GenericBatchTest, SingleKeyReaders) {
  std::string path = File(
      "[Batch]\nUserName=ann\nUserAddress=" + std::string(300, 'a') +
      "\nAnalysisTime=12.345678901234567890123\nNumberOfPlates=3\nZQAutoPurify=1\n"
      "ZQPrepToAnalytical=1\nReportScheme=" + std::string(1500, 'r') + "\n"
      "[Plate:1]\nNumberOfWells=96\n[Plate:2]\nNumberOfWells=48\nNumberOfCompounds=5\n"
      "[Plate:02]\nNumberOfWells=1000\n[Plate:4]\nNumberOfWells=1000\n");
  std::string user, address;
  ASSERT_EQ(GenericBatch::GetUserAddress(path.c_str(), user, address), 1);
  EXPECT_EQ(user, "ann");
  EXPECT_EQ(address.size(), 259u);
  std::string scheme;
  GenericBatch::GetReportScheme(path.c_str(), scheme);
  EXPECT_EQ(scheme.size(), 1023u);
  float minutes = 0;
  GenericBatch::GetAnalysisTime(path.c_str(), minutes);
  EXPECT_FLOAT_EQ(minutes, 12.3456789f);
  int n = 10;
  GenericBatch::GetNumOfSamples(path.c_str(), n);
  EXPECT_EQ(n, 10 + 96 + 48);
  int purify = -1;
  GenericBatch::GetAutoPurifyBatch(path.c_str(), purify);
  EXPECT_EQ(purify, 1);
  EXPECT_EQ(GenericBatch::GetAutoPurifyBatch(nullptr, purify), 0);
  int enable = 5;
  GenericBatch::GetSampleReportEnable(path.c_str(), enable);
  EXPECT_EQ(enable, 0);
  GenericBatch batch;
  ASSERT_EQ(batch.Read(path, ":"), 0);  // plate 1 has no samples in the file
  EXPECT_EQ(batch.ReportScheme(), "");
}

}  // namespace
}  // namespace kvdao
