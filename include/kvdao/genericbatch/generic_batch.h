#pragma once

// GenericBatch: the batch that the open-access front end submits: batch-wide
// methods, processing and reporting options, quantification and
// purification switches, and its plates, each with its samples. It reads
// and writes the generic batch file (".XBT": an initialisation-file text of
// "[Batch]", "[Plate:p]" and "[Sample:p:s]" sections, see
// docs/generic-batch.md), offers readers of single "[Batch]" keys that look
// into a file without loading it, and records a submitted batch in the
// status database (one row a sample).
//
// Promises: results are 1 or 0; nothing throws for bad input and no message
// is shown. Files are written beside their target and renamed over it, so a
// failed write leaves the old file. Reading never allocates more plates or
// samples than the file has sections.

#include <string>

#include "kvdao/genericbatch/dim1_data.h"
#include "kvdao/genericbatch/generic_plate.h"
#include "kvdao/platform/stdio_file.h"

namespace kvdao {

using PlateArray = Dim1Data<GenericPlate, GenericPlate&>;

class GenericBatch {
 public:
  static const std::string SectionPrefix;  // "Batch"
  static const std::string ZQQuanHeader;   // "ZQQUAN"
  static const std::string LabNameEntry;
  static const std::string MSMethodEntry;
  static const std::string MSTuneEntry;
  static const std::string LCMethodEntry;
  static const std::string InletPreRunMethodEntry;
  static const std::string InletPostRunMethodEntry;
  static const std::string InletSwitchMethodEntry;
  static const std::string ProcessEntry;
  static const std::string ProcessParametersEntry;
  static const std::string AcquProcessEntry;
  static const std::string AcquProcessParametersEntry;
  static const std::string AcquProcessOptionsEntry;
  static const std::string BatchIDEntry;
  static const std::string UserNameEntry;
  static const std::string EmailResultsEntry;
  static const std::string UserAddressEntry;
  static const std::string ReportSchemeEntry;
  static const std::string SampleReportEnableEntry;
  static const std::string SampleReportSchemeEntry;
  static const std::string PrioritySchedulingEntry;
  static const std::string EconomySchedulingEntry;
  static const std::string AnalysisTimeEntry;
  static const std::string HPLCMethodEntry;
  static const std::string FractionMethodEntry;
  static const std::string ActionOnErrorEntry;
  static const std::string PellatorMethodEntry;
  static const std::string ZQQuanMethodEntry;       // "ZQQuanMethDB"
  static const std::string OverrideOptimiseEntry;
  static const std::string AcquireQuantifyEntry;
  static const std::string QuanQuanOptEntry;
  static const std::string MolfileEntry;            // "Structure"
  static const std::string QuanResultsDirEntry;
  static const std::string EnableQuanResultsDirEntry;
  static const std::string PrintDravonicReportEntry;
  static const std::string PrepInjVolEntry;         // "PrepInjectionVolume"
  static const std::string ZQQuantitationEntry;
  static const std::string IntegrateEntry;          // "ZQQIntegrate"
  static const std::string CalibrateEntry;          // "ZQQCalibrate"
  static const std::string ZQQuantifyEntry;
  static const std::string PrintReportEntry;        // "ZQQPrintReport"
  static const std::string ExportToLimsEntry;       // "ZQQExportToLims"
  static const std::string UpdateMethodEntry;       // "ZQQUpdateMethod"
  static const std::string CalibrationFileEntry;    // "ZQQCalibrationFile"
  static const std::string MITFileEntry;
  static const std::string ZQAutoPurifyEntry;
  static const std::string ZQAnalyticalToPrepEntry;
  static const std::string ZQPrepToAnalyticalEntry;
  static const std::string ZQFileCreationPathID;    // "ZQFileCreationPath"
  static const std::string ZQFileSubmissionID;      // "ZQFileSubmission"
  static const std::string NumberOfPlatesEntry;     // "NumberOfPlates"

  GenericBatch() = default;

  using Text = const std::string&;
  Text LabName(Text v) { return m_labName = v; }
  Text LabName() const noexcept { return m_labName; }
  Text MSMethod(Text v) { return m_msMethod = v; }
  Text MSMethod() const noexcept { return m_msMethod; }
  Text MSTune(Text v) { return m_msTune = v; }
  Text MSTune() const noexcept { return m_msTune; }
  Text LCMethod(Text v) { return m_lcMethod = v; }
  Text LCMethod() const noexcept { return m_lcMethod; }
  Text InletPreRunMethod(Text v) { return m_inletPreRunMethod = v; }
  Text InletPreRunMethod() const noexcept { return m_inletPreRunMethod; }
  Text InletPostRunMethod(Text v) { return m_inletPostRunMethod = v; }
  Text InletPostRunMethod() const noexcept { return m_inletPostRunMethod; }
  Text InletSwitchMethod(Text v) { return m_inletSwitchMethod = v; }
  Text InletSwitchMethod() const noexcept { return m_inletSwitchMethod; }
  Text Process(Text v) { return m_process = v; }
  Text Process() const noexcept { return m_process; }
  Text ProcessParameters(Text v) { return m_processParameters = v; }
  Text ProcessParameters() const noexcept { return m_processParameters; }
  Text AcquProcess(Text v) { return m_acquProcess = v; }
  Text AcquProcess() const noexcept { return m_acquProcess; }
  Text AcquProcessParameters(Text v) { return m_acquProcessParameters = v; }
  Text AcquProcessParameters() const noexcept { return m_acquProcessParameters; }
  Text AcquProcessOptions(Text v) { return m_acquProcessOptions = v; }
  Text AcquProcessOptions() const noexcept { return m_acquProcessOptions; }
  Text BatchID(Text v) { return m_batchID = v; }
  Text BatchID() const noexcept { return m_batchID; }
  Text UserName(Text v) { return m_userName = v; }
  Text UserName() const noexcept { return m_userName; }
  int SetEmailResults(int v) noexcept { return m_emailResults = v; }
  int GetEmailResults() const noexcept { return m_emailResults; }
  Text UserAddress(Text v) { return m_userAddress = v; }
  Text UserAddress() const noexcept { return m_userAddress; }
  Text ReportScheme(Text v) { return m_reportScheme = v; }
  Text ReportScheme() const noexcept { return m_reportScheme; }
  int SampleReportEnable(int v) noexcept { return m_sampleReportEnable = v; }
  int SampleReportEnable() const noexcept { return m_sampleReportEnable; }
  Text SampleReportScheme(Text v) { return m_sampleReportScheme = v; }
  Text SampleReportScheme() const noexcept { return m_sampleReportScheme; }
  int PriorityScheduling(int v) noexcept { return m_priorityScheduling = v; }
  int PriorityScheduling() const noexcept { return m_priorityScheduling; }
  int EconomyScheduling(int v) noexcept { return m_economyScheduling = v; }
  int EconomyScheduling() const noexcept { return m_economyScheduling; }
  float AnalysisTime(float v) noexcept { return m_analysisTime = v; }
  float AnalysisTime() const noexcept { return m_analysisTime; }
  Text HPLCMethod(Text v) { return m_hplcMethod = v; }
  Text HPLCMethod() const noexcept { return m_hplcMethod; }
  Text FractionMethod(Text v) { return m_fractionMethod = v; }
  Text FractionMethod() const noexcept { return m_fractionMethod; }
  Text ActionOnError(Text v) { return m_actionOnError = v; }
  Text ActionOnError() const noexcept { return m_actionOnError; }
  void SetSectionPrefix(Text prefix) { m_sectionPrefix = prefix; }
  Text GetSectionPrefix() const noexcept { return m_sectionPrefix; }
  Text PellatorMethod(Text v) { return m_pellatorMethod = v; }
  Text PellatorMethod() const noexcept { return m_pellatorMethod; }
  Text ZQQuanMethod(Text v) { return m_zqQuanMethod = v; }
  Text ZQQuanMethod() const noexcept { return m_zqQuanMethod; }
  int OverrideOptimise(int v) noexcept { return m_overrideOptimise = v; }
  int OverrideOptimise() const noexcept { return m_overrideOptimise; }
  int AcquireQuantify(int v) noexcept { return m_acquireQuantify = v; }
  int AcquireQuantify() const noexcept { return m_acquireQuantify; }
  // Not stored in the file itself: a non-zero flag makes the writer mark
  // the file with an empty "[ZQQUAN]" section.
  int SetZQQuanOptFlag(int v) noexcept { return m_zqQuanOptFlag = v; }
  int GetZQQuanOptFlag() const noexcept { return m_zqQuanOptFlag; }
  int QuanQuanOpt(int v) noexcept { return m_quanQuanOpt = v; }
  int QuanQuanOpt() const noexcept { return m_quanQuanOpt; }
  Text Molfile(Text v) { return m_molfile = v; }
  Text Molfile() const noexcept { return m_molfile; }
  Text SetQuanResultsDir(Text v) { return m_quanResultsDir = v; }
  Text GetQuanResultsDir() const noexcept { return m_quanResultsDir; }
  int SetEnableQuanResultsDir(int v) noexcept { return m_enableQuanResultsDir = v; }
  int GetEnableQuanResultsDir() const noexcept { return m_enableQuanResultsDir; }
  int PrintDravonicReport(int v) noexcept { return m_printDravonicReport = v; }
  int PrintDravonicReport() const noexcept { return m_printDravonicReport; }
  double PrepInjectionVolume(double v) noexcept { return m_prepInjectionVolume = v; }
  double PrepInjectionVolume() const noexcept { return m_prepInjectionVolume; }
  int ZQQuantitation(int v) noexcept { return m_zqQuantitation = v; }
  int ZQQuantitation() const noexcept { return m_zqQuantitation; }
  int Integrate(int v) noexcept { return m_integrate = v; }
  int Integrate() const noexcept { return m_integrate; }
  int Calibrate(int v) noexcept { return m_calibrate = v; }
  int Calibrate() const noexcept { return m_calibrate; }
  int ZQQuantify(int v) noexcept { return m_zqQuantify = v; }
  int ZQQuantify() const noexcept { return m_zqQuantify; }
  int PrintReport(int v) noexcept { return m_printReport = v; }
  int PrintReport() const noexcept { return m_printReport; }
  int ExportToLims(int v) noexcept { return m_exportToLims = v; }
  int ExportToLims() const noexcept { return m_exportToLims; }
  int UpdateMethod(int v) noexcept { return m_updateMethod = v; }
  int UpdateMethod() const noexcept { return m_updateMethod; }
  Text CalibrationFile(Text v) { return m_calibrationFile = v; }
  Text CalibrationFile() const noexcept { return m_calibrationFile; }
  Text MITFile(Text v) { return m_mitFile = v; }
  Text MITFile() const noexcept { return m_mitFile; }
  int ZQAutoPurify(int v) noexcept { return m_zqAutoPurify = v; }
  int ZQAutoPurify() const noexcept { return m_zqAutoPurify; }
  int ZQAnalyticalToPrep(int v) noexcept { return m_zqAnalyticalToPrep = v; }
  int ZQAnalyticalToPrep() const noexcept { return m_zqAnalyticalToPrep; }
  int ZQPrepToAnalytical(int v) noexcept { return m_zqPrepToAnalytical = v; }
  int ZQPrepToAnalytical() const noexcept { return m_zqPrepToAnalytical; }
  Text ZQFileCreationPath(Text v) { return m_zqFileCreationPath = v; }
  Text ZQFileCreationPath() const noexcept { return m_zqFileCreationPath; }
  int ZQFileSubmission(int v) noexcept { return m_zqFileSubmission = v; }
  int ZQFileSubmission() const noexcept { return m_zqFileSubmission; }

  int Plates(const PlateArray& plates) {
    m_plates = plates;
    return 1;
  }
  const PlateArray& Plates() const noexcept { return m_plates; }
  int NumPlates() const noexcept { return m_plates.GetSize(); }
  // Resizes; new plates are default plates.
  int NumPlates(int count) {
    m_plates.SetSize(count);
    return 1;
  }
  int AddPlate(const GenericPlate& plate) {
    m_plates.Add(plate);
    return 1;
  }
  int RemovePlate(int index);
  int SetPlate(int index, const GenericPlate& plate);
  int GetPlate(int index, GenericPlate& plate) const;

  // The whole file. `sep` separates the numbers of section names (":").
  int Read(const std::string& file, const std::string& sep);
  int Write(const std::string& file, const std::string& sep);
  int Write(StdioFile& file, const std::string& sep);

  // Single "[Batch]" keys of a file. A null file name gives 0, else 1;
  // absent keys read as "" or 0.
  static int GetUserAddress(const char* file, std::string& user, std::string& address);
  static int GetReportScheme(const char* file, std::string& scheme);
  static int GetSampleReportEnable(const char* file, int& enable);
  static int GetSampleReportScheme(const char* file, std::string& scheme);
  static int GetPrioritySchedule(const char* file, int& priority);
  static int GetEconomySchedule(const char* file, int& economy);
  static int GetAnalysisTime(const char* file, float& minutes);
  // Adds the "NumberOfWells" of plates 1 … "NumberOfPlates" to n (n is not
  // reset; compounds are not counted).
  static int GetNumOfSamples(const char* file, int& n);
  static int GetPrintDravonicReport(const char* file, int& print);
  static int GetZQAnalyticalToPrep(const char* file, int& on);
  static int GetZQPrepToAnalytical(const char* file, int& on);
  static int GetZQFileCreationPath(const char* file, std::string& path);
  // 1 when auto-purify is on, either transfer switch is on and the batch
  // was not made by file submission.
  static int GetAutoPurifyBatch(const char* file, int& autoPurify);

  // --- Status database (ZQStatus.db beside the login area) ---
  // The database file for a login path: the part before the first
  // "\ZQLogin" (or "/ZQLogin") followed by "\ZQStatus.db" (or "/…").
  static std::string StatusDatabasePath(const std::string& loginPath);
  // Creates the "batches" table when it is missing; silent on failure.
  void PrepareDatabase(const std::string& loginPath) const;
  // Appends one row a sample, with IDs following the largest present one
  // (0 after 2147483646). 1 also when the database cannot be opened, so
  // that a missing status database never fails a submission; 0 when the
  // table cannot be read or the rows cannot be committed. Concurrent
  // writers (threads or processes) each get distinct IDs.
  int WriteZQStatus(const std::string& loginPath, bool isQC) const;
  // The last SQLite result code and error message of this thread's status
  // database calls.
  static int LastStatusResult();
  static const std::string& LastStatusError();

 private:
  int ReadBatchKeys(const std::string& file);
  bool WriteBatchKeys(StdioFile& file) const;

  std::string m_labName, m_msMethod, m_msTune, m_lcMethod, m_inletPreRunMethod,
      m_inletPostRunMethod, m_inletSwitchMethod, m_process, m_processParameters, m_acquProcess,
      m_acquProcessParameters, m_acquProcessOptions, m_batchID, m_userName;
  int m_emailResults = 0;
  std::string m_userAddress, m_reportScheme;
  int m_sampleReportEnable = 0;
  std::string m_sampleReportScheme;
  int m_priorityScheduling = 0;
  int m_economyScheduling = 0;
  float m_analysisTime = 0.0f;
  std::string m_hplcMethod, m_fractionMethod, m_actionOnError;
  std::string m_sectionPrefix = "Sample";
  std::string m_pellatorMethod, m_zqQuanMethod;
  int m_overrideOptimise = 0, m_acquireQuantify = 0, m_zqQuanOptFlag = 0, m_quanQuanOpt = 0;
  std::string m_molfile, m_quanResultsDir;
  int m_enableQuanResultsDir = 0, m_printDravonicReport = 0;
  double m_prepInjectionVolume = 0.0;
  int m_zqQuantitation = 0, m_integrate = 0, m_calibrate = 0, m_zqQuantify = 0,
      m_printReport = 0, m_exportToLims = 0, m_updateMethod = 0;
  std::string m_calibrationFile, m_mitFile;
  int m_zqAutoPurify = 0, m_zqAnalyticalToPrep = 0, m_zqPrepToAnalytical = 0;
  std::string m_zqFileCreationPath;
  int m_zqFileSubmission = 0;
  PlateArray m_plates;
};

}  // namespace kvdao
