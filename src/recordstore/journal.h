#pragma once

// The rollback journal of a record store: before a commit touches the store
// file, the bytes it is about to overwrite or cut off, with the old header
// and length, are written to "<store>-journal" and synced. A complete
// journal beside a store means a commit may have stopped half way; applying
// it restores the store exactly as it was before that commit.

#include <cstdint>
#include <string>
#include <vector>

#include "format.h"

namespace kvdao::recordstore {

std::string JournalPathOf(const std::string& storePath);

// Writes the journal for a commit on the store open as `storeFd` whose
// current header is `old` (bytes `oldHeader`): the old slots of the records
// numbered in `numbers` (each 1 … old.recordCount). The journal is synced,
// and its name made durable, before this returns true.
bool WriteJournal(const std::string& journalPath, int storeFd, const StoreHeader& old,
                  const HeaderBytes& oldHeader, const std::vector<std::uint64_t>& numbers);

// A journal read back: what it would restore.
struct Journal {
  HeaderBytes oldHeader{};
  StoreHeader old;
  std::uint64_t entryCount = 0;
  std::vector<std::uint8_t> bytes;  // the whole journal file
};

enum class JournalState {
  kAbsent,      // no journal file
  kIncomplete,  // a journal that was not finished (or is not one at all)
  kComplete,    // a finished journal: apply it
  kUnreadable,  // present but could not be read
};

JournalState ReadJournal(const std::string& journalPath, Journal& journal);

// Writes the old slots and header back, cuts the store to its old length and
// syncs it. The journal file itself is left for the caller to remove.
bool ApplyJournal(int storeFd, const Journal& journal);

}  // namespace kvdao::recordstore
