// Opens arbitrary bytes, saved as a file, as a Jet database for writing:
// adds a row to every user table, adds a table with a keyed row, closes, and
// reads the result back. Damage must end in kvdao::jet::DaoException; any
// crash, hang, leak or out-of-bounds access is a finding.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "kvdao/jet/jet.h"

namespace {

using namespace kvdao;

void AppendEverywhere(const std::string& path) {
  jet::Database database;
  database.Open(path, false, false);
  for (const std::string& name : database.GetTableNames()) {
    try {
      jet::Recordset records = database.OpenTable(name);
      records.AddNew();
      if (records.GetFieldCount() > 0) records.SetFieldValue(0, Variant(1L));
      records.Update();
    } catch (const jet::DaoException&) {
      // a table that cannot take the row; go on with the next one
    }
  }
  jet::TableDef def = database.CreateTableDef("FuzzAdded");
  jet::FieldInfo field;
  field.name = "Id";
  field.type = dbLong;
  def.CreateField(field);
  jet::IndexInfo key;
  key.name = "PrimaryKey";
  key.fields.push_back({"Id", false});
  key.primary = key.unique = key.required = true;
  def.CreateIndex(key);
  database.Append(def);
  jet::Recordset added = database.OpenTable("FuzzAdded");
  added.AddNew();
  added.SetFieldValue(0, Variant(7L));
  added.Update();
  database.Close();
}

void ReadEverything(const std::string& path) {
  jet::Database database;
  database.Open(path);
  for (const std::string& name : database.GetTableNames(true)) {
    try {
      jet::Recordset records = database.OpenTable(name);
      for (int rows = 0; !records.IsEOF() && rows < 100000; records.MoveNext(), ++rows) records.GetRecordView();
    } catch (const jet::DaoException&) {
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = [] {
    const char* dir = std::getenv("TMPDIR");
    return std::string(dir != nullptr ? dir : "/tmp") + "/kvdao-append-fuzz-" + std::to_string(::getpid()) + ".mdb";
  }();
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return 0;
  std::fwrite(data, 1, size, file);
  std::fclose(file);
  try {
    AppendEverywhere(path);
    ReadEverything(path);
  } catch (const jet::DaoException&) {
  }
  std::remove(path.c_str());
  return 0;
}
