#include "kvdao/genericbatch/generic_batch.h"

#include "checked_list.h"
#include "kvdao/genericbatch/generic_file.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/profile.h"

namespace kvdao {

const std::string GenericBatch::SectionPrefix = "Batch";
const std::string GenericBatch::ZQQuanHeader = "ZQQUAN";
const std::string GenericBatch::LabNameEntry = "LabName";
const std::string GenericBatch::MSMethodEntry = "MSMethod";
const std::string GenericBatch::MSTuneEntry = "MSTune";
const std::string GenericBatch::LCMethodEntry = "LCMethod";
const std::string GenericBatch::InletPreRunMethodEntry = "InletPreRunMethod";
const std::string GenericBatch::InletPostRunMethodEntry = "InletPostRunMethod";
const std::string GenericBatch::InletSwitchMethodEntry = "InletSwitchMethod";
const std::string GenericBatch::ProcessEntry = "Process";
const std::string GenericBatch::ProcessParametersEntry = "ProcessParameters";
const std::string GenericBatch::AcquProcessEntry = "AcquProcess";
const std::string GenericBatch::AcquProcessParametersEntry = "AcquProcessParameters";
const std::string GenericBatch::AcquProcessOptionsEntry = "AcquProcessOptions";
const std::string GenericBatch::BatchIDEntry = "BatchID";
const std::string GenericBatch::UserNameEntry = "UserName";
const std::string GenericBatch::EmailResultsEntry = "EmailResults";
const std::string GenericBatch::UserAddressEntry = "UserAddress";
const std::string GenericBatch::ReportSchemeEntry = "ReportScheme";
const std::string GenericBatch::SampleReportEnableEntry = "SampleReportEnable";
const std::string GenericBatch::SampleReportSchemeEntry = "SampleReportScheme";
const std::string GenericBatch::PrioritySchedulingEntry = "PriorityScheduling";
const std::string GenericBatch::EconomySchedulingEntry = "EconomyScheduling";
const std::string GenericBatch::AnalysisTimeEntry = "AnalysisTime";
const std::string GenericBatch::HPLCMethodEntry = "HPLCMethod";
const std::string GenericBatch::FractionMethodEntry = "FractionMethod";
const std::string GenericBatch::ActionOnErrorEntry = "ActionOnError";
const std::string GenericBatch::PellatorMethodEntry = "PellatorMethod";
const std::string GenericBatch::ZQQuanMethodEntry = "ZQQuanMethDB";
const std::string GenericBatch::OverrideOptimiseEntry = "OverrideOptimise";
const std::string GenericBatch::AcquireQuantifyEntry = "AcquireQuantify";
const std::string GenericBatch::QuanQuanOptEntry = "QuanQuanOpt";
const std::string GenericBatch::MolfileEntry = "Structure";
const std::string GenericBatch::QuanResultsDirEntry = "QuanResultsDir";
const std::string GenericBatch::EnableQuanResultsDirEntry = "EnableQuanResultsDir";
const std::string GenericBatch::PrintDravonicReportEntry = "PrintDravonicReport";
const std::string GenericBatch::PrepInjVolEntry = "PrepInjectionVolume";
const std::string GenericBatch::ZQQuantitationEntry = "ZQQuantitation";
const std::string GenericBatch::IntegrateEntry = "ZQQIntegrate";
const std::string GenericBatch::CalibrateEntry = "ZQQCalibrate";
const std::string GenericBatch::ZQQuantifyEntry = "ZQQuantify";
const std::string GenericBatch::PrintReportEntry = "ZQQPrintReport";
const std::string GenericBatch::ExportToLimsEntry = "ZQQExportToLims";
const std::string GenericBatch::UpdateMethodEntry = "ZQQUpdateMethod";
const std::string GenericBatch::CalibrationFileEntry = "ZQQCalibrationFile";
const std::string GenericBatch::MITFileEntry = "MITFile";
const std::string GenericBatch::ZQAutoPurifyEntry = "ZQAutoPurify";
const std::string GenericBatch::ZQAnalyticalToPrepEntry = "ZQAnalyticalToPrep";
const std::string GenericBatch::ZQPrepToAnalyticalEntry = "ZQPrepToAnalytical";
const std::string GenericBatch::ZQFileCreationPathID = "ZQFileCreationPath";
const std::string GenericBatch::ZQFileSubmissionID = "ZQFileSubmission";
const std::string GenericBatch::NumberOfPlatesEntry = "NumberOfPlates";

int GenericBatch::RemovePlate(int index) { return checked::Remove(m_plates, index); }

int GenericBatch::SetPlate(int index, const GenericPlate& plate) {
  return checked::Set(m_plates, index, plate);
}

int GenericBatch::GetPlate(int index, GenericPlate& plate) const {
  return checked::Get(m_plates, index, plate);
}

int GenericBatch::Read(const std::string& file, const std::string& sep) {
  // Thousands of keys are looked up in one go: the file is checked on disk
  // once for the whole read, not once a key.
  platform::ProfileSnapshot snapshot(file);
  const std::string& batch = SectionPrefix;
  int count = 0;
  ReadGenericInteger(count, file, batch, NumberOfPlatesEntry);
  // Every plate a writer writes has a section of its own: a count beyond
  // the file's sections is damage, and believing it could allocate without
  // bound.
  if (count < 0 || count > CountGenericSections(file)) return 0;
  m_plates.SetSize(count);
  for (int p = 0; p < m_plates.GetSize(); ++p) {
    m_plates[p].SetSectionPrefix(m_sectionPrefix);
    if (m_plates[p].Read(file, p + 1, sep) == 0) return 0;
  }
  return ReadBatchKeys(file);
}

int GenericBatch::ReadBatchKeys(const std::string& file) {
  const std::string& b = SectionPrefix;
  auto text = [&](std::string& value, const std::string& key) {
    ReadGenericString(value, file, b, key);
  };
  auto number = [&](int& value, const std::string& key) {
    ReadGenericInteger(value, file, b, key);
  };
  text(m_labName, LabNameEntry);
  text(m_msMethod, MSMethodEntry);
  text(m_msTune, MSTuneEntry);
  text(m_lcMethod, LCMethodEntry);
  text(m_inletPreRunMethod, InletPreRunMethodEntry);
  text(m_inletPostRunMethod, InletPostRunMethodEntry);
  text(m_inletSwitchMethod, InletSwitchMethodEntry);
  number(m_economyScheduling, EconomySchedulingEntry);
  number(m_priorityScheduling, PrioritySchedulingEntry);
  text(m_processParameters, ProcessParametersEntry);
  text(m_process, ProcessEntry);
  text(m_acquProcess, AcquProcessEntry);
  text(m_acquProcessParameters, AcquProcessParametersEntry);
  text(m_acquProcessOptions, AcquProcessOptionsEntry);
  text(m_userName, UserNameEntry);
  text(m_batchID, BatchIDEntry);
  number(m_emailResults, EmailResultsEntry);
  text(m_userAddress, UserAddressEntry);
  text(m_reportScheme, ReportSchemeEntry);
  number(m_sampleReportEnable, SampleReportEnableEntry);
  text(m_sampleReportScheme, SampleReportSchemeEntry);
  text(m_hplcMethod, HPLCMethodEntry);
  text(m_fractionMethod, FractionMethodEntry);
  text(m_actionOnError, ActionOnErrorEntry);
  text(m_pellatorMethod, PellatorMethodEntry);
  text(m_zqQuanMethod, ZQQuanMethodEntry);
  number(m_overrideOptimise, OverrideOptimiseEntry);
  number(m_acquireQuantify, AcquireQuantifyEntry);
  number(m_quanQuanOpt, QuanQuanOptEntry);
  text(m_molfile, MolfileEntry);
  text(m_quanResultsDir, QuanResultsDirEntry);
  number(m_enableQuanResultsDir, EnableQuanResultsDirEntry);
  number(m_printDravonicReport, PrintDravonicReportEntry);
  ReadGenericDouble(m_prepInjectionVolume, file, b, PrepInjVolEntry);
  number(m_zqQuantitation, ZQQuantitationEntry);
  number(m_integrate, IntegrateEntry);
  number(m_calibrate, CalibrateEntry);
  number(m_zqQuantify, ZQQuantifyEntry);
  number(m_printReport, PrintReportEntry);
  number(m_exportToLims, ExportToLimsEntry);
  number(m_updateMethod, UpdateMethodEntry);
  text(m_calibrationFile, CalibrationFileEntry);
  text(m_mitFile, MITFileEntry);
  number(m_zqAutoPurify, ZQAutoPurifyEntry);
  number(m_zqAnalyticalToPrep, ZQAnalyticalToPrepEntry);
  number(m_zqPrepToAnalytical, ZQPrepToAnalyticalEntry);
  text(m_zqFileCreationPath, ZQFileCreationPathID);
  number(m_zqFileSubmission, ZQFileSubmissionID);
  // AnalysisTime is written but not read back: the field keeps its value.
  return 1;
}

bool GenericBatch::WriteBatchKeys(StdioFile& f) const {
  // These keys are constants, so their lines cannot fail for want of a key;
  // a failing stream shows at the plate count.
  auto text = [&](const std::string& key, const std::string& value) {
    WriteGenericEntry(f, key, value);
  };
  auto number = [&](const std::string& key, int value) { WriteGenericEntry(f, key, value); };
  text(LabNameEntry, m_labName);
  text(MSMethodEntry, m_msMethod);
  text(MSTuneEntry, m_msTune);
  text(LCMethodEntry, m_lcMethod);
  text(InletPreRunMethodEntry, m_inletPreRunMethod);
  text(InletPostRunMethodEntry, m_inletPostRunMethod);
  text(InletSwitchMethodEntry, m_inletSwitchMethod);
  number(EconomySchedulingEntry, m_economyScheduling);
  number(PrioritySchedulingEntry, m_priorityScheduling);
  WriteGenericEntry(f, AnalysisTimeEntry, "%.2f", static_cast<double>(m_analysisTime));
  text(ProcessParametersEntry, m_processParameters);
  text(ProcessEntry, m_process);
  text(AcquProcessEntry, m_acquProcess);
  text(AcquProcessParametersEntry, m_acquProcessParameters);
  text(AcquProcessOptionsEntry, m_acquProcessOptions);
  text(UserNameEntry, m_userName);
  text(BatchIDEntry, m_batchID);
  number(EmailResultsEntry, m_emailResults);
  text(UserAddressEntry, m_userAddress);
  text(ReportSchemeEntry, m_reportScheme);
  number(SampleReportEnableEntry, m_sampleReportEnable);
  text(SampleReportSchemeEntry, m_sampleReportScheme);
  text(HPLCMethodEntry, m_hplcMethod);
  text(FractionMethodEntry, m_fractionMethod);
  text(ActionOnErrorEntry, m_actionOnError);
  text(PellatorMethodEntry, m_pellatorMethod);
  text(ZQQuanMethodEntry, m_zqQuanMethod);
  number(OverrideOptimiseEntry, m_overrideOptimise);
  number(AcquireQuantifyEntry, m_acquireQuantify);
  number(QuanQuanOptEntry, m_quanQuanOpt);
  text(MolfileEntry, m_molfile);
  number(EnableQuanResultsDirEntry, m_enableQuanResultsDir);
  text(QuanResultsDirEntry, m_quanResultsDir);
  number(PrintDravonicReportEntry, m_printDravonicReport);

  // The batch's injection volume and MIT file stand in only for a first
  // sample that has none of its own.
  const GenericSample* first = nullptr;
  if (m_plates.GetSize() > 0 && m_plates[0].NumSamples() > 0) first = &m_plates[0].Samples()[0];
  if (first != nullptr && first->PrepInjectionVolume() == 0.0) {
    WriteGenericEntry(f, PrepInjVolEntry, "%.2f", m_prepInjectionVolume);
  }
  if (first != nullptr && first->MITFile().empty()) text(MITFileEntry, m_mitFile);

  number(ZQQuantitationEntry, m_zqQuantitation);
  number(IntegrateEntry, m_integrate);
  number(CalibrateEntry, m_calibrate);
  number(ZQQuantifyEntry, m_zqQuantify);
  number(PrintReportEntry, m_printReport);
  number(ExportToLimsEntry, m_exportToLims);
  number(UpdateMethodEntry, m_updateMethod);
  text(CalibrationFileEntry, m_calibrationFile);
  number(ZQAutoPurifyEntry, m_zqAutoPurify);
  number(ZQAnalyticalToPrepEntry, m_zqAnalyticalToPrep);
  number(ZQPrepToAnalyticalEntry, m_zqPrepToAnalytical);
  text(ZQFileCreationPathID, m_zqFileCreationPath);
  number(ZQFileSubmissionID, m_zqFileSubmission);
  return WriteGenericEntry(f, NumberOfPlatesEntry, m_plates.GetSize()) != 0;
}

int GenericBatch::Write(StdioFile& file, const std::string& sep) {
  // An empty "[ZQQUAN]" section marks a batch with quantification.
  if ((m_zqQuanOptFlag != 0 || m_zqQuantitation != 0) &&
      WriteGenericSection(file, ZQQuanHeader) == 0) {
    return 0;
  }
  if (WriteGenericSection(file, SectionPrefix) == 0) return 0;
  if (!WriteBatchKeys(file)) return 0;
  for (int p = 0; p < m_plates.GetSize(); ++p) {
    if (m_plates[p].Write(file, p + 1, sep) == 0) return 0;
  }
  return 1;
}

int GenericBatch::Write(const std::string& file, const std::string& sep) {
  return platform::WriteFileThrough(file, [&](StdioFile& out) { return Write(out, sep) != 0; })
             ? 1
             : 0;
}

}  // namespace kvdao
