// The field-by-number text form: every text kind in both directions, the
// read-only and unassigned numbers, and conversions of bad text.

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>

#include "kvdao/method/method_record.h"

namespace kvdao {
namespace {

class MethodFieldsTest : public ::testing::Test {
 protected:
  std::string Get(int field, int index = 0) {
    number = -1.0;
    ok = record.MethodGetFieldStr(field, true, buffer, index, number);
    return buffer;
  }
  bool Set(int field, const char* text, int index = 0) {
    return record.MethodSetFieldStr(field, true, text, index);
  }

  CMethodRecord record;
  char buffer[kMethodFieldBufferSize];
  double number = 0.0;
  bool ok = false;
};

TEST_F(MethodFieldsTest, TextFieldsUseTheirSettersWidths) {
  EXPECT_EQ(Get(MDF_Name), "New Compound");
  EXPECT_TRUE(Set(MDF_Name, std::string(100, 'n').c_str()));
  EXPECT_EQ(Get(MDF_Name), std::string(80, 'n'));
  EXPECT_TRUE(Set(MDF_Cas, "1912-24-9-EXTRA"));
  EXPECT_EQ(record.GetCas(), "1912-24-9-EX");
  EXPECT_TRUE(Set(MDF_CompoundType, std::string(300, 't').c_str()));
  EXPECT_EQ(Get(MDF_CompoundType).size(), 254u);
  EXPECT_TRUE(Set(MDF_TargetTrace2, "ch1>2"));
  EXPECT_EQ(record.GetTargetTrace(2), "ch1>2");
  EXPECT_EQ(Get(MDF_TargetTrace2), "ch1>2");
  EXPECT_TRUE(Set(MDF_NoisePeakMethod, "Manual"));
  EXPECT_EQ(Get(MDF_NoisePeakMethod), "Manual");
  EXPECT_TRUE(Set(MDF_Text, nullptr));
  EXPECT_EQ(Get(MDF_Text), "");
  EXPECT_EQ(number, 0.0);  // texts leave the number at 0
}

TEST_F(MethodFieldsTest, MassListInBothDirections) {
  EXPECT_TRUE(Set(MDF_MassIntData, "100,5\n200,7"));
  EXPECT_EQ(Get(MDF_MassIntData), "100,5\n200,7");
  std::string full;
  for (int i = 0; i < 50; ++i) full += (i ? "\n" : "") + std::to_string(-2147483647 + i) + ",-2147483648";
  record.GetRecord().MassIntData[0][0] = 1;
  EXPECT_TRUE(Set(MDF_MassIntData, full.c_str()));
  EXPECT_EQ(Get(MDF_MassIntData), "");  // negative masses are not listed
  for (auto& pair : record.GetRecord().MassIntData) pair[0] = 2147483647;
  EXPECT_EQ(Get(MDF_MassIntData).size(), 50u * 23u - 1u);
}

TEST_F(MethodFieldsTest, NumbersWithTenDecimals) {
  EXPECT_EQ(Get(MDF_ChroMassWindowABS), "0.0199999996");
  EXPECT_EQ(number, 0.0199999995529651641845703125);
  EXPECT_EQ(Get(MDF_SmooIter), "1.0000000000");
  EXPECT_EQ(number, 1.0);
  EXPECT_EQ(Get(MDF_MaxRecovery), "100.0000000000");

  EXPECT_TRUE(Set(MDF_SmooIter, "1.9999"));  // integers take leading digits
  EXPECT_EQ(record.GetSmooIter(), 1);
  EXPECT_TRUE(Set(MDF_SmooWidth, "  -12abc"));
  EXPECT_EQ(record.GetSmooWidth(), -12);
  EXPECT_TRUE(Set(MDF_PkBalance, "2.5e1"));
  EXPECT_EQ(record.GetPkBalance(), 25.0f);
  EXPECT_TRUE(Set(MDF_StdConc, "+0.125"));
  EXPECT_EQ(record.GetStdConc(), 0.125);
  EXPECT_TRUE(Set(MDF_IStd3, "4"));
  EXPECT_EQ(record.GetIStd(3), 4);
  EXPECT_EQ(Get(MDF_TargetRef1), "-1.0000000000");

  // Not a number: 0. Out of range: clamped integers, infinite reals.
  EXPECT_TRUE(Set(MDF_StdConc, "abc"));
  EXPECT_EQ(record.GetStdConc(), 0.0);
  EXPECT_TRUE(Set(MDF_SmooWidth, "99999999999999999999"));
  EXPECT_EQ(record.GetSmooWidth(), INT_MAX);
  EXPECT_TRUE(Set(MDF_SmooWidth, "-99999999999"));
  EXPECT_EQ(record.GetSmooWidth(), INT_MIN);
  EXPECT_TRUE(Set(MDF_PkBalance, "1e300"));
  EXPECT_TRUE(std::isinf(record.GetPkBalance()));
  EXPECT_TRUE(Set(MDF_StdConc, "-1e999"));
  EXPECT_EQ(record.GetStdConc(), -INFINITY);
  record.SetStdConc(1e308);
  EXPECT_EQ(Get(MDF_StdConc).size(), 309u + 11u);
}

TEST_F(MethodFieldsTest, CraigCorrectionElementComesFromTheIndex) {
  EXPECT_TRUE(Set(MDF_CraigCorrection, "1.5", 2));
  EXPECT_EQ(record.GetCraigCorrection(2), 1.5);
  EXPECT_EQ(Get(MDF_CraigCorrection, 2), "1.5000000000");
  EXPECT_EQ(Get(MDF_CraigCorrection, 0), "0.0000000000");
  EXPECT_TRUE(Set(MDF_CraigCorrection, "7", 3));
  EXPECT_EQ(Get(MDF_CraigCorrection, 3), "0.0000000000");
}

TEST_F(MethodFieldsTest, YesNoOnlyExactNoIsOff) {
  EXPECT_EQ(Get(MDF_ChroMassWindowAbs), "YES");
  EXPECT_EQ(number, 0.0);
  EXPECT_TRUE(Set(MDF_SmooEnabled, "NO"));
  EXPECT_EQ(record.GetSmooEnabled(), 0);
  EXPECT_EQ(Get(MDF_SmooEnabled), "NO");
  for (const char* on : {"0", "no", "", "YES"}) {
    record.SetSmooEnabled(0);
    EXPECT_TRUE(Set(MDF_SmooEnabled, on));
    EXPECT_EQ(record.GetSmooEnabled(), 1) << on;
  }
  record.SetMonitorQCRTEnabled(7);
  EXPECT_EQ(Get(MDF_MonitorQCRTEnabled), "YES");
  EXPECT_TRUE(Set(MDF_TargetMustPass3, "NO"));
  EXPECT_TRUE(Set(MDF_RatioTargetByPrimaryFlag1, "YES"));
  EXPECT_EQ(record.GetRatioTargetByPrimaryFlag(1), 1);
  // From 330 on, on/off fields are plain numbers.
  EXPECT_EQ(Get(MDF_AlwaysPrint), "1.0000000000");
}

TEST_F(MethodFieldsTest, PeakModeIsYesForFiveOnly) {
  EXPECT_EQ(Get(MDF_PkMode), "NO");
  EXPECT_TRUE(Set(MDF_PkMode, "YES"));
  EXPECT_EQ(record.GetPkMode(), 5);
  EXPECT_EQ(Get(MDF_PkMode), "YES");
  EXPECT_TRUE(Set(MDF_PkMode, "yes"));
  EXPECT_EQ(record.GetPkMode(), -1);
}

TEST_F(MethodFieldsTest, OptionBitsKeepTheirStorageSense) {
  EXPECT_TRUE(Set(MDF_PkWatOption1, "0"));
  EXPECT_EQ(record.GetPkWatOperations(), 1);
  EXPECT_EQ(Get(MDF_PkWatOption1), "0");
  EXPECT_EQ(Get(MDF_PkWatOption2), "1");
  EXPECT_TRUE(Set(MDF_PkWatOption4, "yes"));
  EXPECT_EQ(record.GetPkWatOperations(), 5);
  EXPECT_TRUE(Set(MDF_PkWatOption1, "1"));
  EXPECT_EQ(record.GetPkWatOperations(), 4);
  EXPECT_EQ(record.GetWatOpField(MDF_PkWatOption4), "1");

  // Default 10: masks 2 and 8 set.
  EXPECT_EQ(Get(MDF_PkThreshOption2) + Get(MDF_PkThreshOption1) + Get(MDF_PkThreshOption8) +
                Get(MDF_PkThreshOption4),
            "1010");
  EXPECT_TRUE(Set(MDF_PkThreshOption8, "0"));
  EXPECT_TRUE(Set(MDF_PkThreshOption4, ""));
  EXPECT_EQ(record.GetPkThreshMethod(), 2 | 4);

  record.SetWatOpField("0", 118);
  record.SetThresholdField("0", 126);
  EXPECT_EQ(record.GetPkWatOperations(), 4);
  EXPECT_EQ(record.GetPkThreshMethod(), 6);
  EXPECT_EQ(record.GetWatOpField(122), "0");
  EXPECT_EQ(record.GetThresholdField(121), "0");
}

TEST_F(MethodFieldsTest, TracesAndFlagBitsAsYesNo) {
  EXPECT_EQ(Get(MDF_UseTrace1), "YES");
  EXPECT_EQ(Get(MDF_UseTrace2), "NO");
  EXPECT_TRUE(Set(MDF_UseTrace5, "YES"));
  EXPECT_TRUE(Set(MDF_UseTrace1, "NO"));
  EXPECT_EQ(record.GetQuantificationTraces(), 16);

  EXPECT_TRUE(Set(MDF_SigNoiseFlag, "YES"));
  EXPECT_TRUE(Set(MDF_RTToleranceFlag, "x"));
  EXPECT_TRUE(Set(MDF_ReportLimitFlag, "YES"));
  EXPECT_EQ(record.GetTargetFlags(), 1 | 64 | 512);
  EXPECT_TRUE(Set(MDF_ReportLimitFlag, "NO"));
  EXPECT_EQ(Get(MDF_ReportLimitFlag), "NO");
  EXPECT_EQ(Get(MDF_RTToleranceFlag), "YES");
}

TEST_F(MethodFieldsTest, RRefIsTheFirstStandardPlusOne) {
  EXPECT_EQ(Get(MDF_RRef), "0.0000000000");
  EXPECT_TRUE(Set(MDF_RRef, "3"));
  EXPECT_EQ(record.GetIStd(0), 2);
  EXPECT_EQ(Get(MDF_RRef), "3.0000000000");
  EXPECT_EQ(number, 3.0);
}

TEST_F(MethodFieldsTest, ReadOnlyAndUnassignedNumbers) {
  record.SetCorrectedResponse(2.5);
  EXPECT_EQ(Get(MDF_CorrectedResponse), "2.5000000000");
  EXPECT_TRUE(ok);
  EXPECT_EQ(number, 2.5);
  EXPECT_FALSE(Set(MDF_CorrectedResponse, "1"));
  EXPECT_FALSE(Set(MDF_AbsCorrectedResponse, "1"));
  EXPECT_EQ(record.GetCorrectedResponse(), 2.5);

  record.SetMonitorBlankUseConc(1);
  record.SetPredRT(1.5f);
  EXPECT_EQ(Get(MDF_MonitorBlankUseConcView), "YES");
  EXPECT_EQ(Get(MDF_PredRTView), "1.5000000000");
  for (int field : {MDF_MonitorBlankUseConcView, MDF_PredRTView, MDF_PredRRTView}) {
    EXPECT_FALSE(Set(field, "NO"));
  }
  EXPECT_EQ(record.GetMonitorBlankUseConc(), 1);

  for (int field : {50, 185, 188, 189, 320, 348, -1, 100000}) {
    EXPECT_FALSE(Set(field, "1")) << field;
    EXPECT_EQ(Get(field), "") << field;
    EXPECT_FALSE(ok) << field;
    EXPECT_EQ(number, 0.0) << field;
  }
}

TEST_F(MethodFieldsTest, MonitorStandardMaxActionAlsoSetsAsymmetryPropagate) {
  EXPECT_TRUE(Set(MDF_MonitorStandardMaxAction, "2"));
  EXPECT_EQ(record.GetMonitorStandardMaxAction(), 2);
  EXPECT_EQ(record.GetAsymmetryPropagate(), 1);
  EXPECT_TRUE(Set(MDF_MonitorStandardMaxAction, "NO"));
  EXPECT_EQ(record.GetMonitorStandardMaxAction(), 0);
  EXPECT_EQ(record.GetAsymmetryPropagate(), 0);
}

}  // namespace
}  // namespace kvdao
