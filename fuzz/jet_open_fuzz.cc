// Opens arbitrary bytes as a Jet database and reads every field of every
// table, user and system. Damage must end in kvdao::jet::DaoException; any
// crash, hang, leak or out-of-bounds read is a finding.

#include <cstddef>
#include <cstdint>
#include <span>

#include "kvdao/jet/jet.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    kvdao::jet::Database database;
    database.OpenImage(std::span<const std::uint8_t>(data, size));
    for (const std::string& name : database.GetTableNames(true)) {
      try {
        kvdao::jet::Recordset records = database.OpenRecordset("SELECT * FROM [" + name + "]");
        records.SetTextEncoding(kvdao::jet::TextEncoding::kUtf8);
        for (int rows = 0; !records.IsEOF() && rows < 100000; records.MoveNext(), ++rows) {
          records.GetRecordView();
          for (int i = 0; i < records.GetFieldCount(); ++i) records.GetFieldValue(i);
        }
        if (records.GetFieldCount() > 0) {
          database.OpenRecordset("SELECT * FROM [" + name + "] ORDER BY [" +
                                 records.GetFieldInfo(0).name + "]").MoveLast();
        }
      } catch (const kvdao::jet::DaoException&) {
        // a damaged table; go on with the next one
      }
    }
  } catch (const kvdao::jet::DaoException&) {
  }
  return 0;
}
