// kvdao batch status: lists the rows of a batch status database.

#include <sqlite3.h>

#include <iomanip>
#include <ostream>

#include "batch_command.h"

namespace kvdao::cli {

int RunBatchStatus(CommandContext& context) {
  std::vector<std::string>& args = context.args;
  std::optional<std::string> batchID = TakeOption(args, "--batch");
  if (int status = RejectExtraArguments(context, "batch status", 1); status != kExitOk) {
    return status;
  }
  if (args.empty()) {
    context.err << "kvdao batch status: give a DATABASE (ZQStatus.db)\n";
    return kExitUsage;
  }
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(args[0].c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
    context.err << "kvdao batch status: cannot open " << args[0] << "\n";
    sqlite3_close(db);
    return kExitFailure;
  }
  const char* sql =
      "SELECT ID, IsQC, BatchID, UserName, PlatePosition, Well, SampleID, MSDataName "
      "FROM batches WHERE ?1 IS NULL OR BatchID = ?1 ORDER BY ID;";
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) {
    context.err << "kvdao batch status: " << args[0] << " has no batches table ("
                << sqlite3_errmsg(db) << ")\n";
    sqlite3_close(db);
    return kExitFailure;
  }
  if (batchID) sqlite3_bind_text(statement, 1, batchID->c_str(), -1, SQLITE_TRANSIENT);
  const int widths[] = {11, 3, 16, 12, 9, 6, 20, 0};
  const char* headers[] = {"ID", "QC", "BATCH", "USER", "POSITION", "WELL", "SAMPLE", "DATA"};
  for (int c = 0; c < 8; ++c) context.out << std::left << std::setw(widths[c]) << headers[c];
  context.out << "\n";
  int rows = 0, result;
  while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
    for (int c = 0; c < 8; ++c) {
      const unsigned char* text = sqlite3_column_text(statement, c);
      std::string value = text != nullptr ? reinterpret_cast<const char*>(text) : "";
      context.out << std::left << std::setw(widths[c]) << (value.empty() ? "-" : value);
      if (c < 7) context.out << (static_cast<int>(value.size()) >= widths[c] ? " " : "");
    }
    context.out << "\n";
    ++rows;
  }
  sqlite3_finalize(statement);
  sqlite3_close(db);
  if (result != SQLITE_DONE) {
    context.err << "kvdao batch status: reading stopped: " << sqlite3_errstr(result) << "\n";
    return kExitFailure;
  }
  context.err << rows << " rows\n";
  return kExitOk;
}

}  // namespace kvdao::cli
