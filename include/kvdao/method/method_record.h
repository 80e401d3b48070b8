#pragma once

// CMethodRecord: one entry (one compound) of a quantify method, with named
// accessors over its flat 3504-byte record (tagINTERNAL_METHOD) and its text,
// XML and byte-array forms.
//
// Promises:
//  - a record always owns exactly one tagINTERNAL_METHOD; copies are deep
//    byte copies, never shared;
//  - a new record holds the defaults of Default();
//  - no accessor writes outside the record's 3504 bytes and no text getter
//    reads outside them, whatever the stored bytes hold;
//  - the text setters keep the widths that the stored format has always had,
//    even where a width is larger than its buffer (see SetCas and
//    SetNoisePeakMethod): records written by older code depend on it;
//  - array getters answer out-of-range indexes with a neutral value (−1 for
//    IStd and TargetRef, 0 or 0.0 for numbers, an empty text), array setters
//    ignore them.
//
// Setters of fields older than SymmetryThreshold take their value by const
// reference, newer ones (and UseConcFactor) by value; both behave the same.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "kvdao/method/internal_method.h"
#include "kvdao/method/method_data_fields.h"
#include "kvdao/method/record.h"
#include "kvdao/platform/variant.h"
#include "kvdao/platform/xml_builder.h"

namespace kvdao {

// Size of the buffer that MethodGetFieldStr fills: enough for any field's
// text, including a text that runs on to the end of the record, the longest
// mass list and the widest number.
inline constexpr std::size_t kMethodFieldBufferSize = 4096;

class CMethodRecord : public CRecord {
 public:
  // Schema number of the dynamically creatable class.
  static constexpr unsigned kSchema = 1;

  // Every constructor allocates the record and then fills it from the source,
  // or with the defaults when the source pointer is null.
  CMethodRecord();
  explicit CMethodRecord(const CMethodRecord* source);
  CMethodRecord(const CMethodRecord& source);
  explicit CMethodRecord(const tagINTERNAL_METHOD* source);
  explicit CMethodRecord(const tagINTERNAL_METHOD& source);
  ~CMethodRecord() override;

  CMethodRecord& operator=(const CMethodRecord& source);
  CMethodRecord& operator=(const tagINTERNAL_METHOD& source);

  static const char* ClassName() noexcept { return "CMethodRecord"; }
  const char* GetClassName() const noexcept override { return ClassName(); }
  // Dynamic creation by class name: a new default record.
  static CRecord* CreateInstance() { return new CMethodRecord; }
  // A new heap copy of `source` (defaults for null); ReleaseRecord deletes one.
  static CMethodRecord* CreateRecord(CMethodRecord* source);
  static void ReleaseRecord(CMethodRecord* record);

  tagINTERNAL_METHOD* GetData() noexcept { return m_pRecord.get(); }
  const tagINTERNAL_METHOD* GetData() const noexcept { return m_pRecord.get(); }
  tagINTERNAL_METHOD& GetRecord() noexcept { return *m_pRecord; }
  const tagINTERNAL_METHOD& GetRecord() const noexcept { return *m_pRecord; }
  // Copies 3504 bytes from `source`, or sets the defaults when it is null.
  void SetRecord(const tagINTERNAL_METHOD* source);
  static int GetBlockSize() noexcept { return static_cast<int>(kMethodRecordSize); }

  // ---- Fields -----------------------------------------------------------
  // Text getters return the text up to its terminator; a text whose
  // terminator is missing runs on into the following fields (as the bytes
  // lie) but never past the end of the record. The LPCTSTR and ByRef getters
  // point into the record.
  //
  // String-object setters keep the leftmost characters that fit the field's
  // width and always terminate. Character-pointer setters copy the source up
  // to and including its terminator but at most the field's byte bound, with
  // no terminator added when the bound is reached. A null pointer stores an
  // empty text.
  //
  // Hazard, kept because the stored format has it: SetCas(const char*) copies
  // up to 80 bytes into the 13-byte Cas buffer, so a long CAS number runs on
  // into Text. SetNoisePeakMethod (16-byte buffer) has no bound at all and
  // overwrites the fields after it with whatever does not fit; here the copy
  // stops at the end of the record, whose last byte then holds the
  // terminator. Pass short values.
  int GetVersion() const { return m_pRecord->Version; }
  void SetVersion(const int& value) { m_pRecord->Version = value; }
  std::string GetName() const { return ReadText(offsetof(tagINTERNAL_METHOD, Name)); }
  const char* GetNameLPCTSTR() const { return m_pRecord->Name; }
  void SetName(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, Name), value, 80); }
  void SetName(const char* value) { CopyBytes(offsetof(tagINTERNAL_METHOD, Name), value, 80); }
  std::string GetCas() const { return ReadText(offsetof(tagINTERNAL_METHOD, Cas)); }
  const char* GetCasLPCTSTR() const { return m_pRecord->Cas; }
  void SetCas(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, Cas), value, 12); }
  void SetCas(const char* value) { CopyBytes(offsetof(tagINTERNAL_METHOD, Cas), value, 80); }
  std::string GetText() const { return ReadText(offsetof(tagINTERNAL_METHOD, Text)); }
  void SetText(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, Text), value, 120); }
  std::string GetRepUnits() const { return ReadText(offsetof(tagINTERNAL_METHOD, RepUnits)); }
  void SetRepUnits(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, RepUnits), value, 15); }
  double GetUserValue1() const { return m_pRecord->UserValue1; }
  void SetUserValue1(const double& value) { m_pRecord->UserValue1 = value; }
  double GetUserValue2() const { return m_pRecord->UserValue2; }
  void SetUserValue2(const double& value) { m_pRecord->UserValue2 = value; }
  std::string GetFlags() const { return ReadText(offsetof(tagINTERNAL_METHOD, Flags)); }
  void SetFlags(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, Flags), value, 8); }
  int GetRawAcquisitionFunction() const { return m_pRecord->RawAcquisitionFunction; }
  void SetRawAcquisitionFunction(const int& value) { m_pRecord->RawAcquisitionFunction = value; }
  std::string GetQuanTrace() const { return ReadText(offsetof(tagINTERNAL_METHOD, QuanTrace)); }
  const char* GetQuanTraceLPCTSTR() const { return m_pRecord->QuanTrace; }
  void SetQuanTrace(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, QuanTrace), value, 80); }
  void SetQuanTrace(const char* value) { CopyBytes(offsetof(tagINTERNAL_METHOD, QuanTrace), value, 80); }
  std::string GetSecondaryTrace() const { return ReadText(offsetof(tagINTERNAL_METHOD, SecondaryTrace)); }
  void SetSecondaryTrace(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, SecondaryTrace), value, 80); }
  std::string GetAdductMass() const { return ReadText(offsetof(tagINTERNAL_METHOD, AdductMass)); }
  void SetAdductMass(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, AdductMass), value, 18); }
  float GetChroMassWindowABS() const { return m_pRecord->ChroMassWindowABS; }
  void SetChroMassWindowABS(const float& value) { m_pRecord->ChroMassWindowABS = value; }
  float GetChroMassWindowPPM() const { return m_pRecord->ChroMassWindowPPM; }
  void SetChroMassWindowPPM(const float& value) { m_pRecord->ChroMassWindowPPM = value; }
  int GetChroMassWindowAbs() const { return m_pRecord->ChroMassWindowAbs; }
  void SetChroMassWindowAbs(const int& value) { m_pRecord->ChroMassWindowAbs = value; }
  std::string GetCompoundType() const { return ReadText(offsetof(tagINTERNAL_METHOD, CompoundType)); }
  const char* GetCompoundTypeLPCTSTR() const { return m_pRecord->CompoundType; }
  void SetCompoundType(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, CompoundType), value, 254); }
  void SetCompoundType(const char* value) { CopyBytes(offsetof(tagINTERNAL_METHOD, CompoundType), value, 254); }
  float GetIntegrateWin() const { return m_pRecord->IntegrateWin; }
  void SetIntegrateWin(const float& value) { m_pRecord->IntegrateWin = value; }
  float GetChroNoiseLevel() const { return m_pRecord->ChroNoiseLevel; }
  void SetChroNoiseLevel(const float& value) { m_pRecord->ChroNoiseLevel = value; }
  int GetChroAuto() const { return m_pRecord->ChroAuto; }
  void SetChroAuto(const int& value) { m_pRecord->ChroAuto = value; }
  int GetSmooEnabled() const { return m_pRecord->SmooEnabled; }
  void SetSmooEnabled(const int& value) { m_pRecord->SmooEnabled = value; }
  int GetSmooMethod() const { return m_pRecord->SmooMethod; }
  void SetSmooMethod(const int& value) { m_pRecord->SmooMethod = value; }
  int GetSmooIter() const { return m_pRecord->SmooIter; }
  void SetSmooIter(const int& value) { m_pRecord->SmooIter = value; }
  int GetSmooWidth() const { return m_pRecord->SmooWidth; }
  void SetSmooWidth(const int& value) { m_pRecord->SmooWidth = value; }
  int GetPkMode() const { return m_pRecord->PkMode; }
  void SetPkMode(const int& value) { m_pRecord->PkMode = value; }
  float GetPkBalance() const { return m_pRecord->PkBalance; }
  void SetPkBalance(const float& value) { m_pRecord->PkBalance = value; }
  float GetPkSplitting() const { return m_pRecord->PkSplitting; }
  void SetPkSplitting(const float& value) { m_pRecord->PkSplitting = value; }
  int GetPkShldrDetect() const { return m_pRecord->PkShldrDetect; }
  void SetPkShldrDetect(const int& value) { m_pRecord->PkShldrDetect = value; }
  float GetPkShldrThresh() const { return m_pRecord->PkShldrThresh; }
  void SetPkShldrThresh(const float& value) { m_pRecord->PkShldrThresh = value; }
  float GetPkReduceTail() const { return m_pRecord->PkReduceTail; }
  void SetPkReduceTail(const float& value) { m_pRecord->PkReduceTail = value; }
  float GetPkMaxReduceHt() const { return m_pRecord->PkMaxReduceHt; }
  void SetPkMaxReduceHt(const float& value) { m_pRecord->PkMaxReduceHt = value; }
  float GetPkWatThreshold() const { return m_pRecord->PkWatThreshold; }
  void SetPkWatThreshold(const float& value) { m_pRecord->PkWatThreshold = value; }
  float GetPkWatWidth() const { return m_pRecord->PkWatWidth; }
  void SetPkWatWidth(const float& value) { m_pRecord->PkWatWidth = value; }
  float GetPkWatUpThreshold() const { return m_pRecord->PkWatUpThreshold; }
  void SetPkWatUpThreshold(const float& value) { m_pRecord->PkWatUpThreshold = value; }
  float GetPkWatDownThreshold() const { return m_pRecord->PkWatDownThreshold; }
  void SetPkWatDownThreshold(const float& value) { m_pRecord->PkWatDownThreshold = value; }
  int GetPkWatOperations() const { return m_pRecord->PkWatOperations; }
  void SetPkWatOperations(const int& value) { m_pRecord->PkWatOperations = value; }
  int GetPkThreshMethod() const { return m_pRecord->PkThreshMethod; }
  void SetPkThreshMethod(const int& value) { m_pRecord->PkThreshMethod = value; }
  float GetPkRespAreaRel() const { return m_pRecord->PkRespAreaRel; }
  void SetPkRespAreaRel(const float& value) { m_pRecord->PkRespAreaRel = value; }
  float GetPkRespAreaAbs() const { return m_pRecord->PkRespAreaAbs; }
  void SetPkRespAreaAbs(const float& value) { m_pRecord->PkRespAreaAbs = value; }
  float GetPkRespHeightRel() const { return m_pRecord->PkRespHeightRel; }
  void SetPkRespHeightRel(const float& value) { m_pRecord->PkRespHeightRel = value; }
  float GetPkRespHeightAbs() const { return m_pRecord->PkRespHeightAbs; }
  void SetPkRespHeightAbs(const float& value) { m_pRecord->PkRespHeightAbs = value; }
  int GetPropagateIntegrate() const { return m_pRecord->PropagateIntegrate; }
  void SetPropagateIntegrate(const int& value) { m_pRecord->PropagateIntegrate = value; }
  int GetPropagateGeneral() const { return m_pRecord->PropagateGeneral; }
  void SetPropagateGeneral(const int& value) { m_pRecord->PropagateGeneral = value; }
  int GetPropagateSecondary() const { return m_pRecord->PropagateSecondary; }
  void SetPropagateSecondary(const int& value) { m_pRecord->PropagateSecondary = value; }
  int GetPropagatePeakQuality() const { return m_pRecord->PropagatePeakQuality; }
  void SetPropagatePeakQuality(const int& value) { m_pRecord->PropagatePeakQuality = value; }
  float GetPkExtentWin() const { return m_pRecord->PkExtentWin; }
  void SetPkExtentWin(const float& value) { m_pRecord->PkExtentWin = value; }
  int GetMatThresh() const { return m_pRecord->MatThresh; }
  void SetMatThresh(const int& value) { m_pRecord->MatThresh = value; }
  int GetForThresh() const { return m_pRecord->ForThresh; }
  void SetForThresh(const int& value) { m_pRecord->ForThresh = value; }
  int GetRevThresh() const { return m_pRecord->RevThresh; }
  void SetRevThresh(const int& value) { m_pRecord->RevThresh = value; }
  double GetAreaThresh() const { return m_pRecord->AreaThresh; }
  void SetAreaThresh(const double& value) { m_pRecord->AreaThresh = value; }
  double GetHeightThresh() const { return m_pRecord->HeightThresh; }
  void SetHeightThresh(const double& value) { m_pRecord->HeightThresh = value; }
  int GetLocateBy() const { return m_pRecord->LocateBy; }
  void SetLocateBy(const int& value) { m_pRecord->LocateBy = value; }
  float GetPredRT() const { return m_pRecord->PredRT; }
  void SetPredRT(const float& value) { m_pRecord->PredRT = value; }
  float GetPredRRT() const { return m_pRecord->PredRRT; }
  void SetPredRRT(const float& value) { m_pRecord->PredRRT = value; }
  float GetLocateRTWin() const { return m_pRecord->LocateRTWin; }
  void SetLocateRTWin(const float& value) { m_pRecord->LocateRTWin = value; }
  float GetSecondaryRTWin() const { return m_pRecord->SecondaryRTWin; }
  void SetSecondaryRTWin(const float& value) { m_pRecord->SecondaryRTWin = value; }
  int GetRRTRef() const { return m_pRecord->RRTRef; }
  void SetRRTRef(const int& value) { m_pRecord->RRTRef = value; }
  double GetPredResp() const { return m_pRecord->PredResp; }
  void SetPredResp(const double& value) { m_pRecord->PredResp = value; }
  double GetLocateRespWin() const { return m_pRecord->LocateRespWin; }
  void SetLocateRespWin(const double& value) { m_pRecord->LocateRespWin = value; }
  int GetLocateChoice() const { return m_pRecord->LocateChoice; }
  void SetLocateChoice(const int& value) { m_pRecord->LocateChoice = value; }
  int GetRAH() const { return m_pRecord->RAH; }
  void SetRAH(const int& value) { m_pRecord->RAH = value; }
  int GetRCalc() const { return m_pRecord->RCalc; }
  void SetRCalc(const int& value) { m_pRecord->RCalc = value; }
  int GetIStdNumber() const { return m_pRecord->IStdNumber; }
  void SetIStdNumber(const int& value) { m_pRecord->IStdNumber = value; }
  int GetResponseInclude() const { return m_pRecord->ResponseInclude; }
  void SetResponseInclude(const int& value) { m_pRecord->ResponseInclude = value; }
  double GetRSubX() const { return m_pRecord->RSubX; }
  void SetRSubX(const double& value) { m_pRecord->RSubX = value; }
  double GetRSubY() const { return m_pRecord->RSubY; }
  void SetRSubY(const double& value) { m_pRecord->RSubY = value; }
  double GetStdConc() const { return m_pRecord->StdConc; }
  void SetStdConc(const double& value) { m_pRecord->StdConc = value; }
  int GetStdLevels() const { return m_pRecord->StdLevels; }
  void SetStdLevels(const int& value) { m_pRecord->StdLevels = value; }
  int GetUseConcFactor() const { return m_pRecord->UseConcFactor; }
  void SetUseConcFactor(int value) { m_pRecord->UseConcFactor = value; }
  double GetConcFactor() const { return m_pRecord->ConcFactor; }
  void SetConcFactor(const double& value) { m_pRecord->ConcFactor = value; }
  int GetCCalc() const { return m_pRecord->CCalc; }
  void SetCCalc(const int& value) { m_pRecord->CCalc = value; }
  int GetXYTrans() const { return m_pRecord->XYTrans; }
  void SetXYTrans(const int& value) { m_pRecord->XYTrans = value; }
  int GetZeroResp() const { return m_pRecord->ZeroResp; }
  void SetZeroResp(const int& value) { m_pRecord->ZeroResp = value; }
  int GetOrigin() const { return m_pRecord->Origin; }
  void SetOrigin(const int& value) { m_pRecord->Origin = value; }
  int GetWeightingFunction() const { return m_pRecord->WeightingFunction; }
  void SetWeightingFunction(const int& value) { m_pRecord->WeightingFunction = value; }
  int GetReportCorrFlags() const { return m_pRecord->ReportCorrFlags; }
  void SetReportCorrFlags(const int& value) { m_pRecord->ReportCorrFlags = value; }
  double GetMinArea() const { return m_pRecord->MinArea; }
  void SetMinArea(const double& value) { m_pRecord->MinArea = value; }
  double GetMinHeight() const { return m_pRecord->MinHeight; }
  void SetMinHeight(const double& value) { m_pRecord->MinHeight = value; }
  double GetDetectionThreshold() const { return m_pRecord->DetectionThreshold; }
  void SetDetectionThreshold(const double& value) { m_pRecord->DetectionThreshold = value; }
  double GetQuantitationThreshold() const { return m_pRecord->QuantitationThreshold; }
  void SetQuantitationThreshold(const double& value) { m_pRecord->QuantitationThreshold = value; }
  double GetLinearityLimit() const { return m_pRecord->LinearityLimit; }
  void SetLinearityLimit(const double& value) { m_pRecord->LinearityLimit = value; }
  double GetCarryOverThreshold() const { return m_pRecord->CarryOverThreshold; }
  void SetCarryOverThreshold(const double& value) { m_pRecord->CarryOverThreshold = value; }
  double GetCCThreshold() const { return m_pRecord->CCThreshold; }
  void SetCCThreshold(const double& value) { m_pRecord->CCThreshold = value; }
  float GetIonRatio() const { return m_pRecord->IonRatio; }
  void SetIonRatio(const float& value) { m_pRecord->IonRatio = value; }
  int GetIonRatioWin() const { return m_pRecord->IonRatioWin; }
  void SetIonRatioWin(const int& value) { m_pRecord->IonRatioWin = value; }
  int GetIonRatioRef() const { return m_pRecord->IonRatioRef; }
  void SetIonRatioRef(const int& value) { m_pRecord->IonRatioRef = value; }
  int GetSecondaryMustExist() const { return m_pRecord->SecondaryMustExist; }
  void SetSecondaryMustExist(const int& value) { m_pRecord->SecondaryMustExist = value; }
  int GetSecondaryMustPassRatio() const { return m_pRecord->SecondaryMustPassRatio; }
  void SetSecondaryMustPassRatio(const int& value) { m_pRecord->SecondaryMustPassRatio = value; }
  double GetUserRatio() const { return m_pRecord->UserRatio; }
  void SetUserRatio(const double& value) { m_pRecord->UserRatio = value; }
  int GetUserRFMode() const { return m_pRecord->UserRFMode; }
  void SetUserRFMode(const int& value) { m_pRecord->UserRFMode = value; }
  double GetUserRF() const { return m_pRecord->UserRF; }
  void SetUserRF(const double& value) { m_pRecord->UserRF = value; }
  double GetUserFactor() const { return m_pRecord->UserFactor; }
  void SetUserFactor(const double& value) { m_pRecord->UserFactor = value; }
  int GetTotalsInclude() const { return m_pRecord->TotalsInclude; }
  void SetTotalsInclude(const int& value) { m_pRecord->TotalsInclude = value; }
  int GetTotalsCalibration() const { return m_pRecord->TotalsCalibration; }
  void SetTotalsCalibration(const int& value) { m_pRecord->TotalsCalibration = value; }
  std::string GetTotalsGroup() const { return ReadText(offsetof(tagINTERNAL_METHOD, TotalsGroup)); }
  const char* GetTotalsGroupByRef() const { return m_pRecord->TotalsGroup; }
  void SetTotalsGroup(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, TotalsGroup), value, 254); }
  int GetIntenSum() const { return m_pRecord->IntenSum; }
  void SetIntenSum(const int& value) { m_pRecord->IntenSum = value; }
  float GetLocateMass() const { return m_pRecord->LocateMass; }
  void SetLocateMass(const float& value) { m_pRecord->LocateMass = value; }
  float GetLocateMassWin() const { return m_pRecord->LocateMassWin; }
  void SetLocateMassWin(const float& value) { m_pRecord->LocateMassWin = value; }
  float GetPredST() const { return m_pRecord->PredST; }
  void SetPredST(const float& value) { m_pRecord->PredST = value; }
  float GetPredET() const { return m_pRecord->PredET; }
  void SetPredET(const float& value) { m_pRecord->PredET = value; }
  int GetUseAllScans() const { return m_pRecord->UseAllScans; }
  void SetUseAllScans(const int& value) { m_pRecord->UseAllScans = value; }
  int GetAtomicNumber() const { return m_pRecord->AtomicNumber; }
  void SetAtomicNumber(const int& value) { m_pRecord->AtomicNumber = value; }
  int GetTopOfRatio() const { return m_pRecord->TopOfRatio; }
  void SetTopOfRatio(const int& value) { m_pRecord->TopOfRatio = value; }
  int GetBottomOfRatio() const { return m_pRecord->BottomOfRatio; }
  void SetBottomOfRatio(const int& value) { m_pRecord->BottomOfRatio = value; }
  double GetRatioValue() const { return m_pRecord->RatioValue; }
  void SetRatioValue(const double& value) { m_pRecord->RatioValue = value; }
  int GetReportInSummary() const { return m_pRecord->ReportInSummary; }
  void SetReportInSummary(const int& value) { m_pRecord->ReportInSummary = value; }
  int GetReportInSample() const { return m_pRecord->ReportInSample; }
  void SetReportInSample(const int& value) { m_pRecord->ReportInSample = value; }
  int GetMajorPeak() const { return m_pRecord->MajorPeak; }
  void SetMajorPeak(const int& value) { m_pRecord->MajorPeak = value; }
  float GetTimeSlip() const { return m_pRecord->TimeSlip; }
  void SetTimeSlip(const float& value) { m_pRecord->TimeSlip = value; }
  double GetCraigCorrection(const int& index) const { return InRange(index, 3) ? m_pRecord->CraigCorrection[index] : 0.0; }
  void SetCraigCorrection(const int& index, const double& value) { if (InRange(index, 3)) m_pRecord->CraigCorrection[index] = value; }
  int GetNoiseMethod() const { return m_pRecord->NoiseMethod; }
  void SetNoiseMethod(const int& value) { m_pRecord->NoiseMethod = value; }
  float GetNoiseFactor() const { return m_pRecord->NoiseFactor; }
  void SetNoiseFactor(const float& value) { m_pRecord->NoiseFactor = value; }
  float GetNoiseStartRT() const { return m_pRecord->NoiseStartRT; }
  void SetNoiseStartRT(const float& value) { m_pRecord->NoiseStartRT = value; }
  float GetNoiseEndRT() const { return m_pRecord->NoiseEndRT; }
  void SetNoiseEndRT(const float& value) { m_pRecord->NoiseEndRT = value; }
  double GetToxicEquiv(const int& index) const { return InRange(index, 4) ? m_pRecord->ToxicEquiv[index] : 0.0; }
  void SetToxicEquiv(const int& index, const double& value) { if (InRange(index, 4)) m_pRecord->ToxicEquiv[index] = value; }
  int GetUseEMPC() const { return m_pRecord->UseEMPC; }
  void SetUseEMPC(const int& value) { m_pRecord->UseEMPC = value; }
  double GetCorrectedResponse() const { return m_pRecord->CorrectedResponse; }
  void SetCorrectedResponse(const double& value) { m_pRecord->CorrectedResponse = value; }
  double GetAbsCorrectedResponse() const { return m_pRecord->AbsCorrectedResponse; }
  void SetAbsCorrectedResponse(const double& value) { m_pRecord->AbsCorrectedResponse = value; }
  int GetIStd(const int& index) const { return InRange(index, 6) ? m_pRecord->IStd[index] : -1; }
  void SetIStd(const int& index, const int& value) { if (InRange(index, 6)) m_pRecord->IStd[index] = value; }
  int GetUseMulti() const { return m_pRecord->UseMulti; }
  void SetUseMulti(const int& value) { m_pRecord->UseMulti = value; }
  double GetUnlabelledRatio() const { return m_pRecord->UnlabelledRatio; }
  void SetUnlabelledRatio(const double& value) { m_pRecord->UnlabelledRatio = value; }
  double GetLabelledRatio() const { return m_pRecord->LabelledRatio; }
  void SetLabelledRatio(const double& value) { m_pRecord->LabelledRatio = value; }
  int GetMoleRatio() const { return m_pRecord->MoleRatio; }
  void SetMoleRatio(const int& value) { m_pRecord->MoleRatio = value; }
  std::string GetTargetTrace(const int& index) const;
  const char* GetTargetTraceByRef(const int& index) const;
  const char* GetTargetTraceLPCTSTR(const int& index) const;
  void SetTargetTrace(const int& index, const std::string& value);
  void SetTargetTrace(const int& index, const char* value);
  float GetTargetRatio(const int& index) const { return InRange(index, 4) ? m_pRecord->TargetRatio[index] : 0.0f; }
  void SetTargetRatio(const int& index, const float& value) { if (InRange(index, 4)) m_pRecord->TargetRatio[index] = value; }
  int GetTargetWindow(const int& index) const { return InRange(index, 4) ? m_pRecord->TargetWindow[index] : 0; }
  void SetTargetWindow(const int& index, const int& value) { if (InRange(index, 4)) m_pRecord->TargetWindow[index] = value; }
  int GetTargetRef(const int& index) const { return InRange(index, 4) ? m_pRecord->TargetRef[index] : -1; }
  void SetTargetRef(const int& index, const int& value) { if (InRange(index, 4)) m_pRecord->TargetRef[index] = value; }
  // Checks the index but reads element 0 whatever it is; the setter writes
  // the element of its index. Stored behaviour, kept on purpose.
  float GetTargetRTWin(const int& index) const { return InRange(index, 4) ? m_pRecord->TargetRTWin[0] : 0.0f; }
  void SetTargetRTWin(const int& index, const float& value) { if (InRange(index, 4)) m_pRecord->TargetRTWin[index] = value; }
  int GetTargetMustExist(const int& index) const { return InRange(index, 4) ? m_pRecord->TargetMustExist[index] : 0; }
  void SetTargetMustExist(const int& index, const int& value) { if (InRange(index, 4)) m_pRecord->TargetMustExist[index] = value; }
  int GetTargetMustPass(const int& index) const { return InRange(index, 4) ? m_pRecord->TargetMustPass[index] : 0; }
  void SetTargetMustPass(const int& index, const int& value) { if (InRange(index, 4)) m_pRecord->TargetMustPass[index] = value; }
  int GetQuantificationTraces() const { return m_pRecord->QuantificationTraces; }
  void SetQuantificationTraces(const int& value) { m_pRecord->QuantificationTraces = value; }
  double GetMinSigNoise() const { return m_pRecord->MinSigNoise; }
  void SetMinSigNoise(const double& value) { m_pRecord->MinSigNoise = value; }
  double GetMinCoeffDet() const { return m_pRecord->MinCoeffDet; }
  void SetMinCoeffDet(const double& value) { m_pRecord->MinCoeffDet = value; }
  double GetPeakWidth() const { return m_pRecord->PeakWidth; }
  void SetPeakWidth(const double& value) { m_pRecord->PeakWidth = value; }
  double GetPeakWidthTol() const { return m_pRecord->PeakWidthTol; }
  void SetPeakWidthTol(const double& value) { m_pRecord->PeakWidthTol = value; }
  double GetBlankAcceptance() const { return m_pRecord->BlankAcceptance; }
  void SetBlankAcceptance(const double& value) { m_pRecord->BlankAcceptance = value; }
  double GetMinRecovery() const { return m_pRecord->MinRecovery; }
  void SetMinRecovery(const double& value) { m_pRecord->MinRecovery = value; }
  double GetMaxRecovery() const { return m_pRecord->MaxRecovery; }
  void SetMaxRecovery(const double& value) { m_pRecord->MaxRecovery = value; }
  double GetMaxConcLimit() const { return m_pRecord->MaxConcLimit; }
  void SetMaxConcLimit(const double& value) { m_pRecord->MaxConcLimit = value; }
  double GetReportLimit() const { return m_pRecord->ReportLimit; }
  void SetReportLimit(const double& value) { m_pRecord->ReportLimit = value; }
  double GetMaxStdDev() const { return m_pRecord->MaxStdDev; }
  void SetMaxStdDev(const double& value) { m_pRecord->MaxStdDev = value; }
  int GetTargetFlags() const { return m_pRecord->TargetFlags; }
  void SetTargetFlags(const int& value) { m_pRecord->TargetFlags = value; }
  std::string GetCalCompound() const { return ReadText(offsetof(tagINTERNAL_METHOD, CalCompound)); }
  const char* GetCalCompoundLPCTSTR() const { return m_pRecord->CalCompound; }
  void SetCalCompound(const std::string& value) { StoreText(offsetof(tagINTERNAL_METHOD, CalCompound), value, 80); }
  void SetCalCompound(const char* value) { CopyBytes(offsetof(tagINTERNAL_METHOD, CalCompound), value, 80); }
  double GetRTToleranceUpper() const { return m_pRecord->RTToleranceUpper; }
  void SetRTToleranceUpper(const double& value) { m_pRecord->RTToleranceUpper = value; }
  double GetRTToleranceLower() const { return m_pRecord->RTToleranceLower; }
  void SetRTToleranceLower(const double& value) { m_pRecord->RTToleranceLower = value; }
  int GetMeasurePeakQuality() const { return m_pRecord->MeasurePeakQuality; }
  void SetMeasurePeakQuality(const int& value) { m_pRecord->MeasurePeakQuality = value; }
  int GetPeakQualityRTCheck() const { return m_pRecord->PeakQualityRTCheck; }
  void SetPeakQualityRTCheck(const int& value) { m_pRecord->PeakQualityRTCheck = value; }
  int GetPeakQualityRRTCheck() const { return m_pRecord->PeakQualityRRTCheck; }
  void SetPeakQualityRRTCheck(const int& value) { m_pRecord->PeakQualityRRTCheck = value; }
  int GetPeakQualityISAreaCheck() const { return m_pRecord->PeakQualityISAreaCheck; }
  void SetPeakQualityISAreaCheck(const int& value) { m_pRecord->PeakQualityISAreaCheck = value; }
  int GetPeakQualityBaseWidthCheck() const { return m_pRecord->PeakQualityBaseWidthCheck; }
  void SetPeakQualityBaseWidthCheck(const int& value) { m_pRecord->PeakQualityBaseWidthCheck = value; }
  int GetPeakQualityBaseWidthAutoCheck() const { return m_pRecord->PeakQualityBaseWidthAutoCheck; }
  void SetPeakQualityBaseWidthAutoCheck(const int& value) { m_pRecord->PeakQualityBaseWidthAutoCheck = value; }
  int GetPeakQualityWidthCheck() const { return m_pRecord->PeakQualityWidthCheck; }
  void SetPeakQualityWidthCheck(const int& value) { m_pRecord->PeakQualityWidthCheck = value; }
  int GetPeakQualityHeightOverAreaCheck() const { return m_pRecord->PeakQualityHeightOverAreaCheck; }
  void SetPeakQualityHeightOverAreaCheck(const int& value) { m_pRecord->PeakQualityHeightOverAreaCheck = value; }
  int GetPeakQualitySkewCheck() const { return m_pRecord->PeakQualitySkewCheck; }
  void SetPeakQualitySkewCheck(const int& value) { m_pRecord->PeakQualitySkewCheck = value; }
  int GetPeakQualityKurtosisCheck() const { return m_pRecord->PeakQualityKurtosisCheck; }
  void SetPeakQualityKurtosisCheck(const int& value) { m_pRecord->PeakQualityKurtosisCheck = value; }
  double GetPeakQualityRTWindow() const { return m_pRecord->PeakQualityRTWindow; }
  void SetPeakQualityRTWindow(const double& value) { m_pRecord->PeakQualityRTWindow = value; }
  double GetPeakQualityRRTWindow() const { return m_pRecord->PeakQualityRRTWindow; }
  void SetPeakQualityRRTWindow(const double& value) { m_pRecord->PeakQualityRRTWindow = value; }
  double GetPeakQualityISAreaValue() const { return m_pRecord->PeakQualityISAreaValue; }
  void SetPeakQualityISAreaValue(const double& value) { m_pRecord->PeakQualityISAreaValue = value; }
  double GetPeakQualityISAreaWindow() const { return m_pRecord->PeakQualityISAreaWindow; }
  void SetPeakQualityISAreaWindow(const double& value) { m_pRecord->PeakQualityISAreaWindow = value; }
  double GetPeakQualityBaseWidthValue() const { return m_pRecord->PeakQualityBaseWidthValue; }
  void SetPeakQualityBaseWidthValue(const double& value) { m_pRecord->PeakQualityBaseWidthValue = value; }
  double GetPeakQualityBaseWidthWindow() const { return m_pRecord->PeakQualityBaseWidthWindow; }
  void SetPeakQualityBaseWidthWindow(const double& value) { m_pRecord->PeakQualityBaseWidthWindow = value; }
  double GetPeakQualityWidthValue() const { return m_pRecord->PeakQualityWidthValue; }
  void SetPeakQualityWidthValue(const double& value) { m_pRecord->PeakQualityWidthValue = value; }
  double GetPeakQualityWidthWindow() const { return m_pRecord->PeakQualityWidthWindow; }
  void SetPeakQualityWidthWindow(const double& value) { m_pRecord->PeakQualityWidthWindow = value; }
  double GetPeakQualityHeightOverAreaValue() const { return m_pRecord->PeakQualityHeightOverAreaValue; }
  void SetPeakQualityHeightOverAreaValue(const double& value) { m_pRecord->PeakQualityHeightOverAreaValue = value; }
  double GetPeakQualityHeightOverAreaWindow() const { return m_pRecord->PeakQualityHeightOverAreaWindow; }
  void SetPeakQualityHeightOverAreaWindow(const double& value) { m_pRecord->PeakQualityHeightOverAreaWindow = value; }
  double GetPeakQualitySkewValue() const { return m_pRecord->PeakQualitySkewValue; }
  void SetPeakQualitySkewValue(const double& value) { m_pRecord->PeakQualitySkewValue = value; }
  double GetPeakQualitySkewWindow() const { return m_pRecord->PeakQualitySkewWindow; }
  void SetPeakQualitySkewWindow(const double& value) { m_pRecord->PeakQualitySkewWindow = value; }
  double GetPeakQualityKurtosisValue() const { return m_pRecord->PeakQualityKurtosisValue; }
  void SetPeakQualityKurtosisValue(const double& value) { m_pRecord->PeakQualityKurtosisValue = value; }
  double GetPeakQualityKurtosisWindow() const { return m_pRecord->PeakQualityKurtosisWindow; }
  void SetPeakQualityKurtosisWindow(const double& value) { m_pRecord->PeakQualityKurtosisWindow = value; }
  double GetPeakQualityRefRTValue() const { return m_pRecord->PeakQualityRefRTValue; }
  void SetPeakQualityRefRTValue(const double& value) { m_pRecord->PeakQualityRefRTValue = value; }
  int GetPeakQualitySigmaCheck() const { return m_pRecord->PeakQualitySigmaCheck; }
  void SetPeakQualitySigmaCheck(const int& value) { m_pRecord->PeakQualitySigmaCheck = value; }
  double GetPeakQualitySigmaValue() const { return m_pRecord->PeakQualitySigmaValue; }
  void SetPeakQualitySigmaValue(const double& value) { m_pRecord->PeakQualitySigmaValue = value; }
  double GetPeakQualitySigmaWindow() const { return m_pRecord->PeakQualitySigmaWindow; }
  void SetPeakQualitySigmaWindow(const double& value) { m_pRecord->PeakQualitySigmaWindow = value; }
  int GetPeakQualityUseReferences() const { return m_pRecord->PeakQualityUseReferences; }
  void SetPeakQualityUseReferences(const int& value) { m_pRecord->PeakQualityUseReferences = value; }
  int GetPeakQualityRefRT() const { return m_pRecord->PeakQualityRefRT; }
  void SetPeakQualityRefRT(const int& value) { m_pRecord->PeakQualityRefRT = value; }
  int GetPeakQualityRefWidth() const { return m_pRecord->PeakQualityRefWidth; }
  void SetPeakQualityRefWidth(const int& value) { m_pRecord->PeakQualityRefWidth = value; }
  int GetPeakQualityRefSigma() const { return m_pRecord->PeakQualityRefSigma; }
  void SetPeakQualityRefSigma(const int& value) { m_pRecord->PeakQualityRefSigma = value; }
  int GetPeakQualityRefSkew() const { return m_pRecord->PeakQualityRefSkew; }
  void SetPeakQualityRefSkew(const int& value) { m_pRecord->PeakQualityRefSkew = value; }
  double GetPeakQualityRefRTWindow() const { return m_pRecord->PeakQualityRefRTWindow; }
  void SetPeakQualityRefRTWindow(const double& value) { m_pRecord->PeakQualityRefRTWindow = value; }
  double GetPeakQualityRefWidthValue() const { return m_pRecord->PeakQualityRefWidthValue; }
  void SetPeakQualityRefWidthValue(const double& value) { m_pRecord->PeakQualityRefWidthValue = value; }
  double GetPeakQualityRefWidthWindow() const { return m_pRecord->PeakQualityRefWidthWindow; }
  void SetPeakQualityRefWidthWindow(const double& value) { m_pRecord->PeakQualityRefWidthWindow = value; }
  double GetPeakQualityRefSigmaValue() const { return m_pRecord->PeakQualityRefSigmaValue; }
  void SetPeakQualityRefSigmaValue(const double& value) { m_pRecord->PeakQualityRefSigmaValue = value; }
  double GetPeakQualityRefSigmaWindow() const { return m_pRecord->PeakQualityRefSigmaWindow; }
  void SetPeakQualityRefSigmaWindow(const double& value) { m_pRecord->PeakQualityRefSigmaWindow = value; }
  double GetPeakQualityRefSkewValue() const { return m_pRecord->PeakQualityRefSkewValue; }
  void SetPeakQualityRefSkewValue(const double& value) { m_pRecord->PeakQualityRefSkewValue = value; }
  double GetPeakQualityRefSkewWindow() const { return m_pRecord->PeakQualityRefSkewWindow; }
  void SetPeakQualityRefSkewWindow(const double& value) { m_pRecord->PeakQualityRefSkewWindow = value; }
  std::string GetNoisePeakMethod() const { return ReadText(offsetof(tagINTERNAL_METHOD, NoisePeakMethod)); }
  void SetNoisePeakMethod(const char* value);
  int GetPropagateDetectionLimit() const { return m_pRecord->PropagateDetectionLimit; }
  void SetPropagateDetectionLimit(const int& value) { m_pRecord->PropagateDetectionLimit = value; }
  double GetSymmetryThreshold() const { return m_pRecord->SymmetryThreshold; }
  void SetSymmetryThreshold(double value) { m_pRecord->SymmetryThreshold = value; }
  int GetRatioTargetByPrimaryFlag(int index) const { return InRange(index, 4) ? m_pRecord->RatioTargetByPrimaryFlag[index] : 0; }
  void SetRatioTargetByPrimaryFlag(int index, int value) { if (InRange(index, 4)) m_pRecord->RatioTargetByPrimaryFlag[index] = value; }
  int GetMultiSampleRatios() const { return m_pRecord->MultiSampleRatios; }
  void SetMultiSampleRatios(int value) { m_pRecord->MultiSampleRatios = value; }
  int GetMultiSampleMethodTimes() const { return m_pRecord->MultiSampleMethodTimes; }
  void SetMultiSampleMethodTimes(int value) { m_pRecord->MultiSampleMethodTimes = value; }
  int GetTargetIonWindowMethod() const { return m_pRecord->TargetIonWindowMethod; }
  void SetTargetIonWindowMethod(int value) { m_pRecord->TargetIonWindowMethod = value; }
  int GetTargetIonRatioMethod() const { return m_pRecord->TargetIonRatioMethod; }
  void SetTargetIonRatioMethod(int value) { m_pRecord->TargetIonRatioMethod = value; }
  double GetQuanTraceRatio() const { return m_pRecord->QuanTraceRatio; }
  void SetQuanTraceRatio(double value) { m_pRecord->QuanTraceRatio = value; }
  double GetQuanRatioWindow() const { return m_pRecord->QuanRatioWindow; }
  void SetQuanRatioWindow(double value) { m_pRecord->QuanRatioWindow = value; }
  int GetQuanOverTarget() const { return m_pRecord->QuanOverTarget; }
  void SetQuanOverTarget(int value) { m_pRecord->QuanOverTarget = value; }
  int GetMonitorBlankEnabled() const { return m_pRecord->MonitorBlankEnabled; }
  void SetMonitorBlankEnabled(int value) { m_pRecord->MonitorBlankEnabled = value; }
  int GetMonitorBlankPropagate() const { return m_pRecord->MonitorBlankPropagate; }
  void SetMonitorBlankPropagate(int value) { m_pRecord->MonitorBlankPropagate = value; }
  int GetMonitorBlankUseConc() const { return m_pRecord->MonitorBlankUseConc; }
  void SetMonitorBlankUseConc(int value) { m_pRecord->MonitorBlankUseConc = value; }
  double GetMonitorBlankConc() const { return m_pRecord->MonitorBlankConc; }
  void SetMonitorBlankConc(double value) { m_pRecord->MonitorBlankConc = value; }
  int GetMonitorBlankAction() const { return m_pRecord->MonitorBlankAction; }
  void SetMonitorBlankAction(int value) { m_pRecord->MonitorBlankAction = value; }
  int GetMonitorBlankReinjections() const { return m_pRecord->MonitorBlankReinjections; }
  void SetMonitorBlankReinjections(int value) { m_pRecord->MonitorBlankReinjections = value; }
  int GetMonitorBlankMaxAction() const { return m_pRecord->MonitorBlankMaxAction; }
  void SetMonitorBlankMaxAction(int value) { m_pRecord->MonitorBlankMaxAction = value; }
  int GetMonitorSolventEnabled() const { return m_pRecord->MonitorSolventEnabled; }
  void SetMonitorSolventEnabled(int value) { m_pRecord->MonitorSolventEnabled = value; }
  int GetMonitorSolventPropagate() const { return m_pRecord->MonitorSolventPropagate; }
  void SetMonitorSolventPropagate(int value) { m_pRecord->MonitorSolventPropagate = value; }
  int GetMonitorSolventUseConc() const { return m_pRecord->MonitorSolventUseConc; }
  void SetMonitorSolventUseConc(int value) { m_pRecord->MonitorSolventUseConc = value; }
  double GetMonitorSolventConc() const { return m_pRecord->MonitorSolventConc; }
  void SetMonitorSolventConc(double value) { m_pRecord->MonitorSolventConc = value; }
  int GetMonitorSolventAction() const { return m_pRecord->MonitorSolventAction; }
  void SetMonitorSolventAction(int value) { m_pRecord->MonitorSolventAction = value; }
  int GetMonitorSolventReinjections() const { return m_pRecord->MonitorSolventReinjections; }
  void SetMonitorSolventReinjections(int value) { m_pRecord->MonitorSolventReinjections = value; }
  int GetMonitorSolventMaxAction() const { return m_pRecord->MonitorSolventMaxAction; }
  void SetMonitorSolventMaxAction(int value) { m_pRecord->MonitorSolventMaxAction = value; }
  int GetMonitorCalibrationEnabled() const { return m_pRecord->MonitorCalibrationEnabled; }
  void SetMonitorCalibrationEnabled(int value) { m_pRecord->MonitorCalibrationEnabled = value; }
  int GetMonitorCalibrationPropagate() const { return m_pRecord->MonitorCalibrationPropagate; }
  void SetMonitorCalibrationPropagate(int value) { m_pRecord->MonitorCalibrationPropagate = value; }
  int GetMonitorCalibrationAction() const { return m_pRecord->MonitorCalibrationAction; }
  void SetMonitorCalibrationAction(int value) { m_pRecord->MonitorCalibrationAction = value; }
  int GetMonitorQCEnabled() const { return m_pRecord->MonitorQCEnabled; }
  void SetMonitorQCEnabled(int value) { m_pRecord->MonitorQCEnabled = value; }
  int GetMonitorQCPropagate() const { return m_pRecord->MonitorQCPropagate; }
  void SetMonitorQCPropagate(int value) { m_pRecord->MonitorQCPropagate = value; }
  int GetMonitorQCLowConcEnabled() const { return m_pRecord->MonitorQCLowConcEnabled; }
  void SetMonitorQCLowConcEnabled(int value) { m_pRecord->MonitorQCLowConcEnabled = value; }
  double GetMonitorQCLowConc() const { return m_pRecord->MonitorQCLowConc; }
  void SetMonitorQCLowConc(double value) { m_pRecord->MonitorQCLowConc = value; }
  int GetMonitorQCLowThreshEnabled() const { return m_pRecord->MonitorQCLowThreshEnabled; }
  void SetMonitorQCLowThreshEnabled(int value) { m_pRecord->MonitorQCLowThreshEnabled = value; }
  double GetMonitorQCLowThresh() const { return m_pRecord->MonitorQCLowThresh; }
  void SetMonitorQCLowThresh(double value) { m_pRecord->MonitorQCLowThresh = value; }
  int GetMonitorQCMidConcEnabled() const { return m_pRecord->MonitorQCMidConcEnabled; }
  void SetMonitorQCMidConcEnabled(int value) { m_pRecord->MonitorQCMidConcEnabled = value; }
  double GetMonitorQCMidConc() const { return m_pRecord->MonitorQCMidConc; }
  void SetMonitorQCMidConc(double value) { m_pRecord->MonitorQCMidConc = value; }
  int GetMonitorQCMidThreshEnabled() const { return m_pRecord->MonitorQCMidThreshEnabled; }
  void SetMonitorQCMidThreshEnabled(int value) { m_pRecord->MonitorQCMidThreshEnabled = value; }
  double GetMonitorQCMidThresh() const { return m_pRecord->MonitorQCMidThresh; }
  void SetMonitorQCMidThresh(double value) { m_pRecord->MonitorQCMidThresh = value; }
  int GetMonitorQCHighThreshEnabled() const { return m_pRecord->MonitorQCHighThreshEnabled; }
  void SetMonitorQCHighThreshEnabled(int value) { m_pRecord->MonitorQCHighThreshEnabled = value; }
  double GetMonitorQCHighThresh() const { return m_pRecord->MonitorQCHighThresh; }
  void SetMonitorQCHighThresh(double value) { m_pRecord->MonitorQCHighThresh = value; }
  int GetMonitorQCRatioEnabled() const { return m_pRecord->MonitorQCRatioEnabled; }
  void SetMonitorQCRatioEnabled(int value) { m_pRecord->MonitorQCRatioEnabled = value; }
  int GetMonitorQCRTEnabled() const { return m_pRecord->MonitorQCRTEnabled; }
  void SetMonitorQCRTEnabled(int value) { m_pRecord->MonitorQCRTEnabled = value; }
  int GetMonitorQCShapeEnabled() const { return m_pRecord->MonitorQCShapeEnabled; }
  void SetMonitorQCShapeEnabled(int value) { m_pRecord->MonitorQCShapeEnabled = value; }
  int GetMonitorQCSigNosEnabled() const { return m_pRecord->MonitorQCSigNosEnabled; }
  void SetMonitorQCSigNosEnabled(int value) { m_pRecord->MonitorQCSigNosEnabled = value; }
  int GetMonitorQCAction() const { return m_pRecord->MonitorQCAction; }
  void SetMonitorQCAction(int value) { m_pRecord->MonitorQCAction = value; }
  int GetMonitorQCReinjections() const { return m_pRecord->MonitorQCReinjections; }
  void SetMonitorQCReinjections(int value) { m_pRecord->MonitorQCReinjections = value; }
  int GetMonitorQCMaxAction() const { return m_pRecord->MonitorQCMaxAction; }
  void SetMonitorQCMaxAction(int value) { m_pRecord->MonitorQCMaxAction = value; }
  int GetMonitorAnalyteEnabled() const { return m_pRecord->MonitorAnalyteEnabled; }
  void SetMonitorAnalyteEnabled(int value) { m_pRecord->MonitorAnalyteEnabled = value; }
  int GetMonitorAnalytePropagate() const { return m_pRecord->MonitorAnalytePropagate; }
  void SetMonitorAnalytePropagate(int value) { m_pRecord->MonitorAnalytePropagate = value; }
  int GetMonitorAnalyteConcDevEnabled() const { return m_pRecord->MonitorAnalyteConcDevEnabled; }
  void SetMonitorAnalyteConcDevEnabled(int value) { m_pRecord->MonitorAnalyteConcDevEnabled = value; }
  double GetMonitorAnalyteConcDev() const { return m_pRecord->MonitorAnalyteConcDev; }
  void SetMonitorAnalyteConcDev(double value) { m_pRecord->MonitorAnalyteConcDev = value; }
  int GetMonitorAnalyteRatioEnabled() const { return m_pRecord->MonitorAnalyteRatioEnabled; }
  void SetMonitorAnalyteRatioEnabled(int value) { m_pRecord->MonitorAnalyteRatioEnabled = value; }
  int GetMonitorAnalyteRTEnabled() const { return m_pRecord->MonitorAnalyteRTEnabled; }
  void SetMonitorAnalyteRTEnabled(int value) { m_pRecord->MonitorAnalyteRTEnabled = value; }
  int GetMonitorAnalyteShapeEnabled() const { return m_pRecord->MonitorAnalyteShapeEnabled; }
  void SetMonitorAnalyteShapeEnabled(int value) { m_pRecord->MonitorAnalyteShapeEnabled = value; }
  int GetMonitorAnalyteSigNosEnabled() const { return m_pRecord->MonitorAnalyteSigNosEnabled; }
  void SetMonitorAnalyteSigNosEnabled(int value) { m_pRecord->MonitorAnalyteSigNosEnabled = value; }
  int GetMonitorAnalyteAction() const { return m_pRecord->MonitorAnalyteAction; }
  void SetMonitorAnalyteAction(int value) { m_pRecord->MonitorAnalyteAction = value; }
  int GetMonitorAnalyteReinjections() const { return m_pRecord->MonitorAnalyteReinjections; }
  void SetMonitorAnalyteReinjections(int value) { m_pRecord->MonitorAnalyteReinjections = value; }
  int GetMonitorAnalyteMaxAction() const { return m_pRecord->MonitorAnalyteMaxAction; }
  void SetMonitorAnalyteMaxAction(int value) { m_pRecord->MonitorAnalyteMaxAction = value; }
  int GetRecoveryPropagate() const { return m_pRecord->RecoveryPropagate; }
  void SetRecoveryPropagate(int value) { m_pRecord->RecoveryPropagate = value; }
  int GetRecoveryFlagRecovery() const { return m_pRecord->RecoveryFlagRecovery; }
  void SetRecoveryFlagRecovery(int value) { m_pRecord->RecoveryFlagRecovery = value; }
  int GetRecoveryFlagAnalyte() const { return m_pRecord->RecoveryFlagAnalyte; }
  void SetRecoveryFlagAnalyte(int value) { m_pRecord->RecoveryFlagAnalyte = value; }
  int GetRecoveryFlagQC() const { return m_pRecord->RecoveryFlagQC; }
  void SetRecoveryFlagQC(int value) { m_pRecord->RecoveryFlagQC = value; }
  int GetPropagateRetentionTimes() const { return m_pRecord->PropagateRetentionTimes; }
  void SetPropagateRetentionTimes(int value) { m_pRecord->PropagateRetentionTimes = value; }
  int GetMonitorStandardEnabled() const { return m_pRecord->MonitorStandardEnabled; }
  void SetMonitorStandardEnabled(int value) { m_pRecord->MonitorStandardEnabled = value; }
  int GetMonitorStandardPropagate() const { return m_pRecord->MonitorStandardPropagate; }
  void SetMonitorStandardPropagate(int value) { m_pRecord->MonitorStandardPropagate = value; }
  int GetMonitorStandardLowConcEnabled() const { return m_pRecord->MonitorStandardLowConcEnabled; }
  void SetMonitorStandardLowConcEnabled(int value) { m_pRecord->MonitorStandardLowConcEnabled = value; }
  double GetMonitorStandardLowConc() const { return m_pRecord->MonitorStandardLowConc; }
  void SetMonitorStandardLowConc(double value) { m_pRecord->MonitorStandardLowConc = value; }
  int GetMonitorStandardLowThreshEnabled() const { return m_pRecord->MonitorStandardLowThreshEnabled; }
  void SetMonitorStandardLowThreshEnabled(int value) { m_pRecord->MonitorStandardLowThreshEnabled = value; }
  double GetMonitorStandardLowThresh() const { return m_pRecord->MonitorStandardLowThresh; }
  void SetMonitorStandardLowThresh(double value) { m_pRecord->MonitorStandardLowThresh = value; }
  int GetMonitorStandardMidConcEnabled() const { return m_pRecord->MonitorStandardMidConcEnabled; }
  void SetMonitorStandardMidConcEnabled(int value) { m_pRecord->MonitorStandardMidConcEnabled = value; }
  double GetMonitorStandardMidConc() const { return m_pRecord->MonitorStandardMidConc; }
  void SetMonitorStandardMidConc(double value) { m_pRecord->MonitorStandardMidConc = value; }
  int GetMonitorStandardMidThreshEnabled() const { return m_pRecord->MonitorStandardMidThreshEnabled; }
  void SetMonitorStandardMidThreshEnabled(int value) { m_pRecord->MonitorStandardMidThreshEnabled = value; }
  double GetMonitorStandardMidThresh() const { return m_pRecord->MonitorStandardMidThresh; }
  void SetMonitorStandardMidThresh(double value) { m_pRecord->MonitorStandardMidThresh = value; }
  int GetMonitorStandardHighThreshEnabled() const { return m_pRecord->MonitorStandardHighThreshEnabled; }
  void SetMonitorStandardHighThreshEnabled(int value) { m_pRecord->MonitorStandardHighThreshEnabled = value; }
  double GetMonitorStandardHighThresh() const { return m_pRecord->MonitorStandardHighThresh; }
  void SetMonitorStandardHighThresh(double value) { m_pRecord->MonitorStandardHighThresh = value; }
  int GetMonitorStandardRatioEnabled() const { return m_pRecord->MonitorStandardRatioEnabled; }
  void SetMonitorStandardRatioEnabled(int value) { m_pRecord->MonitorStandardRatioEnabled = value; }
  int GetMonitorStandardRTEnabled() const { return m_pRecord->MonitorStandardRTEnabled; }
  void SetMonitorStandardRTEnabled(int value) { m_pRecord->MonitorStandardRTEnabled = value; }
  int GetMonitorStandardShapeEnabled() const { return m_pRecord->MonitorStandardShapeEnabled; }
  void SetMonitorStandardShapeEnabled(int value) { m_pRecord->MonitorStandardShapeEnabled = value; }
  int GetMonitorStandardSigNosEnabled() const { return m_pRecord->MonitorStandardSigNosEnabled; }
  void SetMonitorStandardSigNosEnabled(int value) { m_pRecord->MonitorStandardSigNosEnabled = value; }
  int GetMonitorStandardAction() const { return m_pRecord->MonitorStandardAction; }
  void SetMonitorStandardAction(int value) { m_pRecord->MonitorStandardAction = value; }
  int GetMonitorStandardReinjections() const { return m_pRecord->MonitorStandardReinjections; }
  void SetMonitorStandardReinjections(int value) { m_pRecord->MonitorStandardReinjections = value; }
  int GetMonitorStandardMaxAction() const { return m_pRecord->MonitorStandardMaxAction; }
  void SetMonitorStandardMaxAction(int value) { m_pRecord->MonitorStandardMaxAction = value; }
  int GetAsymmetryPropagate() const { return m_pRecord->AsymmetryPropagate; }
  void SetAsymmetryPropagate(int value) { m_pRecord->AsymmetryPropagate = value; }
  double GetAsymmetryMeasureAtHeight() const { return m_pRecord->AsymmetryMeasureAtHeight; }
  void SetAsymmetryMeasureAtHeight(double value) { m_pRecord->AsymmetryMeasureAtHeight = value; }
  int GetUseAsymmetryExpected() const { return m_pRecord->UseAsymmetryExpected; }
  void SetUseAsymmetryExpected(int value) { m_pRecord->UseAsymmetryExpected = value; }
  double GetAsymmetryExpectedValue() const { return m_pRecord->AsymmetryExpectedValue; }
  void SetAsymmetryExpectedValue(double value) { m_pRecord->AsymmetryExpectedValue = value; }
  double GetAsymmetryWindow() const { return m_pRecord->AsymmetryWindow; }
  void SetAsymmetryWindow(double value) { m_pRecord->AsymmetryWindow = value; }
  int GetAsymmetryFromReference() const { return m_pRecord->AsymmetryFromReference; }
  void SetAsymmetryFromReference(int value) { m_pRecord->AsymmetryFromReference = value; }
  int GetPropSpecSettings() const { return m_pRecord->PropSpecSettings; }
  void SetPropSpecSettings(int value) { m_pRecord->PropSpecSettings = value; }
  int GetFwdFitFlag() const { return m_pRecord->FwdFitFlag; }
  void SetFwdFitFlag(int value) { m_pRecord->FwdFitFlag = value; }
  int GetRevFitFlag() const { return m_pRecord->RevFitFlag; }
  void SetRevFitFlag(int value) { m_pRecord->RevFitFlag = value; }
  int GetIgnoreZeroConcStds() const { return m_pRecord->IgnoreZeroConcStds; }
  void SetIgnoreZeroConcStds(int value) { m_pRecord->IgnoreZeroConcStds = value; }
  int GetIgnoreZeroConcQCs() const { return m_pRecord->IgnoreZeroConcQCs; }
  void SetIgnoreZeroConcQCs(int value) { m_pRecord->IgnoreZeroConcQCs = value; }
  int GetApexAutoGen() const { return m_pRecord->ApexAutoGen; }
  void SetApexAutoGen(int value) { m_pRecord->ApexAutoGen = value; }
  int GetIFITPropagate() const { return m_pRecord->IFITPropagate; }
  void SetIFITPropagate(int value) { m_pRecord->IFITPropagate = value; }
  double GetIFITThreshold() const { return m_pRecord->IFITThreshold; }
  void SetIFITThreshold(double value) { m_pRecord->IFITThreshold = value; }
  int GetFlagIFIT() const { return m_pRecord->FlagIFIT; }
  void SetFlagIFIT(int value) { m_pRecord->FlagIFIT = value; }
  double GetIFITNThreshold() const { return m_pRecord->IFITNThreshold; }
  void SetIFITNThreshold(double value) { m_pRecord->IFITNThreshold = value; }
  int GetFlagIFITN() const { return m_pRecord->FlagIFITN; }
  void SetFlagIFITN(int value) { m_pRecord->FlagIFITN = value; }
  double GetIFITCThreshold() const { return m_pRecord->IFITCThreshold; }
  void SetIFITCThreshold(double value) { m_pRecord->IFITCThreshold = value; }
  int GetFlagIFITC() const { return m_pRecord->FlagIFITC; }
  void SetFlagIFITC(int value) { m_pRecord->FlagIFITC = value; }
  double GetppmThreshold() const { return m_pRecord->ppmThreshold; }
  void SetppmThreshold(double value) { m_pRecord->ppmThreshold = value; }
  int GetFlagppm() const { return m_pRecord->Flagppm; }
  void SetFlagppm(int value) { m_pRecord->Flagppm = value; }
  double GetabsThreshold() const { return m_pRecord->absThreshold; }
  void SetabsThreshold(double value) { m_pRecord->absThreshold = value; }
  int GetFlagabs() const { return m_pRecord->Flagabs; }
  void SetFlagabs(int value) { m_pRecord->Flagabs = value; }
  double GetQualWindow() const { return m_pRecord->QualWindow; }
  void SetQualWindow(double value) { m_pRecord->QualWindow = value; }
  int GetAlwaysPrint() const { return m_pRecord->AlwaysPrint; }
  void SetAlwaysPrint(int value) { m_pRecord->AlwaysPrint = value; }
  int GetIsAccurateMass() const { return m_pRecord->IsAccurateMass; }
  void SetIsAccurateMass(int value) { m_pRecord->IsAccurateMass = value; }
  int GetConvolveTrace() const { return m_pRecord->ConvolveTrace; }
  void SetConvolveTrace(int value) { m_pRecord->ConvolveTrace = value; }

  // ---- Views over other fields --------------------------------------------
  // TargetFlags bits: SigNoise 0, CoeffDet 1, PeakWidth 2, Recovery 4,
  // ConcLimit 5, ReportLimit 6, MaxStdDev 8, RTTolerance 9. Getters give 0 or
  // 1; setters set the bit for a non-zero value and clear it for 0.
  int GetSigNoiseFlag() const { return FlagBit(kSigNoiseBit); }
  void SetSigNoiseFlag(const int& value) { SetFlagBit(kSigNoiseBit, value); }
  int GetCoeffDetFlag() const { return FlagBit(kCoeffDetBit); }
  void SetCoeffDetFlag(const int& value) { SetFlagBit(kCoeffDetBit, value); }
  int GetPeakWidthFlag() const { return FlagBit(kPeakWidthBit); }
  void SetPeakWidthFlag(const int& value) { SetFlagBit(kPeakWidthBit, value); }
  int GetRecoveryFlag() const { return FlagBit(kRecoveryBit); }
  void SetRecoveryFlag(const int& value) { SetFlagBit(kRecoveryBit, value); }
  int GetConcLimitFlag() const { return FlagBit(kConcLimitBit); }
  void SetConcLimitFlag(const int& value) { SetFlagBit(kConcLimitBit, value); }
  int GetReportLimitFlag() const { return FlagBit(kReportLimitBit); }
  void SetReportLimitFlag(const int& value) { SetFlagBit(kReportLimitBit, value); }
  int GetMaxStdDevFlag() const { return FlagBit(kMaxStdDevBit); }
  void SetMaxStdDevFlag(const int& value) { SetFlagBit(kMaxStdDevBit, value); }
  int GetRTToleranceFlag() const { return FlagBit(kRTToleranceBit); }
  void SetRTToleranceFlag(const int& value) { SetFlagBit(kRTToleranceBit, value); }

  // Quantification traces in use (QuantificationTraces as a bit mask): 1 when
  // any bit of `mask` is set. The setter sets the mask's bits for a non-zero
  // `on` and clears them for 0.
  int GetUseTrace(const int& mask) const { return (m_pRecord->QuantificationTraces & mask) != 0 ? 1 : 0; }
  void SetUseTrace(const int& mask, const int& on);

  // The internal standard as a 1-based reference number: the first IStd entry
  // plus one (0 when there is none).
  int GetRRef() const;
  void SetRRef(const int& value);

  // The mass/intensity pairs as text: the pairs whose mass is above 0, each
  // "mass,intensity", separated by line feeds. This form appends to `text`,
  // with a line feed before each pair when `text` is not empty.
  void GetMassIntData(std::string& text) const;
  std::string GetMassIntData() const;
  // An empty text clears all 50 pairs. Otherwise the text is split on commas,
  // line feeds and tabs (empty pieces skipped), the pieces are read two at a
  // time as whole numbers (mass, intensity) into the pairs from the first on,
  // at most 50 pairs; a lone last piece is ignored and the pairs after the
  // last one written keep their values.
  void SetMassIntData(const std::string& text) { SetMassIntData(std::string_view(text)); }
  void SetMassIntData(const char* text) { SetMassIntData(std::string_view(text ? text : "")); }

  // ---- Whole-record operations --------------------------------------------
  // Zeroes the record and sets the defaults ("New Compound", the detection,
  // calibration, peak-quality and monitoring defaults). The standard
  // monitor's action, re-injection and maximum-action stay 0 where the other
  // monitors have 1.
  void Default();
  // Brings the internal-standard references into their normal form: without
  // internal-standard calculation (RCalc not 1) all six IStd become −1 and
  // UseMulti 0; otherwise the −1 entries are moved towards the end, the first
  // entry falls back to IStdNumber − 1 when it is empty and IStdNumber is
  // set, and UseMulti says whether more than one standard was set. The
  // compaction does not look again at a slot it has just filled, so two
  // empty entries in a row leave one of them in place.
  void FixInternalStandards();
  // Clears what points at other records of a method (IStd, TargetRef, RRTRef,
  // IonRatioRef) and makes CalCompound the compound's own Name: for a record
  // copied into another method.
  void ResetReferences();
  // Whether the record's TotalsGroup and `groups` share a group name (word
  // lists, see platform::CWordMatch).
  bool IsMemberOf(const std::string& groups) const;

  // ---- Field-by-number text form ------------------------------------------
  // `field` is a MethodDataFields number; `index` selects the CraigCorrection
  // element; the bool is accepted for compatibility and not used.
  //
  // Set: false for a number outside 0 … 347, a read-only or an unassigned
  // number; true otherwise, also when the text is not a number (numbers then
  // become 0, yes/no fields "on"). A null text reads as empty.
  bool MethodSetFieldStr(int field, bool, const char* text, int index = 0);
  // Get: empties `buffer` (kMethodFieldBufferSize bytes) and zeroes `value`,
  // then false for a number outside 0 … 347 or an unassigned one; else fills
  // the buffer (and, for numbers, `value`) and returns true. Numbers are
  // written with ten decimals.
  bool MethodGetFieldStr(int field, bool, char* buffer, int index, double& value) const;
  // The same into a string object.
  bool MethodGetFieldStr(int field, bool, std::string& text, int index, double& value) const;

  // Option bits of PkWatOperations (fields 119, 120, 121: masks 1, 2, 4; the
  // first two stored inverted) and of PkThreshMethod (122 … 125: masks 2, 1,
  // 8, 4). Setting: exactly "0" means off, anything else on. Getting gives
  // "1" or "0"; another field number is ignored (getters give "0").
  void SetWatOpField(const char* text, int field);
  std::string GetWatOpField(int field) const;
  void SetThresholdField(const char* text, int field);
  std::string GetThresholdField(int field) const;

  // ---- XML form -------------------------------------------------------------
  // Appends one "METHODRECORD" element with a "PARAMETER" element (attributes
  // "id" and "value") for every field number 0 … 347 in order, under the
  // builder's current element; a new document first gets the declaration.
  bool WriteXML(XmlBuilder& builder) const;
  // Applies every child element of `element` (normally a "METHODRECORD") as
  // field "id" = text "value" through MethodSetFieldStr. Unknown numbers
  // change nothing; fields not mentioned keep their values. False only for
  // a null node.
  bool ReadXML(const pugi::xml_node& element);
  // Loads a UTF-16 XML text and reads its document element with ReadXML;
  // false when the text does not load.
  bool ReadBSTR(const std::u16string& xml);
  // Appends one "PARAMETER" element under the builder's current element. The
  // double form writes "%lf" (six decimals).
  static bool AddValue(XmlBuilder& builder, int id, const char* value);
  static bool AddValue(XmlBuilder& builder, int id, int value);
  static bool AddValue(XmlBuilder& builder, int id, double value);

  // ---- Byte-array form ------------------------------------------------------
  // The 3504 record bytes; null when the array cannot be allocated.
  std::shared_ptr<ByteArray> WriteAsSafeArray() const;
  // Copies the first 3504 bytes into the record and normalises the
  // internal-standard references (FixInternalStandards). False for a null
  // array or one shorter than a record (the record is then unchanged).
  bool ReadFromSafeArray(const std::shared_ptr<ByteArray>& bytes);

 private:
  static constexpr int kSigNoiseBit = 1 << 0;
  static constexpr int kCoeffDetBit = 1 << 1;
  static constexpr int kPeakWidthBit = 1 << 2;
  static constexpr int kRecoveryBit = 1 << 4;
  static constexpr int kConcLimitBit = 1 << 5;
  static constexpr int kReportLimitBit = 1 << 6;
  static constexpr int kMaxStdDevBit = 1 << 8;
  static constexpr int kRTToleranceBit = 1 << 9;

  static bool InRange(int index, int count) noexcept { return index >= 0 && index < count; }
  int FlagBit(int bit) const noexcept { return (m_pRecord->TargetFlags & bit) != 0 ? 1 : 0; }
  void SetFlagBit(int bit, int value) noexcept;
  void SetMassIntData(std::string_view text);

  unsigned char* Bytes() noexcept { return reinterpret_cast<unsigned char*>(m_pRecord.get()); }
  const unsigned char* Bytes() const noexcept {
    return reinterpret_cast<const unsigned char*>(m_pRecord.get());
  }
  // The text at `offset`, up to its terminator or the end of the record.
  std::string_view TextAt(std::size_t offset) const noexcept;
  std::string ReadText(std::size_t offset) const { return std::string(TextAt(offset)); }
  // Keeps the leftmost `keep` characters of `value`, with terminator.
  void StoreText(std::size_t offset, std::string_view value, std::size_t keep) noexcept;
  // Copies `value` up to and including its terminator, at most `bound` bytes
  // and never past the end of the record.
  void CopyBytes(std::size_t offset, const char* value, std::size_t bound) noexcept;

  std::unique_ptr<tagINTERNAL_METHOD> m_pRecord;
};

}  // namespace kvdao
