// The batch status database: one row a submitted sample in the table
// "batches" of ZQStatus.db, shared by every process of an installation.
//
// Concurrency: the IDs of a submission are taken from MAX(ID) inside the
// submission's own write transaction (BEGIN IMMEDIATE, waiting on a busy
// timeout), so two processes submitting at once never compute the same IDs
// and never replace each other's rows. Values are bound as parameters: a
// text with quotes is stored intact and no value can change the statement.

#include <sqlite3.h>

#include <chrono>
#include <thread>

#include "kvdao/genericbatch/generic_batch.h"
#include "kvdao/platform/path.h"
#include "status_table.h"

namespace kvdao {
namespace {

thread_local int t_lastResult = SQLITE_OK;
thread_local std::string t_lastError;

constexpr int kOpenRetries = 10;
constexpr auto kRetryPause = std::chrono::milliseconds(10);
// How long a writer waits for another process's transaction to end.
constexpr int kBusyTimeoutMs = 30000;

void Remember(int result, sqlite3* db) {
  t_lastResult = result;
  t_lastError = result == SQLITE_OK || result == SQLITE_DONE || result == SQLITE_ROW || db == nullptr
                    ? std::string()
                    : std::string(sqlite3_errmsg(db));
}

// One open connection; closes on destruction.
class Connection {
 public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { Close(); }

  // Opens (creating the file), trying again 10 times 10 ms apart.
  bool Open(const std::string& path) {
    std::string native = platform::ToNativePath(path);
    for (int attempt = 0; attempt <= kOpenRetries; ++attempt) {
      if (attempt > 0) std::this_thread::sleep_for(kRetryPause);
      int result = sqlite3_open(native.c_str(), &db_);
      Remember(result, db_);
      if (result == SQLITE_OK) {
        sqlite3_busy_timeout(db_, kBusyTimeoutMs);
        return true;
      }
      sqlite3_close(db_);
      db_ = nullptr;
    }
    return false;
  }

  void Close() {
    if (db_ == nullptr) return;
    // Busy only while statements are unfinalised; every statement here is
    // finalised, so the wait is a safety net, not a loop without end.
    for (int attempt = 0; sqlite3_close(db_) == SQLITE_BUSY; ++attempt) {
      if (attempt == 100) {
        sqlite3_close_v2(db_);
        break;
      }
      std::this_thread::sleep_for(kRetryPause);
    }
    db_ = nullptr;
  }

  int Exec(const char* sql) {
    int result = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
    Remember(result, db_);
    return result;
  }

  // The first column of the first row of a query: its integer, and whether
  // it was NULL. False when the query fails.
  bool QueryInteger(const char* sql, long long& value, bool& isNull) {
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr);
    if (result == SQLITE_OK) {
      result = sqlite3_step(statement);
      isNull = result != SQLITE_ROW || sqlite3_column_type(statement, 0) == SQLITE_NULL;
      value = isNull ? 0 : sqlite3_column_int64(statement, 0);
    }
    Remember(result, db_);
    sqlite3_finalize(statement);
    return result == SQLITE_ROW || result == SQLITE_DONE;
  }

  sqlite3* get() const noexcept { return db_; }

 private:
  sqlite3* db_ = nullptr;
};

bool TableExists(Connection& db) {
  long long count = 0;
  bool isNull = false;
  return db.QueryInteger("SELECT COUNT(*) FROM batches;", count, isNull);
}

// "REPLACE INTO batches VALUES (?, …)" with one parameter a column.
std::string InsertStatement() {
  std::string sql = "REPLACE INTO batches VALUES (?";
  for (int i = 1; i < status::kColumnCount; ++i) sql += ",?";
  return sql + ");";
}

// Stores one row; the result is remembered, not acted on: a row that cannot
// be stored is skipped and the others go on.
void StoreRow(sqlite3* db, sqlite3_stmt* insert, const std::vector<std::string>& values) {
  if (values.size() != static_cast<std::size_t>(status::kColumnCount)) {
    t_lastResult = SQLITE_ERROR;
    t_lastError = "more values than the table has columns";
    return;
  }
  // Bound as texts, as the values' quoted literals would be: the columns'
  // affinities then store "150.200000" as the real 150.2 and "7" in an
  // integer column as 7, exactly as before.
  for (int i = 0; i < status::kColumnCount; ++i) {
    const std::string& value = values[static_cast<std::size_t>(i)];
    sqlite3_bind_text(insert, i + 1, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
  }
  Remember(sqlite3_step(insert), db);
  sqlite3_reset(insert);
}

}  // namespace

int GenericBatch::LastStatusResult() { return t_lastResult; }
const std::string& GenericBatch::LastStatusError() { return t_lastError; }

std::string GenericBatch::StatusDatabasePath(const std::string& loginPath) {
  std::size_t back = loginPath.find("\\ZQLogin");
  std::size_t slash = loginPath.find("/ZQLogin");
  std::size_t at = std::min(back, slash);
  if (at == std::string::npos) return "\\ZQStatus.db";
  return loginPath.substr(0, at + 1) + "ZQStatus.db";
}

void GenericBatch::PrepareDatabase(const std::string& loginPath) const {
  Connection db;
  if (!db.Open(StatusDatabasePath(loginPath))) return;
  if (TableExists(db)) return;
  // A concurrent creator may win the race; its table is as good as ours.
  db.Exec(status::CreateTableStatement().c_str());
}

int GenericBatch::WriteZQStatus(const std::string& loginPath, bool isQC) const {
  PrepareDatabase(loginPath);
  Connection db;
  if (!db.Open(StatusDatabasePath(loginPath))) return 1;  // never fail a submission for it
  if (!TableExists(db)) return 0;
  if (db.Exec("BEGIN IMMEDIATE;") != SQLITE_OK) return 0;

  long long next = 0;
  bool isNull = true;
  if (!db.QueryInteger("SELECT MAX(ID) FROM batches;", next, isNull) || isNull) {
    next = 0;
  } else {
    ++next;
  }
  sqlite3_stmt* insert = nullptr;
  std::string sql = InsertStatement();
  int prepared = sqlite3_prepare_v2(db.get(), sql.c_str(), -1, &insert, nullptr);
  Remember(prepared, db.get());
  if (prepared != SQLITE_OK) {
    db.Exec("ROLLBACK;");
    return 0;
  }
  for (const GenericPlate& plate : m_plates) {
    for (const GenericSample& sample : plate.Samples()) {
      if (next > status::kLargestID || next < 0) next = 0;
      StoreRow(db.get(), insert, status::RowValues(*this, plate, sample, next, isQC));
      ++next;
    }
  }
  sqlite3_finalize(insert);

  // The busy timeout already waits for readers; a commit that is still busy
  // is tried again, any other failure gives the rows up.
  int committed;
  while ((committed = db.Exec("COMMIT;")) == SQLITE_BUSY) {
  }
  if (committed != SQLITE_OK) {
    db.Exec("ROLLBACK;");
    return 0;
  }
  return 1;
}

}  // namespace kvdao
