#include "kvdao/platform/share_mem.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace kvdao {
namespace {

constexpr std::uint32_t kMagic = 0x4D53564B;  // "KVSM"
constexpr std::uint32_t kVersion = 1;

// The block starts with this header; the slot table follows it, then the
// value bytes. The creator fills everything, then stores the magic last;
// others wait for it.
struct BlockHeader {
  std::uint32_t magic;
  std::uint32_t version;
  std::uint64_t capacity;  // value bytes
  std::uint32_t slots;
  std::uint32_t reserved;
  std::uint64_t used;      // value bytes handed out, from the start
  pthread_mutex_t mutex;   // process-shared and robust
};

constexpr std::size_t kHeaderSize = (sizeof(BlockHeader) + 63) / 64 * 64;

std::string SystemName(const char* name) {
  const char* prefix = std::getenv("KVDAO_SHM_PREFIX");
  return "/" + std::string(prefix != nullptr ? prefix : "") + (name != nullptr ? name : "");
}

}  // namespace

struct CShareMem::Slot {
  std::int32_t value;
  std::int32_t type;
  std::int32_t count;
  std::int32_t inUse;
  std::uint64_t offset;  // into the value bytes
};

namespace {

std::size_t BlockSize(std::uint64_t capacity, std::uint64_t slots, std::size_t slotSize) {
  return kHeaderSize + slots * slotSize + capacity;
}

}  // namespace

CShareMem::CShareMem(const char* name, long capacity, int slots)
    : m_strName(name != nullptr ? name : ""), m_strShmName(SystemName(name)) {
  if (!m_strName.empty() && m_strName.find('/') == std::string::npos) Attach(capacity, slots);
}

CShareMem::CShareMem(const CShareMem& other) : m_strName(other.m_strName), m_strShmName(other.m_strShmName) {
  if (other.IsValid()) Attach(0, 0);
}

CShareMem::~CShareMem() {
  if (m_pBlock != nullptr) ::munmap(m_pBlock, m_nMapped);
}

bool CShareMem::Attach(long capacity, int slots) {
  bool creating = capacity > 0 && slots > 0;
  int fd = creating ? ::shm_open(m_strShmName.c_str(), O_RDWR | O_CREAT | O_EXCL, 0600) : -1;
  if (fd >= 0) {
    const std::size_t size = BlockSize(static_cast<std::uint64_t>(capacity), static_cast<std::uint64_t>(slots), sizeof(Slot));
    void* block = ::ftruncate(fd, static_cast<off_t>(size)) == 0
                      ? ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0)
                      : MAP_FAILED;
    ::close(fd);
    if (block == MAP_FAILED) {
      ::shm_unlink(m_strShmName.c_str());
      return false;
    }
    auto* header = static_cast<BlockHeader*>(block);  // the new object is all zero bytes
    header->version = kVersion;
    header->capacity = static_cast<std::uint64_t>(capacity);
    header->slots = static_cast<std::uint32_t>(slots);
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    pthread_mutex_init(&header->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    std::atomic_ref<std::uint32_t>(header->magic).store(kMagic, std::memory_order_release);
    m_pBlock = block;
    m_nMapped = size;
    return true;
  }
  if (creating && errno != EEXIST) return false;

  // Someone else's block: wait (a little) until its creator has set it up.
  fd = ::shm_open(m_strShmName.c_str(), O_RDWR, 0);
  if (fd < 0) return false;
  bool ok = false;
  for (int attempt = 0; attempt < 2000 && !ok; ++attempt) {
    struct stat status {};
    if (::fstat(fd, &status) != 0) break;
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size >= kHeaderSize) {
      void* block = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
      if (block == MAP_FAILED) break;
      auto* header = static_cast<BlockHeader*>(block);
      if (std::atomic_ref<std::uint32_t>(header->magic).load(std::memory_order_acquire) == kMagic) {
        // Believe the header only when it describes exactly this block.
        ok = header->version == kVersion && header->capacity < size && header->slots < size &&
             BlockSize(header->capacity, header->slots, sizeof(Slot)) == size;
        if (ok) {
          m_pBlock = block;
          m_nMapped = size;
        } else {
          ::munmap(block, size);
        }
        break;
      }
      ::munmap(block, size);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ::close(fd);
  return ok;
}

bool CShareMem::LockBlock() {
  auto* header = static_cast<BlockHeader*>(m_pBlock);
  int result = pthread_mutex_lock(&header->mutex);
  // A process died holding the lock. Values are copied whole before the
  // lock is released, so at worst one value holds a half-written copy.
  if (result == EOWNERDEAD) result = pthread_mutex_consistent(&header->mutex);
  return result == 0;
}

void CShareMem::UnlockBlock() { pthread_mutex_unlock(&static_cast<BlockHeader*>(m_pBlock)->mutex); }

CShareMem::Slot* CShareMem::FindSlot(int value) const {
  auto* header = static_cast<BlockHeader*>(m_pBlock);
  auto* slots = reinterpret_cast<Slot*>(static_cast<char*>(m_pBlock) + kHeaderSize);
  for (std::uint32_t i = 0; i < header->slots; ++i) {
    if (slots[i].inUse != 0 && slots[i].value == value) return &slots[i];
  }
  return nullptr;
}

CShareMem::Slot* CShareMem::Reserve(int value, int count, int type) {
  if (Slot* slot = FindSlot(value)) return slot->type == type && slot->count == count ? slot : nullptr;
  auto* header = static_cast<BlockHeader*>(m_pBlock);
  if (count <= 0 || static_cast<std::uint64_t>(count) > header->capacity - header->used) return nullptr;
  auto* slots = reinterpret_cast<Slot*>(static_cast<char*>(m_pBlock) + kHeaderSize);
  for (std::uint32_t i = 0; i < header->slots; ++i) {
    if (slots[i].inUse == 0) {
      // Keep each value 8-byte aligned.
      slots[i] = {value, type, count, 1, header->used};
      header->used = std::min(header->capacity, (header->used + static_cast<std::uint64_t>(count) + 7) / 8 * 8);
      return &slots[i];
    }
  }
  return nullptr;
}

char* CShareMem::ValueBytes(const Slot& slot, int count) const {
  auto* header = static_cast<BlockHeader*>(m_pBlock);
  // The slot table is shared with other processes: check it, not trust it.
  if (count > slot.count || slot.offset > header->capacity ||
      static_cast<std::uint64_t>(count) > header->capacity - slot.offset)
    return nullptr;
  return static_cast<char*>(m_pBlock) + kHeaderSize + header->slots * sizeof(Slot) + slot.offset;
}

int CShareMem::CreateValue(int value, int count, int type) {
  if (!IsValid() || !LockBlock()) return 0;
  bool ok = Reserve(value, count, type) != nullptr;
  UnlockBlock();
  return ok ? 1 : 0;
}

int CShareMem::SetValue(int value, const void* data, int count, int type) {
  if (!IsValid() || data == nullptr || count <= 0 || !LockBlock()) return 0;
  Slot* slot = FindSlot(value);
  if (slot == nullptr) slot = Reserve(value, count, type);
  char* at = slot != nullptr && slot->type == type ? ValueBytes(*slot, count) : nullptr;
  if (at != nullptr) std::memcpy(at, data, static_cast<std::size_t>(count));
  bool ok = at != nullptr;
  UnlockBlock();
  return ok ? 1 : 0;
}

int CShareMem::GetValue(int value, void* data, int count, int type) {
  if (!IsValid() || data == nullptr || count <= 0 || !LockBlock()) return 0;
  Slot* slot = FindSlot(value);
  const char* at = slot != nullptr && slot->type == type ? ValueBytes(*slot, count) : nullptr;
  if (at != nullptr) std::memcpy(data, at, static_cast<std::size_t>(count));
  bool ok = at != nullptr;
  UnlockBlock();
  return ok ? 1 : 0;
}

bool CShareMem::Remove(const char* name) { return name != nullptr && ::shm_unlink(SystemName(name).c_str()) == 0; }

}  // namespace kvdao
