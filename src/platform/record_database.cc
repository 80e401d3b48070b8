#include "kvdao/platform/record_database.h"

#include <climits>
#include <map>
#include <memory>
#include <mutex>

#include "../recordstore/record_store.h"

namespace kvdao::platform {
namespace {

using recordstore::RecordStore;

std::mutex g_mutex;
std::map<int, std::unique_ptr<RecordStore>>& OpenStores() {
  static std::map<int, std::unique_ptr<RecordStore>> stores;
  return stores;
}

RecordStore* Find(int kind) {
  auto found = OpenStores().find(kind);
  return found == OpenStores().end() ? nullptr : found->second.get();
}

constexpr int kFailure = 1;

}  // namespace

int DB3RecordSize(int kind) {
  switch (kind) {
    case kDB3KindPeak: return 4112;
    case kDB3KindSample: return 4262;
    case kDB3KindCalibration: return 19496;
    case kDB3KindMethod: return 3504;
    default: return 0;
  }
}

int DB3Open(int kind, const char* path, int mode) {
  int size = DB3RecordSize(kind);
  if (size == 0 || path == nullptr || (mode != kDB3OpenExisting && mode != kDB3Create)) return kFailure;
  std::lock_guard lock(g_mutex);
  if (Find(kind) != nullptr) return kFailure;
  auto store = RecordStore::Open(path, static_cast<std::uint32_t>(kind), static_cast<std::uint32_t>(size),
                                 mode == kDB3Create ? RecordStore::Mode::kCreate : RecordStore::Mode::kOpenExisting);
  if (!store) return kFailure;
  OpenStores()[kind] = std::move(store);
  return 0;
}

int DB3HandleRecord(int kind, int number, void* buffer, int operation, int write) {
  std::lock_guard lock(g_mutex);
  RecordStore* store = Find(kind);
  if (store == nullptr || buffer == nullptr) return kFailure;
  bool ok = false;
  if (operation == kDB3Read && write == 0) {
    ok = number >= 1 && store->Read(static_cast<std::uint64_t>(number), buffer);
  } else if (operation == kDB3Replace && write == 1) {
    ok = number >= 1 && store->Replace(static_cast<std::uint64_t>(number), buffer);
  } else if (operation == kDB3Append && write == 1) {
    ok = store->Append(buffer);
  }
  return ok ? 0 : kFailure;
}

int DB3GetRecordsInDB(int kind) {
  std::lock_guard lock(g_mutex);
  RecordStore* store = Find(kind);
  if (store == nullptr) return -1;
  std::int64_t count = store->Count();
  return count < 0 || count > INT_MAX ? -1 : static_cast<int>(count);
}

void DB3Close(int kind) {
  std::unique_ptr<RecordStore> closing;
  {
    std::lock_guard lock(g_mutex);
    auto found = OpenStores().find(kind);
    if (found == OpenStores().end()) return;
    closing = std::move(found->second);
    OpenStores().erase(found);
  }
}

int DB3BeginBatch(int kind) {
  std::lock_guard lock(g_mutex);
  RecordStore* store = Find(kind);
  return store != nullptr && store->BeginBatch() ? 0 : kFailure;
}

int DB3EndBatch(int kind, int commit) {
  std::lock_guard lock(g_mutex);
  RecordStore* store = Find(kind);
  if (store == nullptr || !store->InBatch()) return kFailure;
  if (commit != 0) return store->CommitBatch() ? 0 : kFailure;
  store->AbortBatch();
  return 0;
}

int DB3SetRecordsInDB(int kind, int count) {
  std::lock_guard lock(g_mutex);
  RecordStore* store = Find(kind);
  return store != nullptr && count >= 0 && store->Truncate(static_cast<std::uint64_t>(count)) ? 0 : kFailure;
}

}  // namespace kvdao::platform
