#include "kvdao/platform/access_db.h"

#include <climits>

#include "../recordstore/record_store.h"

namespace kvdao::platform {
namespace {

using recordstore::RecordStore;

RecordStore* StoreOf(const tagACCESSDB* block) {
  return block == nullptr ? nullptr : static_cast<RecordStore*>(block->pStore);
}

}  // namespace

int AccessDBOpen(const char* path, int kind, int recordSize, tagACCESSDB* block, int /*flags*/) {
  if (path == nullptr || block == nullptr || block->pStore != nullptr || kind < 0 || recordSize <= 0)
    return 0;
  auto store = RecordStore::Open(path, static_cast<std::uint32_t>(kind),
                                 static_cast<std::uint32_t>(recordSize), RecordStore::Mode::kOpenExisting);
  if (!store) return 0;
  std::int64_t count = store->Count();
  if (count < 0 || count > INT_MAX) return 0;
  block->nKind = kind;
  block->nRecordSize = recordSize;
  block->nNumRecords = static_cast<std::int32_t>(count);
  block->pStore = store.release();
  return 1;
}

int AccessDBGetRecord(tagACCESSDB* block, int number, void* record) {
  RecordStore* store = StoreOf(block);
  return store != nullptr && number >= 1 && store->Read(static_cast<std::uint64_t>(number), record) ? 1 : 0;
}

int AccessDBSetNumRecords(tagACCESSDB* block, int count) {
  if (block == nullptr || count < 0) return 0;
  block->nNumRecords = count;
  return 1;
}

void AccessDBClose(tagACCESSDB* block, int /*flags*/) {
  RecordStore* store = StoreOf(block);
  if (store == nullptr) return;
  delete store;
  block->pStore = nullptr;
}

}  // namespace kvdao::platform
