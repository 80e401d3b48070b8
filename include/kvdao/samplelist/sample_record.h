#pragma once

// CSampleRecord: one sample (one injection) with named accessors,
// independent of any list.
//
// A record keeps its values in two owned stores: the flat 4262-byte record
// (_tagINTERNAL_SAMPLES_DB_RECORD), whose fields are fixed-width texts, and
// CSampleRecordAttributes, which holds what has no place there. Copies are
// independent.
//
// Promises:
//  - a fixed-width text setter copies at most the field's width and never
//    writes past its buffer; a null text changes nothing;
//  - numbers kept in the flat record are written with "%lf" (cut to the
//    field's width of 15) and read back with atof;
//  - masses and concentrations go to the flat record's slot (when there is
//    one: 30 masses, 20 concentrations) and to the attributes; getters read
//    the attributes, and anything at or beyond a group's count reads as 0.0
//    or an empty text;
//  - sample and control types are stored by name; reading a type's number
//    matches names without regard to case, the last match winning.

#include <memory>
#include <string>

#include "kvdao/platform/stdio_file.h"
#include "kvdao/samplelist/kv_variant.h"
#include "kvdao/samplelist/sample_db_record.h"
#include "kvdao/samplelist/sample_list_row.h"
#include "kvdao/samplelist/sample_record_attributes.h"
#include "kvdao/support/external_program.h"

namespace kvdao {

class CSampleRecord {
 public:
  // Names of the sample types, by number, and of the control types.
  static const char* const kSampleTypeNames[8];
  static const char* const kControlTypeNames[2];

  // Key names of the record's text form and of the import dialogs.
  static const std::string DataFileName, SampleDescription, MSFile, MSTuneFile, InletFile,
      InletPreRun, InletPostRun, InletSwitch, ASFile, SampleLocation, AutoAddition,
      CartridgeLocation1, CartridgeLocation2, SampleGroup, JobCode, TaskCode, UserName,
      SampleType, Control, QualityReference, SampleID, Conditions, Submitter, Process,
      ProcessParameters, ProcessOptions, AcquProcess, AcquProcessParameters, AcquProcessOptions,
      ProcessAction, Concentrations, Concentration, Masses, Mass, PlateDescription, FractionFile,
      FractionStart, FractionTriggers, FractionTrigger, UserFactor1, UserFactor2, UserFactor3,
      UserDivisor1, Wavelengths, Wavelength, Spares, Spare, HPLCFile, QuanRef, MethDB, CurveDB,
      DumpFile, SamplePosition, Molfile, SubjectText, SubjectTime, SubjectSex, SubjectSpecies,
      Compounds, Compound, FormatFile, RetentionTimeOffset, Reinjections, PrepInjectionVolume,
      MITFile;

  CSampleRecord();
  explicit CSampleRecord(const _tagINTERNAL_SAMPLES_DB_RECORD& record);
  CSampleRecord(const CSampleRecord& other);
  CSampleRecord& operator=(const CSampleRecord& other);
  virtual ~CSampleRecord();

  static const char* ClassName() { return "CSampleRecord"; }
  virtual const char* GetClassName() const { return ClassName(); }
  static CSampleRecord* CreateInstance() { return new CSampleRecord(); }

  // Allocates whichever store is missing and clears the flat record to zero
  // bytes; the attributes are kept.
  void Initialise();

  // --- conversion to and from a sample-list row ---
  // Every column maps to one field (FILE_NAME to the data file, CONC_A to
  // concentration 0, Index to the sample number, VERSION to the layout
  // version, ...). A row converted to a record and back is the same row for
  // texts within their fields' widths, doubles that survive "%lf" in 15
  // characters, and whole-number indexes.
  explicit CSampleRecord(const CSampleListRow& row);
  CSampleRecord& operator=(const CSampleListRow& row);
  void GetSample(CSampleListRow* row) const;
  void SetSample(const CSampleListRow* row);
  // Copies one cell of a row into its field: through CopyFieldString for a
  // text column, CopyFieldOther for the rest. A column outside the schema
  // does nothing.
  void CopyField(const CSampleListRow& row, int column);
  void CopyFieldString(int column, const std::string& text);
  void CopyFieldOther(int column, const CKVVariant& value);
  // Writes the field of `column` into the row's cell.
  void CopyToRowVal(CSampleListRow& row, int column) const;

  // --- typed access by column ---
  // `field` is a sample-list column and `index` a member number added to it
  // (CONC_A with index 3 is CONC_D). Values convert as the row conversion
  // does; a boolean is true for a non-zero number or the text "TRUE". False
  // for a column outside the schema.
  virtual bool GetValue(const int& field, bool& out, const int& index) const;
  virtual bool GetValue(const int& field, double& out, const int& index) const;
  virtual bool GetValue(const int& field, int& out, const int& index) const;
  virtual bool GetValue(const int& field, std::string& out, const int& index) const;
  virtual bool SetValue(const int& field, const bool& value, const int& index);
  virtual bool SetValue(const int& field, const double& value, const int& index);
  virtual bool SetValue(const int& field, const int& value, const int& index);
  virtual bool SetValue(const int& field, const std::string& value, const int& index);

  // The processing and acquisition programs: the process name as a full
  // ".exe" path with the process parameters as arguments. 0 when the record
  // names no such program.
  int GetExternalProgram(CExternalProgram& out) const;
  int GetAcquProgram(CExternalProgram& out) const;

  // --- text form ---
  // An initialisation-style file with one section per sample, "[Sample<n>]"
  // (n from 1), and one "key=value" line per field under the key names
  // above; a group is its count ("Masses=3") and its members ("Mass1=..").
  // Write followed by Read gives the same record, except that line breaks in
  // a text, which a line cannot carry, come back as blanks.
  static const std::string TextSectionPrefix;  // "Sample"
  // Replace the file with sample n (1 when not given); 0 when it cannot be
  // written.
  int Write(const char* path);
  int Write(const char* path, int n);
  // Add sample n to the end of the file, creating it if needed.
  int Add(const char* path);
  int Add(const char* path, int n);
  // Write sample n's section to an open file; 0 on a write error.
  int Write(StdioFile& file);
  int Write(StdioFile& file, int n);
  static int WriteField(StdioFile& file, const std::string& key, const std::string& value);
  static int WriteField(StdioFile& file, const std::string& key, double value, int precision);
  // Read sample n's section; 0 when the file or the section is missing (the
  // record is then left as it was).
  int Read(const char* path);
  int Read(const char* path, int n);
  // One value of a section, cut to size - 1 characters; `defaultValue` when
  // missing.
  static std::string ReadField(const char* path, const char* section, const char* key,
                               const char* defaultValue, int size = 1024);

  // Copies the flat record out or in. Copying in also refills the
  // attributes' masses and concentrations from the record's slots.
  void GetSample(_tagINTERNAL_SAMPLES_DB_RECORD* record) const;
  void SetSample(const _tagINTERNAL_SAMPLES_DB_RECORD* record);
  operator const _tagINTERNAL_SAMPLES_DB_RECORD*() const noexcept { return m_pRecord.get(); }
  const CSampleRecordAttributes& Attributes() const noexcept { return *m_pAttributes; }

  // --- fixed-width texts ---
  std::string GetDescription() const;
  void SetDescription(const char* text);
  std::string GetMSFile() const;
  void SetMSFile(const char* text);
  std::string GetInletFile() const;
  void SetInletFile(const char* text);
  std::string GetASFile() const;
  void SetASFile(const char* text);
  std::string GetVialReference() const;
  void SetVialReference(const char* text);
  std::string GetJob() const;
  void SetJob(const char* text);
  std::string GetTask() const;
  void SetTask(const char* text);
  std::string GetUser() const;
  void SetUser(const char* text);
  std::string GetSubmitter() const;
  void SetSubmitter(const char* text);
  std::string GetConditions() const;
  void SetConditions(const char* text);
  std::string GetType() const;
  void SetType(const char* text);
  std::string GetControlType() const;
  void SetControlType(const char* text);
  std::string GetID() const;
  void SetID(const char* text);
  std::string GetQualityReference() const;
  void SetQualityReference(const char* text);
  std::string GetQuantityReference() const;
  void SetQuantityReference(const char* text);
  std::string GetQuanRef() const { return GetQuantityReference(); }
  void SetQuanRef(const char* text) { SetQuantityReference(text); }
  std::string GetReinjections() const;
  void SetReinjections(const char* text);
  std::string GetSubjectText() const;
  void SetSubjectText(const char* text);
  std::string GetDataFile() const;
  void SetDataFile(const char* text);

  // --- numbers kept as text ---
#define KVDAO_NUMBER_FIELD(Name)         \
  double Get##Name() const;              \
  void Set##Name(const char* text);      \
  void Set##Name(double value);
  KVDAO_NUMBER_FIELD(InjectionVolume)
  KVDAO_NUMBER_FIELD(StockDilution)
  KVDAO_NUMBER_FIELD(UserDivisor1)
  KVDAO_NUMBER_FIELD(UserFactor1)
  KVDAO_NUMBER_FIELD(UserFactor2)
  KVDAO_NUMBER_FIELD(UserFactor3)
  KVDAO_NUMBER_FIELD(SubjectTime)
  KVDAO_NUMBER_FIELD(PrepInjectionVolume)
  KVDAO_NUMBER_FIELD(RetentionTimeOffset)  // kept in the attributes, as a double
#undef KVDAO_NUMBER_FIELD

  int GetSamplePosition() const;
  void SetSamplePosition(int position);
  void SetSamplePosition(const char* text);  // atoi
  int GetSampleNumber() const;
  void SetSampleNumber(int number);

  // --- sample and control types by number ---
  // Stores the name of type n (0..7), or an empty text for any other n.
  void SetType(int n);
  // The number of the stored name, 0 when none matches.
  int GetType(int& n) const;
  void SetControlType(int n);
  int GetControlType(int& n) const;

  // --- indexed groups ---
  int GetNumMasses() const;
  int GetNumConcentrations() const;
  int GetNumWavelengths() const;
  int GetNumFractionTriggers() const;
  int GetNumSpares() const;
  int GetNumCompounds() const;

  double GetMass(int i) const;
  std::string GetMassText(int i) const;
  void SetMass(int i, const char* text);
  void SetMass(int i, double value);
  double GetConcentration(int i) const;
  std::string GetConcentrationText(int i) const;
  void SetConcentration(int i, const char* text);
  void SetConcentration(int i, double value);
  double GetWavelength(int i) const;
  void SetWavelength(int i, double value);
  std::string GetFractionTrigger(int i) const;
  void SetFractionTrigger(int i, const char* text);
  std::string GetSpare(int i) const;
  void SetSpare(int i, const char* text);
  std::string GetCompound(int i) const;
  void SetCompound(int i, const char* text);

  // --- texts of any length ---
  std::string GetAttribute(CSampleRecordAttributes::TextField field) const;
  void SetAttribute(CSampleRecordAttributes::TextField field, const char* text);

  // Named forms of the texts above.
#define KVDAO_ATTRIBUTE_TEXT(Name)                                                         \
  std::string Get##Name() const { return GetAttribute(CSampleRecordAttributes::Name); } \
  void Set##Name(const char* text) { SetAttribute(CSampleRecordAttributes::Name, text); }
  KVDAO_ATTRIBUTE_TEXT(Process)
  KVDAO_ATTRIBUTE_TEXT(ProcessParameters)
  KVDAO_ATTRIBUTE_TEXT(ProcessOptions)
  KVDAO_ATTRIBUTE_TEXT(ProcessAction)
  KVDAO_ATTRIBUTE_TEXT(AcquProcess)
  KVDAO_ATTRIBUTE_TEXT(AcquProcessParameters)
  KVDAO_ATTRIBUTE_TEXT(AcquProcessOptions)
  KVDAO_ATTRIBUTE_TEXT(AcquParameters)
  KVDAO_ATTRIBUTE_TEXT(Parameters)
  KVDAO_ATTRIBUTE_TEXT(Molfile)
  KVDAO_ATTRIBUTE_TEXT(FractionFile)
  KVDAO_ATTRIBUTE_TEXT(FractionStart)
  KVDAO_ATTRIBUTE_TEXT(HPLCFile)
  KVDAO_ATTRIBUTE_TEXT(MSTuneFile)
  KVDAO_ATTRIBUTE_TEXT(InletPreRun)
  KVDAO_ATTRIBUTE_TEXT(InletPostRun)
  KVDAO_ATTRIBUTE_TEXT(InletSwitch)
  KVDAO_ATTRIBUTE_TEXT(MethDB)
  KVDAO_ATTRIBUTE_TEXT(CurveDB)
  KVDAO_ATTRIBUTE_TEXT(SampleGroup)
  KVDAO_ATTRIBUTE_TEXT(AutoAddition)
  KVDAO_ATTRIBUTE_TEXT(CartridgeLocation1)
  KVDAO_ATTRIBUTE_TEXT(CartridgeLocation2)
  KVDAO_ATTRIBUTE_TEXT(FormatFile)
  KVDAO_ATTRIBUTE_TEXT(DumpFile)
  KVDAO_ATTRIBUTE_TEXT(PlateDescription)
  KVDAO_ATTRIBUTE_TEXT(MITFile)
  KVDAO_ATTRIBUTE_TEXT(SubjectSex)
  KVDAO_ATTRIBUTE_TEXT(SubjectSpecies)
#undef KVDAO_ATTRIBUTE_TEXT

 protected:
  // The field of a column (0..159) as a cell value.
  CKVVariant FieldValue(int column) const;

  std::unique_ptr<_tagINTERNAL_SAMPLES_DB_RECORD> m_pRecord;
  std::unique_ptr<CSampleRecordAttributes> m_pAttributes;
};

}  // namespace kvdao
