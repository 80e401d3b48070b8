// Jet writer: writes an ANALYSIS-like table (the 160 sample-list columns,
// 40 of them filled, unique primary key on "Index") through a table-type
// recordset, then reads it back with this library's reader. Prints rows per
// second both ways and their ratio (target: writing costs at most 3x
// reading and reaches 150,000 rows/s), the file size against the shared
// 10,000-row fixture written by another writer (scaled to the same row
// count), and the peak memory of writing 10,000 and N rows, each in its own
// child process, to show that memory does not grow with the rows beyond the
// index being built.
//
// Usage: jet_write_bench [rows] (default 100000)

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "kvdao/jet/jet.h"
#include "kvdao/samplelist/schema.h"

namespace {

using kvdao::Variant;
using namespace kvdao::jet;

double Seconds(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Writes rows into a new database at path.
void Write(const std::string& path, long rows) {
  std::remove(path.c_str());
  Database db = Database::Create(path);
  TableDef def = db.CreateTableDef("ANALYSIS", 0x10000);
  for (int c = 0; c < kvdao::kSampleColumnCount; ++c) {
    FieldInfo field;
    field.name = kvdao::kSampleColumns[c].name;
    field.type = kvdao::kSampleColumns[c].type;
    field.size = 255;
    field.attributes = dbVariableField;
    field.ordinal_position = c + 1;
    field.required = kvdao::kSampleColumns[c].optional == 0;
    field.allow_zero_length = field.type == kvdao::dbText;
    def.CreateField(field);
  }
  IndexInfo key;
  key.name = "PrimaryKey";
  key.fields.push_back({"Index", false});
  key.primary = key.unique = key.required = true;
  def.CreateIndex(key);
  db.Append(def);
  Recordset rs = db.OpenTable("ANALYSIS");
  rs.SetCurrentIndex("PrimaryKey");
  // 38 filled columns besides VERSION and Index, values prepared once.
  std::vector<int> filled;
  for (int c = 1; c < kvdao::kColumnIndex && filled.size() < 38; c += 4) filled.push_back(c);
  std::vector<Variant> texts;
  for (int i = 0; i < 16; ++i) texts.emplace_back("Sample text " + std::to_string(i * 7919));
  for (long r = 0; r < rows; ++r) {
    rs.AddNew();
    rs.SetFieldValue(0, Variant(31.5));
    for (int c : filled) {
      if (kvdao::kSampleColumns[c].type == kvdao::dbText) {
        rs.SetFieldValue(c, texts[static_cast<std::size_t>((r + c) % 16)]);
      } else {
        rs.SetFieldValue(c, Variant(static_cast<double>(r) * 0.25 + c));
      }
    }
    rs.SetFieldValue(kvdao::kColumnIndex, Variant(static_cast<double>(r)));
    rs.Update();
  }
  rs.Close();
  db.Close();
}

long ReadAll(const std::string& path) {
  Database db;
  db.Open(path);
  Recordset rs = db.OpenTable("ANALYSIS");
  long rows = 0;
  double sum = 0;
  while (!rs.IsEOF()) {
    for (const FieldValue& value : rs.GetRecordView()) sum += value.null ? 0 : value.real + value.text.size();
    ++rows;
    rs.MoveNext();
  }
  return sum > 0 ? rows : -rows;
}

// Peak resident memory (KiB) of writing rows in a child process.
long PeakKb(const std::string& path, long rows) {
  pid_t pid = fork();
  if (pid == 0) {
    Write(path, rows);
    _exit(0);
  }
  int status = 0;
  rusage usage {};
  wait4(pid, &status, 0, &usage);
  return usage.ru_maxrss;
}

// Copies every row of the fixture's ANALYSIS table into a new database
// with the same fields (same content, this writer's encoding).
void CopyTable(const std::string& from, const std::string& to) {
  std::remove(to.c_str());
  Database source;
  source.Open(from);
  TableDef def = source.GetTableDef("ANALYSIS");
  Database db = Database::Create(to);
  TableDef copy = db.CreateTableDef("ANALYSIS", 0x10000);
  for (FieldInfo field : def.fields) {
    field.attributes = dbVariableField;
    copy.CreateField(field);
  }
  for (const IndexInfo& index : def.indexes) copy.CreateIndex(index);
  db.Append(copy);
  Recordset out = db.OpenTable("ANALYSIS");
  Recordset in = source.OpenTable("ANALYSIS");
  while (!in.IsEOF()) {
    out.AddNew();
    for (int i = 0; i < in.GetFieldCount(); ++i) out.SetFieldValue(i, in.GetFieldValue(i));
    out.Update();
    in.MoveNext();
  }
  db.Close();
}

long FileSize(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 ? static_cast<long>(info.st_size) : -1;
}

}  // namespace

int main(int argc, char** argv) {
  const long rows = argc > 1 ? std::atol(argv[1]) : 100000;
  const char* tmp = std::getenv("TMPDIR");
  const std::string path = std::string(tmp != nullptr ? tmp : "/tmp") + "/jet_write_bench.mdb";

  Write(path, 1000);  // warm up
  auto start = std::chrono::steady_clock::now();
  Write(path, rows);
  const double write_s = Seconds(start);
  start = std::chrono::steady_clock::now();
  const long read_rows = ReadAll(path);
  const double read_s = Seconds(start);
  if (read_rows != rows) {
    std::fprintf(stderr, "read %ld rows, wrote %ld\n", read_rows, rows);
    return 1;
  }
  std::printf("rows: %ld\n", rows);
  std::printf("write: %.3f s, %.0f rows/s\n", write_s, rows / write_s);
  std::printf("read:  %.3f s, %.0f rows/s\n", read_s, rows / read_s);
  std::printf("write/read time ratio: %.2f (target <= 3)\n", write_s / read_s);
  const long size = FileSize(path);
  const long fixture = FileSize(KVDAO_JET_FIXTURES "/analysis-10k.mdb");
  std::printf("file: %ld bytes (%.0f bytes/row)\n", size, static_cast<double>(size) / rows);
  if (fixture > 0) {
    const double scaled = static_cast<double>(fixture) * rows / 10000.0;
    std::printf("other writer's fixture, scaled to %ld rows: %.0f bytes (its content differs from ours)\n", rows,
                scaled);
    CopyTable(KVDAO_JET_FIXTURES "/analysis-10k.mdb", path);
    std::printf("same content as the fixture (10000 rows): ours %ld bytes, theirs %ld bytes, ratio %.2f\n",
                FileSize(path), fixture, static_cast<double>(FileSize(path)) / fixture);
  }
  const long small = PeakKb(path, 10000);
  const long large = PeakKb(path, rows);
  std::printf("peak memory: 10000 rows %ld KiB, %ld rows %ld KiB (ratio %.2f)\n", small, rows, large,
              static_cast<double>(large) / small);
  std::remove(path.c_str());
  return 0;
}
