// Generic batch files and the status database.
//
// (a) Reading: a batch of 10 plates x 96 wells with every sample field
//     filled is read with GenericBatch::Read, and, as the baseline, key by
//     key with a reader that opens and scans the file for every key as the
//     Windows profile functions do (the plate keys and every field name of
//     every sample). The baseline reads an evenly spread subset of samples
//     (it takes seconds per plate); both are reported per sample.
// (b) Status database: WriteZQStatus of the same batch into a new database,
//     against a baseline that stores the same rows as statement text
//     ("REPLACE INTO batches VALUES (\"…\",…);") with one sqlite3_exec each.
//
// Usage: generic_batch_bench [spread] (default 40: the baseline reads every
// 40th sample)

#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "kvdao/genericbatch/generic_batch.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/text.h"
#include "status_table.h"

namespace {

using Clock = std::chrono::steady_clock;
using kvdao::GenericBatch;
using kvdao::GenericPlate;
using kvdao::GenericSample;

double Since(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

GenericSample FilledSample(int plate, int well) {
  GenericSample s;
  std::string tag = std::to_string(plate) + "_" + std::to_string(well);
  // Every text field, through the generic field table.
  for (const GenericSample::FieldInfo& field : GenericSample::AllFields) {
    if (field.maxCount != 0 || field.type != GenericSample::FieldInfo::String) continue;
    std::string value = std::string(field.name) + "_" + tag;
    if (std::string(field.name) == "Well") value = std::to_string(well);
    s.SetField(field.name, value, -1);
  }
  s.Type(GenericSample::LastSampleType);
  s.MSInjectionVolume(5.5);
  s.MSRetentionTimeOffset(2);
  s.SubjectTime(1.25);
  s.PrepInjectionVolume(10);
  for (int i = 0; i < GenericSample::MaxMasses; ++i) s.AddMass(100.0 + i + well * 0.001);
  for (int i = 0; i < GenericSample::MaxWaves; ++i) s.AddWavelength(200.0 + i);
  for (int i = 0; i < GenericSample::MaxConcs; ++i) s.AddConcentration(0.5 * i);
  for (int i = 0; i < GenericSample::MaxFormulae; ++i) s.AddFormula("C" + std::to_string(i + 1));
  for (int i = 0; i < GenericSample::MaxUserFields; ++i) s.AddUserField("user" + std::to_string(i));
  s.AddFactor(1.5);
  s.Compounds({"compound_" + tag});
  kvdao::StringArray mass, pda, analog, uv;
  for (int i = 0; i < GenericSample::MaxFractionTriggers; ++i) {
    mass.Add(std::string("Mass ") + static_cast<char>('A' + i));
    pda.Add(std::string("Wavelength ") + static_cast<char>('A' + i));
  }
  for (int i = 1; i <= GenericSample::MaxAnaFractionTriggers; ++i) analog.Add(std::to_string(i));
  for (int i = 0; i < GenericSample::MaxUVFractionTriggers; ++i) uv.Add("254");
  s.FractionTriggers(mass);
  s.FractionPDATriggers(pda);
  s.FractionAnaTriggers(analog);
  s.FractionUVTriggers(uv);
  return s;
}

GenericBatch FilledBatch() {
  GenericBatch batch;
  batch.BatchID("BENCH");
  batch.UserName("bench");
  batch.MSMethod("ms.exp");
  for (int p = 1; p <= 10; ++p) {
    GenericPlate plate;
    plate.PlateID("P" + std::to_string(p));
    plate.PlatePosition(std::to_string(p));
    plate.Rows(8);
    plate.Columns(12);
    for (int w = 1; w <= 96; ++w) plate.AddSample(FilledSample(p, w));
    batch.AddPlate(plate);
  }
  return batch;
}

// --- baseline reader: open, scan, close for every key ---

std::string Trimmed(std::string text) {
  while (!text.empty() && (text.back() == '\r' || text.back() == ' ')) text.pop_back();
  std::size_t start = text.find_first_not_of(' ');
  return start == std::string::npos ? std::string() : text.substr(start);
}

std::string ScanForKey(const std::string& path, const std::string& section,
                       const std::string& key) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return "";
  std::string header = "[" + section + "]";
  char line[4096];
  bool inSection = false;
  std::string value;
  while (std::fgets(line, sizeof line, file) != nullptr) {
    std::string text = Trimmed(std::string(line, std::strcspn(line, "\n")));
    if (!text.empty() && text[0] == '[') {
      if (inSection) break;
      inSection = kvdao::platform::CompareNoCase1252(text, header) == 0;
      continue;
    }
    if (!inSection) continue;
    std::size_t equals = text.find('=');
    if (equals != std::string::npos &&
        kvdao::platform::CompareNoCase1252(Trimmed(text.substr(0, equals)), key) == 0) {
      value = Trimmed(text.substr(equals + 1));
      break;
    }
  }
  std::fclose(file);
  return value;
}

std::size_t BaselineReadSample(const std::string& path, int plate, int well,
                               const std::vector<std::string>& names) {
  std::size_t bytes = 0;
  std::string section = "Sample:" + std::to_string(plate) + ":" + std::to_string(well);
  for (const std::string& name : names) bytes += ScanForKey(path, section, name).size();
  return bytes;
}

// --- baseline status writer: statement text with sqlite3_exec ---

double BaselineStatus(const GenericBatch& batch, const std::string& database) {
  std::remove(database.c_str());
  auto start = Clock::now();
  sqlite3* db = nullptr;
  sqlite3_open(database.c_str(), &db);
  sqlite3_exec(db, kvdao::status::CreateTableStatement().c_str(), nullptr, nullptr, nullptr);
  sqlite3_exec(db, "BEGIN;", nullptr, nullptr, nullptr);
  long long id = 0;
  for (const GenericPlate& plate : batch.Plates()) {
    for (const GenericSample& sample : plate.Samples()) {
      std::string sql = "REPLACE INTO batches VALUES (\"";
      bool first = true;
      for (const std::string& value :
           kvdao::status::RowValues(batch, plate, sample, id++, false)) {
        if (!first) sql += "\",\"";
        sql += value;
        first = false;
      }
      sql += "\");";
      sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    }
  }
  while (sqlite3_exec(db, "COMMIT;", nullptr, nullptr, nullptr) != SQLITE_OK) {
  }
  sqlite3_close(db);
  return Since(start);
}

long long CountRows(const std::string& database) {
  sqlite3* db = nullptr;
  sqlite3_open(database.c_str(), &db);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "SELECT COUNT(*) FROM batches;", -1, &statement, nullptr);
  long long rows = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
  sqlite3_finalize(statement);
  sqlite3_close(db);
  return rows;
}

}  // namespace

int main(int argc, char** argv) {
  int spread = argc > 1 ? std::max(1, std::atoi(argv[1])) : 40;
  std::string dir = "/tmp/kvdao-batch-bench-" + std::to_string(::getpid());
  if (std::system(("mkdir -p " + dir).c_str()) != 0) return 1;
  std::string path = dir + "/batch.xbt";
  GenericBatch batch = FilledBatch();
  if (batch.Write(path, ":") != 1) return 1;
  std::string text;
  kvdao::platform::ReadFileContents(path, text);
  const int samples = 10 * 96;

  // (a) Library: best of five, each on a freshly written file so that the
  // parse is part of the time.
  double library = 1e9;
  for (int round = 0; round < 5; ++round) {
    kvdao::platform::ReplaceFileContents(path, text);
    GenericBatch read;
    auto start = Clock::now();
    if (read.Read(path, ":") != 1 || read.NumPlates() != 10) return 1;
    library = std::min(library, Since(start));
  }
  std::vector<std::string> names;
  GenericSample::SampleFields(names, 1);
  const char* plateKeys[] = {"PlateID", "PlatePosition", "Origin", "JobCode", "UserName",
                             "Rows", "Columns", "Track", "NumberOfWells"};
  auto start = Clock::now();
  int read = 0;
  std::size_t bytes = 0;
  for (int n = 0; n < samples; n += spread, ++read) {
    int plate = n / 96 + 1;
    // A plate's keys count once per plate; spread over its samples here.
    if (n % 96 < spread) {
      for (const char* key : plateKeys) bytes += ScanForKey(path, "Plate:" + std::to_string(plate), key).size();
    }
    bytes += BaselineReadSample(path, plate, n % 96 + 1, names);
  }
  double baseline = Since(start) / read;
  std::printf("reading a 10 x 96 batch, every field filled (%zu bytes, %zu keys a sample)\n",
              text.size(), names.size());
  std::printf("  baseline (open and scan per key, %d samples): %10.3f ms a sample (%zu bytes)\n",
              read, baseline * 1e3, bytes);
  std::printf("  kvdao GenericBatch::Read (960 samples):         %10.3f ms a sample, %.1f ms in all\n",
              library / samples * 1e3, library * 1e3);
  std::printf("  speed-up kvdao vs baseline: %.0fx\n", baseline / (library / samples));

  // (b) Status database, best of three each.
  std::string login = dir + "/ZQLogin";
  std::string database = dir + "/ZQStatus.db";
  double writer = 1e9, statements = 1e9;
  for (int round = 0; round < 3; ++round) {
    statements = std::min(statements, BaselineStatus(batch, database));
    if (CountRows(database) != samples) return 1;
    std::remove(database.c_str());
    auto begin = Clock::now();
    if (batch.WriteZQStatus(login, false) != 1) return 1;
    writer = std::min(writer, Since(begin));
    if (CountRows(database) != samples) return 1;
  }
  std::printf("status database, %d rows of 120 columns\n", samples);
  std::printf("  baseline (statement text, sqlite3_exec a row): %8.1f ms\n", statements * 1e3);
  std::printf("  kvdao WriteZQStatus (bound parameters):        %8.1f ms\n", writer * 1e3);
  std::printf("  speed-up kvdao vs baseline: %.2fx\n", statements / writer);
  if (std::getenv("KVDAO_BENCH_KEEP") == nullptr) std::system(("rm -rf " + dir).c_str());
  return 0;
}
