// Jet writer, changing existing files: a sample-history-like table (12
// columns, unique Long key, one Text and one Memo column) is written into a
// new database (the baseline), then as many rows again are appended to it
// in an existing file, and then a handful of rows are appended to the
// grown file. Prints rows per second and each time as a ratio to the
// baseline's: appending a batch should cost about what writing it did, and
// a small append costs the copy of the file plus the rebuild of its
// indexes, which grows with the file.
//
// Usage: jet_append_bench [rows] (default 100000)

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "kvdao/jet/jet.h"

namespace {

using kvdao::Variant;
using namespace kvdao::jet;
using namespace kvdao;

double Seconds(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TableDef History(Database& db) {
  TableDef def = db.CreateTableDef("History");
  const char* names[] = {"Id", "Sample", "Notes", "Injected", "Volume", "Vial", "Plate", "Dilution", "Weight",
                         "Area", "Height", "Status"};
  const int types[] = {dbLong, dbText, dbMemo, dbDate, dbDouble, dbInteger, dbLong, dbDouble, dbDouble,
                       dbDouble, dbDouble, dbByte};
  for (int c = 0; c < 12; ++c) {
    FieldInfo field;
    field.name = names[c];
    field.type = types[c];
    field.size = types[c] == dbText ? 64 : 0;
    field.attributes = dbVariableField;
    field.ordinal_position = c;
    field.allow_zero_length = types[c] == dbText || types[c] == dbMemo;
    def.CreateField(field);
  }
  IndexInfo key;
  key.name = "PrimaryKey";
  key.fields.push_back({"Id", false});
  key.primary = key.unique = key.required = true;
  def.CreateIndex(key);
  return def;
}

void AddRows(Database& db, long first, long count) {
  Recordset rs = db.OpenTable("History");
  for (long r = first; r < first + count; ++r) {
    rs.AddNew();
    rs.SetFieldValue(0, Variant(r));
    rs.SetFieldValue(1, Variant("Sample " + std::to_string(r)));
    if (r % 10 == 0) rs.SetFieldValue(2, Variant(std::string(200, 'n')));
    rs.SetFieldValue(3, Variant(kvdao::OleDate{45000.0 + r / 1000.0}));
    for (int c = 4; c < 11; ++c) rs.SetFieldValue(c, Variant(static_cast<double>(r % 97) + c));
    rs.SetFieldValue(11, Variant(static_cast<unsigned char>(r % 3)));
    rs.Update();
  }
}

double CreateWith(const std::string& path, long rows) {
  std::remove(path.c_str());
  auto start = std::chrono::steady_clock::now();
  Database db = Database::Create(path);
  db.Append(History(db));
  AddRows(db, 0, rows);
  db.Close();
  return Seconds(start);
}

double AppendTo(const std::string& path, long first, long rows) {
  auto start = std::chrono::steady_clock::now();
  Database db;
  db.Open(path, false, false);
  AddRows(db, first, rows);
  db.Close();
  return Seconds(start);
}

}  // namespace

int main(int argc, char** argv) {
  const long rows = argc > 1 ? std::atol(argv[1]) : 100000;
  const char* tmp = std::getenv("TMPDIR");
  const std::string path = std::string(tmp != nullptr ? tmp : "/tmp") + "/jet_append_bench.mdb";

  CreateWith(path, 1000);  // warm up
  const double create_s = CreateWith(path, rows);
  const double append_s = AppendTo(path, rows, rows);
  const double small_s = AppendTo(path, 2 * rows, 10);
  Database check;
  check.Open(path);
  const long stored = check.GetTableDef("History").record_count;
  check.Close();
  if (stored != 2 * rows + 10) {
    std::fprintf(stderr, "the table holds %ld rows, expected %ld\n", stored, 2 * rows + 10);
    return 1;
  }
  std::printf("rows: %ld\n", rows);
  std::printf("new database, %ld rows (baseline): %.3f s, %.0f rows/s\n", rows, create_s, rows / create_s);
  std::printf("append %ld rows to the %ld-row table: %.3f s, %.0f rows/s, ratio to baseline %.2f\n", rows, rows,
              append_s, rows / append_s, append_s / create_s);
  std::printf("append 10 rows to the %ld-row table: %.3f s, ratio to baseline %.2f\n", 2 * rows, small_s,
              small_s / create_s);
  std::remove(path.c_str());
  return 0;
}
