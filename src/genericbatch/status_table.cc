#include "status_table.h"

#include "kvdao/platform/text.h"

namespace kvdao::status {
namespace {

struct RepeatedColumns {
  const char* prefix;
  int count;
  const char* type;
};

// The numbered columns after the fixed ones, with the sample list each
// holds (their counts are the lists' maxima).
constexpr RepeatedColumns kRepeated[] = {
    {"Mass", GenericSample::MaxMasses, "REAL"},
    {"Fraction", GenericSample::MaxFractionTriggers, "TEXT"},
    {"PDA_Fraction", GenericSample::MaxPDAFractionTriggers, "TEXT"},
    {"Analog_Fraction", GenericSample::MaxAnaFractionTriggers, "TEXT"},
    {"UVFraction", GenericSample::MaxUVFractionTriggers, "TEXT"},
    {"Wavelength", GenericSample::MaxWaves, "REAL"},
    {"Conc", GenericSample::MaxConcs, "TEXT"},
    {"Formula", GenericSample::MaxFormulae, "TEXT"},
    {"User", GenericSample::MaxUserFields, "TEXT"},
};

constexpr const char* kFixedColumns[][2] = {
    {"MSMethod", "TEXT"},          {"MSTune", "TEXT"},
    {"LCMethod", "TEXT"},          {"ProcessParameters", "TEXT"},
    {"Process", "TEXT"},           {"UserName", "TEXT"},
    {"BatchID", "TEXT"},           {"PrepInjectionVolume", "REAL"},
    {"NumberOfPlates", "INTEGER"}, {"PlatePosition", "TEXT"},
    {"JobCode", "TEXT"},           {"Well", "INTEGER"},
    {"Reinjections", "INTEGER"},   {"SampleDescription", "TEXT"},
    {"Conditions", "TEXT"},        {"SampleID", "TEXT"},
    {"MSDataName", "TEXT"},        {"SampleType", "TEXT"},
    {"MSInjectionVolume", "REAL"}, {"SubjectTime", "REAL"},
    {"InletPreRunMethod", "TEXT"}, {"InletPostRunMethod", "TEXT"},
    {"InletSwitchMethod", "TEXT"}, {"FractionMethod", "REAL"},
};

std::string Real(double value) { return platform::Format("%f", value); }

void AddTexts(std::vector<std::string>& row, const StringArray& list, int columns) {
  for (const std::string& text : list) row.push_back(text);
  for (int i = list.GetSize(); i < columns; ++i) row.emplace_back();
}

void AddReals(std::vector<std::string>& row, const DoubleArray& list, int columns) {
  for (double value : list) row.push_back(Real(value));
  for (int i = list.GetSize(); i < columns; ++i) row.emplace_back();
}

}  // namespace

std::string CreateTableStatement() {
  std::string sql = "CREATE TABLE batches (ID INTEGER, IsQC INTEGER, IsExpanded INTEGER";
  for (const auto& column : kFixedColumns) {
    sql += platform::Format(", %s %s", column[0], column[1]);
  }
  for (const RepeatedColumns& group : kRepeated) {
    for (int n = 1; n <= group.count; ++n) {
      sql += platform::Format(", %s%d %s", group.prefix, n, group.type);
    }
  }
  return sql + ", PRIMARY KEY (ID));";
}

std::vector<std::string> RowValues(const GenericBatch& batch, const GenericPlate& plate,
                                   const GenericSample& sample, long long id, bool isQC) {
  std::vector<std::string> row;
  row.reserve(kColumnCount);
  row.push_back(std::to_string(id));
  row.push_back(isQC ? "1" : "0");
  row.push_back("0");
  for (const std::string* text :
       {&batch.MSMethod(), &batch.MSTune(), &batch.LCMethod(), &batch.ProcessParameters(),
        &batch.Process(), &batch.UserName(), &batch.BatchID()}) {
    row.push_back(*text);
  }
  row.push_back(Real(sample.PrepInjectionVolume()));
  row.push_back(std::to_string(batch.NumPlates()));
  row.push_back(plate.PlatePosition());
  row.push_back(plate.JobCode());
  for (const std::string* text :
       {&sample.Location(), &sample.Reinjections(), &sample.Description(), &sample.Conditions(),
        &sample.SampleID(), &sample.MSDataName()}) {
    row.push_back(*text);
  }
  row.push_back(std::to_string(static_cast<int>(sample.Type())));
  row.push_back(Real(sample.MSInjectionVolume()));
  row.push_back(Real(sample.SubjectTime()));
  for (const std::string* text : {&sample.InletPreRun(), &sample.InletPostRun(),
                                  &sample.InletSwitch(), &sample.FractionFile()}) {
    row.push_back(*text);
  }
  AddReals(row, sample.Masses(), GenericSample::MaxMasses);
  AddTexts(row, sample.FractionTriggers(), GenericSample::MaxFractionTriggers);
  AddTexts(row, sample.FractionPDATriggers(), GenericSample::MaxPDAFractionTriggers);
  AddTexts(row, sample.FractionAnaTriggers(), GenericSample::MaxAnaFractionTriggers);
  AddTexts(row, sample.FractionUVTriggers(), GenericSample::MaxUVFractionTriggers);
  AddReals(row, sample.Wavelengths(), GenericSample::MaxWaves);
  AddReals(row, sample.Concentrations(), GenericSample::MaxConcs);
  AddTexts(row, sample.Formulae(), GenericSample::MaxFormulae);
  AddTexts(row, sample.UserFields(), GenericSample::MaxUserFields);
  return row;
}

}  // namespace kvdao::status
