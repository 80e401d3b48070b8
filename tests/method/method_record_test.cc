// The method record: layout and defaults against the stored format, copies,
// text setters and their bounds, array accessors, flag views and the
// whole-record operations.

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "kvdao/method/method_record.h"
#include "method_layout.h"

namespace kvdao {
namespace {

using test::kMethodLayout;
using test::Type;

template <typename T>
T At(const CMethodRecord& record, std::size_t offset) {
  T value;
  std::memcpy(&value, reinterpret_cast<const char*>(record.GetData()) + offset, sizeof value);
  return value;
}

std::size_t ElementSize(const test::LayoutEntry& entry) {
  switch (entry.type) {
    case Type::kF64: return 8;
    case Type::kText: return static_cast<std::size_t>(entry.width);
    default: return 4;
  }
}

TEST(MethodRecordLayoutTest, FieldsAreContiguousAndEndAt3504) {
  std::size_t next = 0;
  for (const auto& entry : kMethodLayout) {
    EXPECT_EQ(entry.offset, next) << entry.name;
    if (entry.type == Type::kF64) {
      EXPECT_EQ(entry.offset % 8, 0u) << entry.name;
    }
    next = entry.offset + ElementSize(entry) * static_cast<std::size_t>(entry.count);
  }
  EXPECT_EQ(next, 3504u);
  EXPECT_EQ(sizeof(tagINTERNAL_METHOD), 3504u);
  EXPECT_EQ(CMethodRecord::GetBlockSize(), 3504);
}

TEST(MethodRecordLayoutTest, DefaultRecordHoldsEveryDefaultAtItsOffset) {
  CMethodRecord record;
  for (const auto& entry : kMethodLayout) {
    for (int k = 0; k < entry.count; ++k) {
      std::size_t offset = entry.offset + ElementSize(entry) * static_cast<std::size_t>(k);
      switch (entry.type) {
        case Type::kI32:
          EXPECT_EQ(At<std::int32_t>(record, offset), static_cast<std::int32_t>(entry.value)) << entry.name;
          break;
        case Type::kReserved:
          EXPECT_EQ(At<std::int32_t>(record, offset), 0) << entry.name;
          break;
        case Type::kF32:
          EXPECT_EQ(At<float>(record, offset), static_cast<float>(entry.value)) << entry.name;
          break;
        case Type::kF64:
          EXPECT_EQ(At<double>(record, offset), entry.value) << entry.name;
          break;
        case Type::kText: {
          const char* text = reinterpret_cast<const char*>(record.GetData()) + offset;
          EXPECT_STREQ(text, entry.text) << entry.name;
          // The rest of the buffer is zero.
          for (int i = static_cast<int>(std::strlen(entry.text)); i < entry.width; ++i) {
            ASSERT_EQ(text[i], 0) << entry.name << " byte " << i;
          }
          break;
        }
      }
    }
  }
}

TEST(MethodRecordLayoutTest, DefaultsSeenThroughTheAccessors) {
  CMethodRecord record;
  EXPECT_EQ(record.GetName(), "New Compound");
  EXPECT_EQ(record.GetCalCompound(), "New Compound");
  EXPECT_EQ(record.GetMonitorStandardAction(), 0);
  EXPECT_EQ(record.GetMonitorBlankAction(), 1);
  EXPECT_EQ(record.GetRRef(), 0);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(record.GetIStd(i), -1);
  EXPECT_EQ(record.GetUseTrace(1), 1);
  EXPECT_FLOAT_EQ(record.GetChroMassWindowABS(), 0.02f);
  EXPECT_DOUBLE_EQ(record.GetIFITNThreshold(), 0.005);
}

TEST(MethodRecordTest, CopiesAreDeepAndNullSourcesGiveDefaults) {
  CMethodRecord original;
  original.SetName(std::string("Atrazine"));
  original.SetIStd(2, 7);

  CMethodRecord byReference(original);
  CMethodRecord byPointer(&original);
  CMethodRecord byStruct(original.GetRecord());
  CMethodRecord* heap = CMethodRecord::CreateRecord(&original);
  original.SetName(std::string("Changed"));
  for (const CMethodRecord* copy : {&byReference, &byPointer, &byStruct, heap}) {
    EXPECT_NE(copy->GetData(), original.GetData());
    EXPECT_EQ(copy->GetName(), "Atrazine");
    EXPECT_EQ(copy->GetIStd(2), 7);
  }
  CMethodRecord::ReleaseRecord(heap);

  CMethodRecord assigned;
  assigned = original;
  EXPECT_EQ(std::memcmp(assigned.GetData(), original.GetData(), 3504), 0);
  assigned = byStruct.GetRecord();
  EXPECT_EQ(assigned.GetName(), "Atrazine");

  CMethodRecord fromNull(static_cast<const CMethodRecord*>(nullptr));
  CMethodRecord defaults;
  EXPECT_EQ(std::memcmp(fromNull.GetData(), defaults.GetData(), 3504), 0);
  assigned.SetRecord(nullptr);
  EXPECT_EQ(std::memcmp(assigned.GetData(), defaults.GetData(), 3504), 0);

  std::unique_ptr<CRecord> created(CMethodRecord::CreateInstance());
  EXPECT_STREQ(created->GetClassName(), "CMethodRecord");
}

TEST(MethodRecordTest, StringSettersKeepTheirWidths) {
  CMethodRecord record;
  record.SetName(std::string(100, 'n'));
  EXPECT_EQ(record.GetName(), std::string(80, 'n'));
  record.SetCas(std::string(20, 'c'));
  EXPECT_EQ(record.GetCas(), std::string(12, 'c'));
  record.SetRepUnits(std::string(20, 'u'));
  EXPECT_EQ(record.GetRepUnits(), std::string(15, 'u'));
  record.SetFlags(std::string(11, 'f'));
  EXPECT_EQ(record.GetFlags(), std::string(8, 'f'));
  record.SetAdductMass(std::string(21, 'a'));
  EXPECT_EQ(record.GetAdductMass(), std::string(18, 'a'));
  record.SetCompoundType(std::string(300, 't'));
  EXPECT_EQ(record.GetCompoundType(), std::string(254, 't'));
  record.SetTotalsGroup(std::string(300, 'g'));
  EXPECT_EQ(std::string(record.GetTotalsGroupByRef()), std::string(254, 'g'));
  record.SetCalCompound(std::string(90, 'k'));
  EXPECT_EQ(record.GetCalCompound(), std::string(80, 'k'));
  record.SetTargetTrace(3, std::string(90, 'x'));
  EXPECT_EQ(record.GetTargetTrace(3), std::string(80, 'x'));
  EXPECT_EQ(record.GetTargetTrace(4), "");
  EXPECT_EQ(record.GetTargetTraceByRef(-1), nullptr);
  EXPECT_STREQ(record.GetTargetTraceLPCTSTR(9), "");
}

TEST(MethodRecordTest, PointerSettersCopyTheirByteBoundsWithinTheRecord) {
  CMethodRecord record;
  record.SetName(std::string(90, 'n').c_str());
  EXPECT_EQ(record.GetName(), std::string(80, 'n'));  // byte 80 kept its zero
  record.SetName("Short");
  EXPECT_STREQ(record.GetNameLPCTSTR(), "Short");

  // The CAS bound is wider than its buffer: a long value runs on into Text.
  record.SetText(std::string("remark"));
  record.SetCas(std::string(20, 'c').c_str());
  EXPECT_EQ(record.GetCas(), std::string(20, 'c'));
  EXPECT_EQ(record.GetText(), std::string(7, 'c'));

  // NoisePeakMethod has no bound: it overwrites the fields behind it, but
  // stops at the end of the record and keeps its last byte for the end.
  std::string huge(5000, 'p');
  record.SetNoisePeakMethod(huge.c_str());
  EXPECT_EQ(record.GetNoisePeakMethod().size(), 3504u - 2864u - 1u);
  EXPECT_EQ(reinterpret_cast<const char*>(record.GetData())[3503], '\0');
  EXPECT_NE(record.GetPropagateDetectionLimit(), 0);
  record.SetNoisePeakMethod("Auto");
  EXPECT_EQ(record.GetNoisePeakMethod(), "Auto");
  record.SetQuanTrace(static_cast<const char*>(nullptr));
  EXPECT_EQ(record.GetQuanTrace(), "");
}

TEST(MethodRecordTest, ArrayAccessorsCheckTheirIndexes) {
  CMethodRecord record;
  record.SetIStd(6, 3);
  record.SetTargetRef(-1, 3);
  record.SetToxicEquiv(4, 1.0);
  EXPECT_EQ(record.GetIStd(6), -1);
  EXPECT_EQ(record.GetTargetRef(4), -1);
  EXPECT_EQ(record.GetTargetWindow(4), 0);
  EXPECT_EQ(record.GetTargetMustExist(-1), 0);
  EXPECT_EQ(record.GetTargetMustPass(4), 0);
  EXPECT_EQ(record.GetRatioTargetByPrimaryFlag(4), 0);
  EXPECT_EQ(record.GetCraigCorrection(3), 0.0);
  EXPECT_EQ(record.GetToxicEquiv(4), 0.0);
  EXPECT_EQ(record.GetTargetRatio(4), 0.0f);

  record.SetCraigCorrection(2, 1.5);
  record.SetTargetRatio(3, 2.5f);
  record.SetRatioTargetByPrimaryFlag(1, 1);
  EXPECT_EQ(record.GetCraigCorrection(2), 1.5);
  EXPECT_EQ(record.GetTargetRatio(3), 2.5f);
  EXPECT_EQ(record.GetRatioTargetByPrimaryFlag(1), 1);

  // TargetRTWin: the setter writes its element, the getter always reads
  // element 0 (after checking the index).
  record.SetTargetRTWin(0, 0.5f);
  record.SetTargetRTWin(2, 0.75f);
  EXPECT_EQ(record.GetRecord().TargetRTWin[2], 0.75f);
  EXPECT_EQ(record.GetTargetRTWin(2), 0.5f);
  EXPECT_EQ(record.GetTargetRTWin(4), 0.0f);
}

TEST(MethodRecordTest, FlagViewsSetAndClearOneBitEach) {
  CMethodRecord record;
  record.SetSigNoiseFlag(1);
  record.SetSigNoiseFlag(1);
  EXPECT_EQ(record.GetTargetFlags(), 1);
  record.SetCoeffDetFlag(0);
  EXPECT_EQ(record.GetTargetFlags(), 1);
  record.SetRecoveryFlag(5);
  record.SetRTToleranceFlag(1);
  record.SetMaxStdDevFlag(1);
  EXPECT_EQ(record.GetTargetFlags(), 1 | 16 | 512 | 256);
  EXPECT_EQ(record.GetRecoveryFlag(), 1);
  record.SetRTToleranceFlag(0);
  record.SetSigNoiseFlag(0);
  EXPECT_EQ(record.GetTargetFlags(), 16 | 256);
  EXPECT_EQ(record.GetRTToleranceFlag(), 0);
  EXPECT_EQ(record.GetPeakWidthFlag() + record.GetConcLimitFlag() + record.GetReportLimitFlag(), 0);

  record.SetUseTrace(4, 1);
  EXPECT_EQ(record.GetQuantificationTraces(), 5);
  record.SetUseTrace(1, 0);
  EXPECT_EQ(record.GetUseTrace(1), 0);
  EXPECT_EQ(record.GetUseTrace(6), 1);

  record.SetRRef(1);
  EXPECT_EQ(record.GetIStd(0), 0);
  EXPECT_EQ(record.GetRRef(), 1);
}

TEST(MethodRecordTest, MassIntDataAsText) {
  CMethodRecord record;
  record.SetMassIntData("100,5\n200,7");
  EXPECT_EQ(record.GetRecord().MassIntData[1][0], 200);
  EXPECT_EQ(record.GetMassIntData(), "100,5\n200,7");
  std::string text = "head";
  record.GetMassIntData(text);
  EXPECT_EQ(text, "head\n100,5\n200,7");

  // Tabs and empty pieces; a zero mass is not listed; later pairs keep their
  // values when fewer are written.
  record.SetMassIntData(std::string("300,\t9,,0,4\n"));
  EXPECT_EQ(record.GetRecord().MassIntData[1][1], 4);
  EXPECT_EQ(record.GetMassIntData(), "300,9");

  std::string many;
  for (int i = 1; i <= 51; ++i) many += std::to_string(i) + "," + std::to_string(i) + "\n";
  record.SetMassIntData(many);
  EXPECT_EQ(record.GetRecord().MassIntData[49][0], 50);
  EXPECT_EQ(record.GetMassIntData().find("51,51"), std::string::npos);

  record.SetMassIntData("");
  for (const auto& pair : record.GetRecord().MassIntData) EXPECT_EQ(pair[0] | pair[1], 0);
}

class FixInternalStandardsTest : public ::testing::Test {
 protected:
  void Set(std::initializer_list<int> values) {
    int i = 0;
    for (int value : values) record.SetIStd(i++, value);
  }
  std::vector<int> IStd() const {
    std::vector<int> values;
    for (int i = 0; i < 6; ++i) values.push_back(record.GetIStd(i));
    return values;
  }
  CMethodRecord record;
};

TEST_F(FixInternalStandardsTest, CompactsAndCountsWithInternalStandardCalculation) {
  record.SetRCalc(1);
  Set({-1, 4, -1, 2, -1, -1});
  record.FixInternalStandards();
  EXPECT_EQ(IStd(), (std::vector<int>{4, 2, -1, -1, -1, -1}));
  EXPECT_EQ(record.GetUseMulti(), 1);
}

TEST_F(FixInternalStandardsTest, TwoEmptyEntriesInARowLeaveOneInPlace) {
  record.SetRCalc(1);
  Set({-1, -1, 4, -1, -1, -1});
  record.FixInternalStandards();
  EXPECT_EQ(IStd(), (std::vector<int>{-1, 4, -1, -1, -1, -1}));
  EXPECT_EQ(record.GetUseMulti(), 0);

  Set({-1, -1, 4, -1, -1, -1});
  record.GetRecord().IStdNumber = 3;
  record.FixInternalStandards();
  EXPECT_EQ(IStd(), (std::vector<int>{2, 4, -1, -1, -1, -1}));
}

TEST_F(FixInternalStandardsTest, WithoutInternalStandardCalculationClearsAll) {
  record.SetRCalc(0);
  Set({-1, 4, -1, 2, -1, -1});
  record.SetUseMulti(1);
  record.FixInternalStandards();
  EXPECT_EQ(IStd(), std::vector<int>(6, -1));
  EXPECT_EQ(record.GetUseMulti(), 0);
}

TEST(MethodRecordTest, ResetReferencesClearsLinksToOtherRecords) {
  CMethodRecord record;
  record.SetName(std::string("Simazine"));
  record.SetIStd(0, 3);
  record.SetTargetRef(1, 2);
  record.SetRRTRef(4);
  record.SetIonRatioRef(5);
  record.SetCalCompound(std::string("Other"));
  record.ResetReferences();
  EXPECT_EQ(record.GetIStd(0), -1);
  EXPECT_EQ(record.GetTargetRef(1), -1);
  EXPECT_EQ(record.GetRRTRef() + record.GetIonRatioRef(), 0);
  EXPECT_EQ(record.GetCalCompound(), "Simazine");
}

TEST(MethodRecordTest, IsMemberOfComparesGroupWords) {
  CMethodRecord record;
  EXPECT_FALSE(record.IsMemberOf(""));
  EXPECT_FALSE(record.IsMemberOf("PAH"));
  record.SetTotalsGroup(std::string("PAH, Dioxins"));
  EXPECT_TRUE(record.IsMemberOf("dioxins"));
  EXPECT_TRUE(record.IsMemberOf("PCB;pah"));
  EXPECT_FALSE(record.IsMemberOf("PCB Dioxin"));
  EXPECT_FALSE(record.IsMemberOf(" , ;"));
}

TEST(MethodRecordTest, ByteArrayFormCarriesTheRecordAndNormalisesStandards) {
  CMethodRecord record;
  record.SetName(std::string("Bytes"));
  record.SetRCalc(1);
  record.SetIStd(1, 4);
  std::shared_ptr<ByteArray> bytes = record.WriteAsSafeArray();
  ASSERT_TRUE(bytes);
  ASSERT_EQ(bytes->size(), 3504u);
  EXPECT_EQ(std::memcmp(bytes->data(), record.GetData(), 3504), 0);

  CMethodRecord copy;
  EXPECT_TRUE(copy.ReadFromSafeArray(bytes));
  EXPECT_EQ(copy.GetName(), "Bytes");
  EXPECT_EQ(copy.GetIStd(0), 4);  // compacted on the way in
  EXPECT_EQ(copy.GetIStd(1), -1);

  CMethodRecord untouched;
  EXPECT_FALSE(untouched.ReadFromSafeArray(nullptr));
  EXPECT_FALSE(untouched.ReadFromSafeArray(std::make_shared<ByteArray>(3503, 1)));
  EXPECT_EQ(untouched.GetName(), "New Compound");
}

}  // namespace
}  // namespace kvdao
