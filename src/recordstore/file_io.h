#pragma once

// Whole-buffer positioned reads and writes, syncs and advisory locks on
// file descriptors, each retrying on interrupted system calls. Every
// function reports failure by its result and leaves errno set.

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace kvdao::recordstore {

// False unless all `size` bytes were read (a short file is a failure).
bool ReadAt(int fd, void* buffer, std::size_t size, std::uint64_t offset);
bool WriteAt(int fd, const void* buffer, std::size_t size, std::uint64_t offset);
bool SyncFile(int fd);
// Makes a new or removed name in the folder of `path` durable.
bool SyncParentFolder(const std::string& path);
// The file's length, or -1.
std::int64_t FileLength(int fd);
bool FileExists(const std::string& path);

// flock(2) wrappers: kShared, kExclusive or kUnlocked.
enum class LockLevel { kUnlocked, kShared, kExclusive };
bool SetLock(int fd, LockLevel level);

}  // namespace kvdao::recordstore

#include <sys/uio.h>

#include <vector>

namespace kvdao::recordstore {

// Writes the buffers of `pieces` one after another from `offset`; false
// unless every byte was written. `pieces` is consumed.
bool WriteGather(int fd, std::vector<iovec>& pieces, std::uint64_t offset);

}  // namespace kvdao::recordstore
