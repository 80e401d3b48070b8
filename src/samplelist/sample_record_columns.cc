// The one table that maps each sample-list column to its sample record
// field, and the row conversions it drives.

#include <array>
#include <cstdlib>

#include "kvdao/platform/path.h"
#include "kvdao/samplelist/sample_record.h"
#include "kvdao/samplelist/schema.h"

namespace kvdao {
namespace {

using Attr = CSampleRecordAttributes;

enum class Kind {
  kText,         // a fixed-width text: getText / setText
  kNumber,       // a number kept as text (or the retention time offset)
  kAttribute,    // a text of any length in the attributes
  kMass,         // group members, by member number
  kConcentration,
  kWavelength,
  kFractionTrigger,
  kSpare,
  kCompound,
  kVersion,      // the layout version
  kSampleNumber  // the Index column
};

struct ColumnField {
  const char* column;
  Kind kind;
  int member = 0;  // group member number or attribute field
  std::string (CSampleRecord::*getText)() const = nullptr;
  void (CSampleRecord::*setText)(const char*) = nullptr;
  double (CSampleRecord::*getNumber)() const = nullptr;
  void (CSampleRecord::*setNumber)(double) = nullptr;
};

ColumnField Text(const char* column, std::string (CSampleRecord::*get)() const,
                 void (CSampleRecord::*set)(const char*)) {
  return {column, Kind::kText, 0, get, set};
}
ColumnField Number(const char* column, double (CSampleRecord::*get)() const,
                   void (CSampleRecord::*set)(double)) {
  return {column, Kind::kNumber, 0, nullptr, nullptr, get, set};
}
ColumnField Attribute(const char* column, Attr::TextField field) {
  return {column, Kind::kAttribute, field};
}

// Builds the table, indexed by column, from the names above and the groups
// of the schema.
std::array<ColumnField, kSampleColumnCount> BuildTable() {
  const ColumnField named[] = {
      {"VERSION", Kind::kVersion},
      Text("FILE_NAME", &CSampleRecord::GetDataFile, &CSampleRecord::SetDataFile),
      Text("FILE_TEXT", &CSampleRecord::GetDescription, &CSampleRecord::SetDescription),
      Text("MS_FILE", &CSampleRecord::GetMSFile, &CSampleRecord::SetMSFile),
      Attribute("MS_TUNE_FILE", Attr::MSTuneFile),
      Text("INLET_FILE", &CSampleRecord::GetInletFile, &CSampleRecord::SetInletFile),
      Attribute("INLET_PRERUN", Attr::InletPreRun),
      Attribute("INLET_POSTRUN", Attr::InletPostRun),
      Attribute("INLET_SWITCH", Attr::InletSwitch),
      Text("AUTO_FILE", &CSampleRecord::GetASFile, &CSampleRecord::SetASFile),
      Attribute("PROCESS", Attr::Process),
      Attribute("PROCESS_PARAMS", Attr::ProcessParameters),
      Attribute("PROCESS_OPTIONS", Attr::ProcessOptions),
      Attribute("ACQU_PROCESS", Attr::AcquProcess),
      Attribute("ACQU_PROCESS_PARAMS", Attr::AcquProcessParameters),
      Attribute("ACQU_PROCESS_OPTIONS", Attr::AcquProcessOptions),
      Attribute("PROCESS_ACTION", Attr::ProcessAction),
      Text("SAMPLE_LOCATION", &CSampleRecord::GetVialReference, &CSampleRecord::SetVialReference),
      Attribute("SAMPLE_GROUP", Attr::SampleGroup),
      Text("JOB", &CSampleRecord::GetJob, &CSampleRecord::SetJob),
      Text("TASK", &CSampleRecord::GetTask, &CSampleRecord::SetTask),
      Text("USER", &CSampleRecord::GetUser, &CSampleRecord::SetUser),
      Text("SUBMITTER", &CSampleRecord::GetSubmitter, &CSampleRecord::SetSubmitter),
      Text("CONDITIONS", &CSampleRecord::GetConditions, &CSampleRecord::SetConditions),
      Text("TYPE", &CSampleRecord::GetType, &CSampleRecord::SetType),
      Text("CONTROL", &CSampleRecord::GetControlType, &CSampleRecord::SetControlType),
      Text("ID", &CSampleRecord::GetID, &CSampleRecord::SetID),
      Attribute("FRACTION_FILE", Attr::FractionFile),
      Attribute("FRACTION_START", Attr::FractionStart),
      Number("INJ_VOL", &CSampleRecord::GetInjectionVolume, &CSampleRecord::SetInjectionVolume),
      Number("STOCK_DIL", &CSampleRecord::GetStockDilution, &CSampleRecord::SetStockDilution),
      Number("USER_DIVISOR_1", &CSampleRecord::GetUserDivisor1, &CSampleRecord::SetUserDivisor1),
      Number("USER_FACTOR_1", &CSampleRecord::GetUserFactor1, &CSampleRecord::SetUserFactor1),
      Number("USER_FACTOR_2", &CSampleRecord::GetUserFactor2, &CSampleRecord::SetUserFactor2),
      Number("USER_FACTOR_3", &CSampleRecord::GetUserFactor3, &CSampleRecord::SetUserFactor3),
      Attribute("HPLC_FILE", Attr::HPLCFile),
      Text("QUAN_REF", &CSampleRecord::GetQuanRef, &CSampleRecord::SetQuanRef),
      Attribute("AUTO_ADDITION", Attr::AutoAddition),
      Attribute("MOLFILE", Attr::Molfile),
      Text("SUBJECT_TEXT", &CSampleRecord::GetSubjectText, &CSampleRecord::SetSubjectText),
      Number("SUBJECT_TIME", &CSampleRecord::GetSubjectTime, &CSampleRecord::SetSubjectTime),
      Attribute("SUBJECT_GENDER", Attr::SubjectSex),
      Attribute("SUBJECT_SPECIES", Attr::SubjectSpecies),
      Attribute("METH_DB", Attr::MethDB),
      Attribute("CURVE_DB", Attr::CurveDB),
      Number("RETENTION_TIME_OFFSET", &CSampleRecord::GetRetentionTimeOffset,
             &CSampleRecord::SetRetentionTimeOffset),
      Number("PREP_INJ_VOL", &CSampleRecord::GetPrepInjectionVolume,
             &CSampleRecord::SetPrepInjectionVolume),
      Text("QUALITY_REFERENCE", &CSampleRecord::GetQualityReference,
           &CSampleRecord::SetQualityReference),
      Attribute("MIT_FILE", Attr::MITFile),
      Attribute("CARTRIDGE_LOCATION_1", Attr::CartridgeLocation1),
      Attribute("CARTRIDGE_LOCATION_2", Attr::CartridgeLocation2),
      Text("REINJECTIONS", &CSampleRecord::GetReinjections, &CSampleRecord::SetReinjections),
      Attribute("FORMAT_FILE", Attr::FormatFile),
      Attribute("DUMP_FILE", Attr::DumpFile),
      {"Index", Kind::kSampleNumber},
  };
  std::array<ColumnField, kSampleColumnCount> table{};
  std::array<bool, kSampleColumnCount> filled{};
  auto place = [&](int column, const ColumnField& field) {
    if (column < 0 || filled[column]) std::abort();  // a name missing or mapped twice
    table[column] = field;
    filled[column] = true;
  };
  for (const ColumnField& field : named) place(FindSampleColumn(field.column), field);
  const struct {
    int first;
    int count;
    Kind kind;
  } groups[] = {{kColumnMassFirst, kMassColumnCount, Kind::kMass},
                {kColumnConcFirst, kConcColumnCount, Kind::kConcentration},
                {kColumnWavelengthFirst, kWavelengthColumnCount, Kind::kWavelength},
                {kColumnFractionFirst, kFractionColumnCount, Kind::kFractionTrigger},
                {kColumnSpareFirst, kSpareColumnCount, Kind::kSpare},
                {kColumnCompoundFirst, kCompoundColumnCount, Kind::kCompound}};
  for (const auto& group : groups) {
    for (int i = 0; i < group.count; ++i) {
      place(group.first + i, {kSampleColumns[group.first + i].name, group.kind, i});
    }
  }
  for (bool done : filled) {
    if (!done) std::abort();  // every column has a field
  }
  return table;
}

const std::array<ColumnField, kSampleColumnCount>& Table() {
  static const std::array<ColumnField, kSampleColumnCount> table = BuildTable();
  return table;
}

// A cell's value as a number, whatever its tag: texts as atof reads them.
double NumberOf(const CKVVariant& value) {
  switch (value.vt()) {
    case VT_R8:
    case VT_DATE: return value.dblVal();
    case VT_R4: return value.fltVal();
    case VT_BSTR: return std::atof(std::string(value.text()).c_str());
    case VT_I2:
    case VT_BOOL: return value.iVal();
    case VT_I4:
    case VT_INT:
    case VT_ERROR: return value.lVal();
    case VT_UI1: return value.bVal();
    case VT_UI2: return value.uiVal();
    case VT_UI4:
    case VT_UINT: return value.ulVal();
    case VT_CY: return static_cast<double>(value.cyVal()) / 10000.0;
    default: return 0.0;
  }
}

}  // namespace

CSampleRecord::CSampleRecord(const CSampleListRow& row) {
  Initialise();
  SetSample(&row);
}

CSampleRecord& CSampleRecord::operator=(const CSampleListRow& row) {
  SetSample(&row);
  return *this;
}

void CSampleRecord::SetSample(const CSampleListRow* row) {
  if (row == nullptr) return;
  for (int column = 0; column < kSampleColumnCount; ++column) CopyField(*row, column);
  // Groups keep only what was entered, so that a record's counts say how
  // many masses (and so on) the sample has.
  m_pAttributes->masses.TrimTrailingEmpty();
  m_pAttributes->concentrations.TrimTrailingEmpty();
  m_pAttributes->wavelengths.TrimTrailingEmpty();
  m_pAttributes->fractionTriggers.TrimTrailingEmpty();
  m_pAttributes->spares.TrimTrailingEmpty();
  m_pAttributes->compounds.TrimTrailingEmpty();
}

void CSampleRecord::GetSample(CSampleListRow* row) const {
  if (row == nullptr) return;
  for (int column = 0; column < kSampleColumnCount; ++column) CopyToRowVal(*row, column);
}

void CSampleRecord::CopyField(const CSampleListRow& row, int column) {
  if (column < 0 || column >= kSampleColumnCount) return;
  if (kSampleColumns[column].type == dbText) {
    CopyFieldString(column, GetString(row[column]));
  } else {
    CopyFieldOther(column, row[column]);
  }
}

void CSampleRecord::CopyFieldString(int column, const std::string& text) {
  if (column < 0 || column >= kSampleColumnCount) return;
  const ColumnField& field = Table()[column];
  const char* value = text.c_str();
  switch (field.kind) {
    case Kind::kText: (this->*field.setText)(value); break;
    case Kind::kAttribute: SetAttribute(static_cast<Attr::TextField>(field.member), value); break;
    case Kind::kMass: SetMass(field.member, value); break;
    case Kind::kConcentration: SetConcentration(field.member, value); break;
    case Kind::kFractionTrigger: SetFractionTrigger(field.member, value); break;
    case Kind::kSpare: SetSpare(field.member, value); break;
    case Kind::kCompound: SetCompound(field.member, value); break;
    default: CopyFieldOther(column, CKVVariant(text)); break;
  }
}

void CSampleRecord::CopyFieldOther(int column, const CKVVariant& value) {
  if (column < 0 || column >= kSampleColumnCount) return;
  const ColumnField& field = Table()[column];
  double number = NumberOf(value);
  switch (field.kind) {
    case Kind::kNumber: (this->*field.setNumber)(number); break;
    case Kind::kWavelength: SetWavelength(field.member, number); break;
    case Kind::kVersion: m_pAttributes->layoutVersion = number; break;
    case Kind::kSampleNumber: SetSampleNumber(static_cast<int>(number)); break;
    default: CopyFieldString(column, GetString(value)); break;
  }
}

void CSampleRecord::CopyToRowVal(CSampleListRow& row, int column) const {
  if (column < 0 || column >= kSampleColumnCount) return;
  row[column] = FieldValue(column);
}

CKVVariant CSampleRecord::FieldValue(int column) const {
  const ColumnField& field = Table()[column];
  switch (field.kind) {
    case Kind::kText: return CKVVariant((this->*field.getText)());
    case Kind::kNumber: return CKVVariant((this->*field.getNumber)());
    case Kind::kAttribute:
      return CKVVariant(GetAttribute(static_cast<Attr::TextField>(field.member)));
    case Kind::kMass: return CKVVariant(GetMassText(field.member));
    case Kind::kConcentration: return CKVVariant(GetConcentrationText(field.member));
    case Kind::kWavelength: return CKVVariant(GetWavelength(field.member));
    case Kind::kFractionTrigger: return CKVVariant(GetFractionTrigger(field.member));
    case Kind::kSpare: return CKVVariant(GetSpare(field.member));
    case Kind::kCompound: return CKVVariant(GetCompound(field.member));
    case Kind::kVersion: return CKVVariant(m_pAttributes->layoutVersion);
    case Kind::kSampleNumber: return CKVVariant(static_cast<double>(GetSampleNumber()));
  }
  return CKVVariant();
}


namespace {

bool ColumnOf(int field, int index, int& column) {
  column = field + index;
  return column >= 0 && column < kSampleColumnCount;
}

}  // namespace

bool CSampleRecord::GetValue(const int& field, double& out, const int& index) const {
  int column;
  if (!ColumnOf(field, index, column)) return false;
  out = NumberOf(FieldValue(column));
  return true;
}

bool CSampleRecord::GetValue(const int& field, bool& out, const int& index) const {
  int column;
  if (!ColumnOf(field, index, column)) return false;
  const CKVVariant cell = FieldValue(column);
  out = cell.IsText() ? cell.text() == "TRUE" : NumberOf(cell) != 0.0;
  return true;
}

bool CSampleRecord::GetValue(const int& field, int& out, const int& index) const {
  double number = 0.0;
  if (!GetValue(field, number, index)) return false;
  out = static_cast<int>(number);
  return true;
}

bool CSampleRecord::GetValue(const int& field, std::string& out, const int& index) const {
  int column;
  if (!ColumnOf(field, index, column)) return false;
  out = GetString(FieldValue(column));
  return true;
}

bool CSampleRecord::SetValue(const int& field, const bool& value, const int& index) {
  int column;
  if (!ColumnOf(field, index, column)) return false;
  if (kSampleColumns[column].type == dbText) {
    CopyFieldString(column, value ? "TRUE" : "FALSE");
  } else {
    CopyFieldOther(column, CKVVariant(value ? 1.0 : 0.0));
  }
  return true;
}

bool CSampleRecord::SetValue(const int& field, const double& value, const int& index) {
  int column;
  if (!ColumnOf(field, index, column)) return false;
  CopyFieldOther(column, CKVVariant(value));
  return true;
}

bool CSampleRecord::SetValue(const int& field, const int& value, const int& index) {
  return SetValue(field, static_cast<double>(value), index);
}

bool CSampleRecord::SetValue(const int& field, const std::string& value, const int& index) {
  int column;
  if (!ColumnOf(field, index, column)) return false;
  CopyFieldString(column, value);
  return true;
}

namespace {

int ProgramFrom(const std::string& process, const std::string& parameters,
                CExternalProgram& out) {
  if (process.empty()) return 0;
  std::string line = platform::CreatePathName(process, "exe");
  if (!parameters.empty()) line += " " + parameters;
  out.SetProgram(line.c_str());
  return 1;
}

}  // namespace

int CSampleRecord::GetExternalProgram(CExternalProgram& out) const {
  return ProgramFrom(GetProcess(), GetProcessParameters(), out);
}

int CSampleRecord::GetAcquProgram(CExternalProgram& out) const {
  return ProgramFrom(GetAcquProcess(), GetAcquProcessParameters(), out);
}

}  // namespace kvdao
