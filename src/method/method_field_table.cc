// The field-by-number table. One line per MethodDataFields number, in order.

#include "method_field_table.h"

#include "kvdao/method/internal_method.h"

namespace kvdao::method_fields {
namespace {

constexpr std::uint16_t At(std::size_t offset) { return static_cast<std::uint16_t>(offset); }

}  // namespace

const FieldInfo kFieldTable[MDF_Count] = {
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, Version)), 0},  // 0 Version
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, Name)), 80},  // 1 Name
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, Cas)), 12},  // 2 Cas
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, Text)), 120},  // 3 Text
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, RepUnits)), 15},  // 4 RepUnits
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, UserValue1)), 0},  // 5 UserValue1
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, UserValue2)), 0},  // 6 UserValue2
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, Flags)), 8},  // 7 Flags
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RawAcquisitionFunction)), 0},  // 8 RawAcquisitionFunction
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, QuanTrace)), 80},  // 9 QuanTrace
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, SecondaryTrace)), 80},  // 10 SecondaryTrace
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, ChroMassWindowABS)), 0},  // 11 ChroMassWindowABS
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, ChroMassWindowPPM)), 0},  // 12 ChroMassWindowPPM
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ChroMassWindowAbs)), 0},  // 13 ChroMassWindowAbs
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, IntegrateWin)), 0},  // 14 IntegrateWin
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, ChroNoiseLevel)), 0},  // 15 ChroNoiseLevel
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, SmooEnabled)), 0},  // 16 SmooEnabled
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, SmooMethod)), 0},  // 17 SmooMethod
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, SmooIter)), 0},  // 18 SmooIter
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, SmooWidth)), 0},  // 19 SmooWidth
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkBalance)), 0},  // 20 PkBalance
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkSplitting)), 0},  // 21 PkSplitting
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkShldrDetect)), 0},  // 22 PkShldrDetect
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkShldrThresh)), 0},  // 23 PkShldrThresh
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkReduceTail)), 0},  // 24 PkReduceTail
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkMaxReduceHt)), 0},  // 25 PkMaxReduceHt
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkWatThreshold)), 0},  // 26 PkWatThreshold
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkWatWidth)), 0},  // 27 PkWatWidth
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkWatUpThreshold)), 0},  // 28 PkWatUpThreshold
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkWatDownThreshold)), 0},  // 29 PkWatDownThreshold
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkWatOperations)), 0},  // 30 PkWatOperations
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkThreshMethod)), 0},  // 31 PkThreshMethod
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkRespAreaRel)), 0},  // 32 PkRespAreaRel
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkRespAreaAbs)), 0},  // 33 PkRespAreaAbs
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkRespHeightRel)), 0},  // 34 PkRespHeightRel
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkRespHeightAbs)), 0},  // 35 PkRespHeightAbs
    {FieldKind::kPeakMode, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkMode)), 0},  // 36 PkMode
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropagateIntegrate)), 0},  // 37 PropagateIntegrate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropagateGeneral)), 0},  // 38 PropagateGeneral
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropagateSecondary)), 0},  // 39 PropagateSecondary
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PkExtentWin)), 0},  // 40 PkExtentWin
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MatThresh)), 0},  // 41 MatThresh
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ForThresh)), 0},  // 42 ForThresh
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RevThresh)), 0},  // 43 RevThresh
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, AreaThresh)), 0},  // 44 AreaThresh
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, HeightThresh)), 0},  // 45 HeightThresh
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, LocateBy)), 0},  // 46 LocateBy
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PredRT)), 0},  // 47 PredRT
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PredRRT)), 0},  // 48 PredRRT
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, LocateRTWin)), 0},  // 49 LocateRTWin
    {FieldKind::kUnassigned, Scalar::kNone, At(0), 0},  // 50 Unassigned50
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RRTRef)), 0},  // 51 RRTRef
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PredResp)), 0},  // 52 PredResp
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, LocateRespWin)), 0},  // 53 LocateRespWin
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, LocateChoice)), 0},  // 54 LocateChoice
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RAH)), 0},  // 55 RAH
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RCalc)), 0},  // 56 RCalc
    {FieldKind::kRRef, Scalar::kInt, At(0), 0},  // 57 RRef
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ResponseInclude)), 0},  // 58 ResponseInclude
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, RSubX)), 0},  // 59 RSubX
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, RSubY)), 0},  // 60 RSubY
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, StdConc)), 0},  // 61 StdConc
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, StdLevels)), 0},  // 62 StdLevels
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, CCalc)), 0},  // 63 CCalc
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, XYTrans)), 0},  // 64 XYTrans
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ZeroResp)), 0},  // 65 ZeroResp
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, Origin)), 0},  // 66 Origin
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, WeightingFunction)), 0},  // 67 WeightingFunction
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MinArea)), 0},  // 68 MinArea
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MinHeight)), 0},  // 69 MinHeight
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, DetectionThreshold)), 0},  // 70 DetectionThreshold
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, QuantitationThreshold)), 0},  // 71 QuantitationThreshold
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, LinearityLimit)), 0},  // 72 LinearityLimit
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, CarryOverThreshold)), 0},  // 73 CarryOverThreshold
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, CCThreshold)), 0},  // 74 CCThreshold
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, IonRatio)), 0},  // 75 IonRatio
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IonRatioWin)), 0},  // 76 IonRatioWin
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IonRatioRef)), 0},  // 77 IonRatioRef
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, SecondaryMustExist)), 0},  // 78 SecondaryMustExist
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, SecondaryMustPassRatio)), 0},  // 79 SecondaryMustPassRatio
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, UserRatio)), 0},  // 80 UserRatio
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, UserRFMode)), 0},  // 81 UserRFMode
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, UserRF)), 0},  // 82 UserRF
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, UserFactor)), 0},  // 83 UserFactor
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TotalsInclude)), 0},  // 84 TotalsInclude
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TotalsCalibration)), 0},  // 85 TotalsCalibration
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, TotalsGroup)), 254},  // 86 TotalsGroup
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IntenSum)), 0},  // 87 IntenSum
    {FieldKind::kMassList, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MassIntData)), 0},  // 88 MassIntData
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, LocateMass)), 0},  // 89 LocateMass
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, LocateMassWin)), 0},  // 90 LocateMassWin
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PredST)), 0},  // 91 PredST
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PredET)), 0},  // 92 PredET
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, UseAllScans)), 0},  // 93 UseAllScans
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, AtomicNumber)), 0},  // 94 AtomicNumber
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TopOfRatio)), 0},  // 95 TopOfRatio
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, BottomOfRatio)), 0},  // 96 BottomOfRatio
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, RatioValue)), 0},  // 97 RatioValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ReportInSummary)), 0},  // 98 ReportInSummary
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ReportInSample)), 0},  // 99 ReportInSample
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MajorPeak)), 0},  // 100 MajorPeak
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TimeSlip)), 0},  // 101 TimeSlip
    {FieldKind::kIndexedNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, CraigCorrection)), 3},  // 102 CraigCorrection
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ToxicEquiv)), 0},  // 103 ToxicEquiv0
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ToxicEquiv) + 8), 0},  // 104 ToxicEquiv1
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ToxicEquiv) + 16), 0},  // 105 ToxicEquiv2
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ToxicEquiv) + 24), 0},  // 106 ToxicEquiv3
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, UseEMPC)), 0},  // 107 UseEMPC
    {FieldKind::kReadOnlyNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, CorrectedResponse)), 0},  // 108 CorrectedResponse
    {FieldKind::kReadOnlyNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, AbsCorrectedResponse)), 0},  // 109 AbsCorrectedResponse
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IStd)), 0},  // 110 IStd0
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IStd) + 4), 0},  // 111 IStd1
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IStd) + 8), 0},  // 112 IStd2
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IStd) + 12), 0},  // 113 IStd3
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IStd) + 16), 0},  // 114 IStd4
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IStd) + 20), 0},  // 115 IStd5
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MoleRatio)), 0},  // 116 MoleRatio
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, UnlabelledRatio)), 0},  // 117 UnlabelledRatio
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, LabelledRatio)), 0},  // 118 LabelledRatio
    {FieldKind::kWatOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkWatOperations)), 1},  // 119 PkWatOption1
    {FieldKind::kWatOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkWatOperations)), 2},  // 120 PkWatOption2
    {FieldKind::kWatOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkWatOperations)), 4},  // 121 PkWatOption4
    {FieldKind::kThreshOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkThreshMethod)), 2},  // 122 PkThreshOption2
    {FieldKind::kThreshOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkThreshMethod)), 1},  // 123 PkThreshOption1
    {FieldKind::kThreshOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkThreshMethod)), 8},  // 124 PkThreshOption8
    {FieldKind::kThreshOption, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PkThreshMethod)), 4},  // 125 PkThreshOption4
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ChroAuto)), 0},  // 126 ChroAuto
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, TargetTrace)), 80},  // 127 TargetTrace0
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, TargetTrace) + 81), 80},  // 128 TargetTrace1
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, TargetTrace) + 162), 80},  // 129 TargetTrace2
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, TargetTrace) + 243), 80},  // 130 TargetTrace3
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRatio)), 0},  // 131 TargetRatio0
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRatio) + 4), 0},  // 132 TargetRatio1
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRatio) + 8), 0},  // 133 TargetRatio2
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRatio) + 12), 0},  // 134 TargetRatio3
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetWindow)), 0},  // 135 TargetWindow0
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetWindow) + 4), 0},  // 136 TargetWindow1
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetWindow) + 8), 0},  // 137 TargetWindow2
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetWindow) + 12), 0},  // 138 TargetWindow3
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetRef)), 0},  // 139 TargetRef0
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetRef) + 4), 0},  // 140 TargetRef1
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetRef) + 8), 0},  // 141 TargetRef2
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetRef) + 12), 0},  // 142 TargetRef3
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRTWin)), 0},  // 143 TargetRTWin0
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRTWin) + 4), 0},  // 144 TargetRTWin1
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRTWin) + 8), 0},  // 145 TargetRTWin2
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, TargetRTWin) + 12), 0},  // 146 TargetRTWin3
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustExist)), 0},  // 147 TargetMustExist0
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustExist) + 4), 0},  // 148 TargetMustExist1
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustExist) + 8), 0},  // 149 TargetMustExist2
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustExist) + 12), 0},  // 150 TargetMustExist3
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustPass)), 0},  // 151 TargetMustPass0
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustPass) + 4), 0},  // 152 TargetMustPass1
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustPass) + 8), 0},  // 153 TargetMustPass2
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetMustPass) + 12), 0},  // 154 TargetMustPass3
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MinSigNoise)), 0},  // 155 MinSigNoise
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 1},  // 156 SigNoiseFlag
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MinCoeffDet)), 0},  // 157 MinCoeffDet
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 2},  // 158 CoeffDetFlag
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakWidth)), 0},  // 159 PeakWidth
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakWidthTol)), 0},  // 160 PeakWidthTol
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 4},  // 161 PeakWidthFlag
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, BlankAcceptance)), 0},  // 162 BlankAcceptance
    {FieldKind::kReadOnlyYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankUseConc)), 0},  // 163 MonitorBlankUseConcView
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MinRecovery)), 0},  // 164 MinRecovery
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MaxRecovery)), 0},  // 165 MaxRecovery
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 16},  // 166 RecoveryFlag
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MaxConcLimit)), 0},  // 167 MaxConcLimit
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 32},  // 168 ConcLimitFlag
    {FieldKind::kTraceInUse, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, QuantificationTraces)), 1},  // 169 UseTrace1
    {FieldKind::kTraceInUse, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, QuantificationTraces)), 2},  // 170 UseTrace2
    {FieldKind::kTraceInUse, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, QuantificationTraces)), 4},  // 171 UseTrace3
    {FieldKind::kTraceInUse, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, QuantificationTraces)), 8},  // 172 UseTrace4
    {FieldKind::kTraceInUse, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, QuantificationTraces)), 16},  // 173 UseTrace5
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, NoiseFactor)), 0},  // 174 NoiseFactor
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, NoiseStartRT)), 0},  // 175 NoiseStartRT
    {FieldKind::kNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, NoiseEndRT)), 0},  // 176 NoiseEndRT
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ReportLimit)), 0},  // 177 ReportLimit
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 64},  // 178 ReportLimitFlag
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MaxStdDev)), 0},  // 179 MaxStdDev
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 256},  // 180 MaxStdDevFlag
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, CalCompound)), 80},  // 181 CalCompound
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, RTToleranceUpper)), 0},  // 182 RTToleranceUpper
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, RTToleranceLower)), 0},  // 183 RTToleranceLower
    {FieldKind::kFlagBit, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetFlags)), 512},  // 184 RTToleranceFlag
    {FieldKind::kUnassigned, Scalar::kNone, At(0), 0},  // 185 Unassigned185
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropagatePeakQuality)), 0},  // 186 PropagatePeakQuality
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MeasurePeakQuality)), 0},  // 187 MeasurePeakQuality
    {FieldKind::kUnassigned, Scalar::kNone, At(0), 0},  // 188 Unassigned188
    {FieldKind::kUnassigned, Scalar::kNone, At(0), 0},  // 189 Unassigned189
    {FieldKind::kReadOnlyNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PredRT)), 0},  // 190 PredRTView
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityRTCheck)), 0},  // 191 PeakQualityRTCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRTWindow)), 0},  // 192 PeakQualityRTWindow
    {FieldKind::kReadOnlyNumber, Scalar::kFloat, At(offsetof(tagINTERNAL_METHOD, PredRRT)), 0},  // 193 PredRRTView
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityRRTCheck)), 0},  // 194 PeakQualityRRTCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRRTWindow)), 0},  // 195 PeakQualityRRTWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityBaseWidthValue)), 0},  // 196 PeakQualityBaseWidthValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityBaseWidthCheck)), 0},  // 197 PeakQualityBaseWidthCheck
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityBaseWidthAutoCheck)), 0},  // 198 PeakQualityBaseWidthAutoCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityBaseWidthWindow)), 0},  // 199 PeakQualityBaseWidthWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityISAreaValue)), 0},  // 200 PeakQualityISAreaValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityISAreaCheck)), 0},  // 201 PeakQualityISAreaCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityISAreaWindow)), 0},  // 202 PeakQualityISAreaWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityHeightOverAreaValue)), 0},  // 203 PeakQualityHeightOverAreaValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityHeightOverAreaCheck)), 0},  // 204 PeakQualityHeightOverAreaCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityHeightOverAreaWindow)), 0},  // 205 PeakQualityHeightOverAreaWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityWidthValue)), 0},  // 206 PeakQualityWidthValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityWidthCheck)), 0},  // 207 PeakQualityWidthCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityWidthWindow)), 0},  // 208 PeakQualityWidthWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualitySkewValue)), 0},  // 209 PeakQualitySkewValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualitySkewCheck)), 0},  // 210 PeakQualitySkewCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualitySkewWindow)), 0},  // 211 PeakQualitySkewWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityKurtosisValue)), 0},  // 212 PeakQualityKurtosisValue
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityKurtosisCheck)), 0},  // 213 PeakQualityKurtosisCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityKurtosisWindow)), 0},  // 214 PeakQualityKurtosisWindow
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualitySigmaCheck)), 0},  // 215 PeakQualitySigmaCheck
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualitySigmaValue)), 0},  // 216 PeakQualitySigmaValue
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualitySigmaWindow)), 0},  // 217 PeakQualitySigmaWindow
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityUseReferences)), 0},  // 218 PeakQualityUseReferences
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefRT)), 0},  // 219 PeakQualityRefRT
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefWidth)), 0},  // 220 PeakQualityRefWidth
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefSigma)), 0},  // 221 PeakQualityRefSigma
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefSkew)), 0},  // 222 PeakQualityRefSkew
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefRTWindow)), 0},  // 223 PeakQualityRefRTWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefWidthValue)), 0},  // 224 PeakQualityRefWidthValue
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefWidthWindow)), 0},  // 225 PeakQualityRefWidthWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefSigmaValue)), 0},  // 226 PeakQualityRefSigmaValue
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefSigmaWindow)), 0},  // 227 PeakQualityRefSigmaWindow
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefSkewValue)), 0},  // 228 PeakQualityRefSkewValue
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, PeakQualityRefSkewWindow)), 0},  // 229 PeakQualityRefSkewWindow
    {FieldKind::kTextUnbounded, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, NoisePeakMethod)), 0},  // 230 NoisePeakMethod
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, NoiseMethod)), 0},  // 231 NoiseMethod
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropagateDetectionLimit)), 0},  // 232 PropagateDetectionLimit
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, SymmetryThreshold)), 0},  // 233 SymmetryThreshold
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RatioTargetByPrimaryFlag)), 0},  // 234 RatioTargetByPrimaryFlag0
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RatioTargetByPrimaryFlag) + 4), 0},  // 235 RatioTargetByPrimaryFlag1
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RatioTargetByPrimaryFlag) + 8), 0},  // 236 RatioTargetByPrimaryFlag2
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RatioTargetByPrimaryFlag) + 12), 0},  // 237 RatioTargetByPrimaryFlag3
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MultiSampleRatios)), 0},  // 238 MultiSampleRatios
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MultiSampleMethodTimes)), 0},  // 239 MultiSampleMethodTimes
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetIonWindowMethod)), 0},  // 240 TargetIonWindowMethod
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, TargetIonRatioMethod)), 0},  // 241 TargetIonRatioMethod
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, QuanTraceRatio)), 0},  // 242 QuanTraceRatio
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, QuanRatioWindow)), 0},  // 243 QuanRatioWindow
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, UseConcFactor)), 0},  // 244 UseConcFactor
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ConcFactor)), 0},  // 245 ConcFactor
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, CompoundType)), 254},  // 246 CompoundType
    {FieldKind::kText, Scalar::kNone, At(offsetof(tagINTERNAL_METHOD, AdductMass)), 18},  // 247 AdductMass
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, QuanOverTarget)), 0},  // 248 QuanOverTarget
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankEnabled)), 0},  // 249 MonitorBlankEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankPropagate)), 0},  // 250 MonitorBlankPropagate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankUseConc)), 0},  // 251 MonitorBlankUseConc
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorBlankConc)), 0},  // 252 MonitorBlankConc
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankAction)), 0},  // 253 MonitorBlankAction
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankReinjections)), 0},  // 254 MonitorBlankReinjections
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorBlankMaxAction)), 0},  // 255 MonitorBlankMaxAction
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorSolventEnabled)), 0},  // 256 MonitorSolventEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorSolventPropagate)), 0},  // 257 MonitorSolventPropagate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorSolventUseConc)), 0},  // 258 MonitorSolventUseConc
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorSolventConc)), 0},  // 259 MonitorSolventConc
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorSolventAction)), 0},  // 260 MonitorSolventAction
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorSolventReinjections)), 0},  // 261 MonitorSolventReinjections
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorSolventMaxAction)), 0},  // 262 MonitorSolventMaxAction
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorCalibrationEnabled)), 0},  // 263 MonitorCalibrationEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorCalibrationPropagate)), 0},  // 264 MonitorCalibrationPropagate
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorCalibrationAction)), 0},  // 265 MonitorCalibrationAction
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCEnabled)), 0},  // 266 MonitorQCEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCPropagate)), 0},  // 267 MonitorQCPropagate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCLowConcEnabled)), 0},  // 268 MonitorQCLowConcEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorQCLowConc)), 0},  // 269 MonitorQCLowConc
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCMidConcEnabled)), 0},  // 270 MonitorQCMidConcEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorQCMidConc)), 0},  // 271 MonitorQCMidConc
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCHighThreshEnabled)), 0},  // 272 MonitorQCHighThreshEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorQCHighThresh)), 0},  // 273 MonitorQCHighThresh
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCMidThreshEnabled)), 0},  // 274 MonitorQCMidThreshEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorQCMidThresh)), 0},  // 275 MonitorQCMidThresh
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCLowThreshEnabled)), 0},  // 276 MonitorQCLowThreshEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorQCLowThresh)), 0},  // 277 MonitorQCLowThresh
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCRatioEnabled)), 0},  // 278 MonitorQCRatioEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCRTEnabled)), 0},  // 279 MonitorQCRTEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCShapeEnabled)), 0},  // 280 MonitorQCShapeEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCSigNosEnabled)), 0},  // 281 MonitorQCSigNosEnabled
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCAction)), 0},  // 282 MonitorQCAction
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCReinjections)), 0},  // 283 MonitorQCReinjections
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorQCMaxAction)), 0},  // 284 MonitorQCMaxAction
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardEnabled)), 0},  // 285 MonitorStandardEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardPropagate)), 0},  // 286 MonitorStandardPropagate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardLowConcEnabled)), 0},  // 287 MonitorStandardLowConcEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorStandardLowConc)), 0},  // 288 MonitorStandardLowConc
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardMidConcEnabled)), 0},  // 289 MonitorStandardMidConcEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorStandardMidConc)), 0},  // 290 MonitorStandardMidConc
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardHighThreshEnabled)), 0},  // 291 MonitorStandardHighThreshEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorStandardHighThresh)), 0},  // 292 MonitorStandardHighThresh
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardMidThreshEnabled)), 0},  // 293 MonitorStandardMidThreshEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorStandardMidThresh)), 0},  // 294 MonitorStandardMidThresh
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardLowThreshEnabled)), 0},  // 295 MonitorStandardLowThreshEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorStandardLowThresh)), 0},  // 296 MonitorStandardLowThresh
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardRatioEnabled)), 0},  // 297 MonitorStandardRatioEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardRTEnabled)), 0},  // 298 MonitorStandardRTEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardShapeEnabled)), 0},  // 299 MonitorStandardShapeEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardSigNosEnabled)), 0},  // 300 MonitorStandardSigNosEnabled
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardAction)), 0},  // 301 MonitorStandardAction
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardReinjections)), 0},  // 302 MonitorStandardReinjections
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorStandardMaxAction)), 0},  // 303 MonitorStandardMaxAction
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteEnabled)), 0},  // 304 MonitorAnalyteEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalytePropagate)), 0},  // 305 MonitorAnalytePropagate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteConcDevEnabled)), 0},  // 306 MonitorAnalyteConcDevEnabled
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteConcDev)), 0},  // 307 MonitorAnalyteConcDev
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteRatioEnabled)), 0},  // 308 MonitorAnalyteRatioEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteRTEnabled)), 0},  // 309 MonitorAnalyteRTEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteShapeEnabled)), 0},  // 310 MonitorAnalyteShapeEnabled
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteSigNosEnabled)), 0},  // 311 MonitorAnalyteSigNosEnabled
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteAction)), 0},  // 312 MonitorAnalyteAction
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteReinjections)), 0},  // 313 MonitorAnalyteReinjections
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, MonitorAnalyteMaxAction)), 0},  // 314 MonitorAnalyteMaxAction
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RecoveryPropagate)), 0},  // 315 RecoveryPropagate
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RecoveryFlagRecovery)), 0},  // 316 RecoveryFlagRecovery
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RecoveryFlagAnalyte)), 0},  // 317 RecoveryFlagAnalyte
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RecoveryFlagQC)), 0},  // 318 RecoveryFlagQC
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropagateRetentionTimes)), 0},  // 319 PropagateRetentionTimes
    {FieldKind::kUnassigned, Scalar::kNone, At(0), 0},  // 320 Unassigned320
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, AsymmetryPropagate)), 0},  // 321 AsymmetryPropagate
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, AsymmetryMeasureAtHeight)), 0},  // 322 AsymmetryMeasureAtHeight
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, UseAsymmetryExpected)), 0},  // 323 UseAsymmetryExpected
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, AsymmetryExpectedValue)), 0},  // 324 AsymmetryExpectedValue
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, AsymmetryWindow)), 0},  // 325 AsymmetryWindow
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, AsymmetryFromReference)), 0},  // 326 AsymmetryFromReference
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, PropSpecSettings)), 0},  // 327 PropSpecSettings
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, FwdFitFlag)), 0},  // 328 FwdFitFlag
    {FieldKind::kYesNo, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, RevFitFlag)), 0},  // 329 RevFitFlag
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IgnoreZeroConcStds)), 0},  // 330 IgnoreZeroConcStds
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IgnoreZeroConcQCs)), 0},  // 331 IgnoreZeroConcQCs
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ApexAutoGen)), 0},  // 332 ApexAutoGen
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IFITPropagate)), 0},  // 333 IFITPropagate
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, IFITThreshold)), 0},  // 334 IFITThreshold
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, FlagIFIT)), 0},  // 335 FlagIFIT
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, IFITNThreshold)), 0},  // 336 IFITNThreshold
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, FlagIFITN)), 0},  // 337 FlagIFITN
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, IFITCThreshold)), 0},  // 338 IFITCThreshold
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, FlagIFITC)), 0},  // 339 FlagIFITC
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, ppmThreshold)), 0},  // 340 ppmThreshold
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, Flagppm)), 0},  // 341 Flagppm
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, absThreshold)), 0},  // 342 absThreshold
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, Flagabs)), 0},  // 343 Flagabs
    {FieldKind::kNumber, Scalar::kDouble, At(offsetof(tagINTERNAL_METHOD, QualWindow)), 0},  // 344 QualWindow
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, AlwaysPrint)), 0},  // 345 AlwaysPrint
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, IsAccurateMass)), 0},  // 346 IsAccurateMass
    {FieldKind::kNumber, Scalar::kInt, At(offsetof(tagINTERNAL_METHOD, ConvolveTrace)), 0},  // 347 ConvolveTrace
};

}  // namespace kvdao::method_fields
