#pragma once

// CShareMem: a named block of shared memory holding numbered values, shared
// by every process that opens the same name (POSIX shared memory,
// shm_open). Layout and limits: docs/shared-memory.md.
//
// Promises:
//  - the first process to open a name creates the block with the capacity
//    (data bytes) and number of value slots it asks for; later ones use the
//    block as it was created, whatever they ask for;
//  - a value is reserved once with a value number, a byte count and a type
//    tag, and keeps its place for the block's life; values are copied in and
//    out whole under a process-shared lock, so a reader never sees half of
//    a write;
//  - a block lives until it is removed (Remove), not just while a process
//    has it open.
//
// Results: non-zero for success, 0 for failure. Nothing throws.

#include <cstddef>
#include <cstdint>
#include <string>

namespace kvdao {

class CShareMem {
 public:
  // Opens or creates the block `name`, with `capacity` bytes for values and
  // `slots` value slots when it is created. The block's name in the system
  // is "/" + name, with the value of KVDAO_SHM_PREFIX (if set) put before
  // the name, so that test runs do not meet each other's blocks.
  CShareMem(const char* name, long capacity, int slots);
  // Opens the same block again.
  CShareMem(const CShareMem& other);
  CShareMem& operator=(const CShareMem&) = delete;
  virtual ~CShareMem();

  static const char* ClassName() noexcept { return "CShareMem"; }
  virtual const char* GetClassName() const noexcept { return ClassName(); }

  // True when the block is open.
  bool IsValid() const noexcept { return m_pBlock != nullptr; }
  const std::string& GetName() const noexcept { return m_strName; }

  // Reserves value `value` of `count` bytes with tag `type`; succeeds too
  // when it exists with the same count and type.
  int CreateValue(int value, int count, int type);
  // Copies `count` bytes into value `value` (reserving it first if it does
  // not exist); the value must have that tag and room for `count` bytes.
  int SetValue(int value, const void* data, int count, int type);
  // Copies `count` bytes of value `value` out; the value must exist with
  // that tag and hold at least `count` bytes.
  int GetValue(int value, void* data, int count, int type);

  // Removes the block `name` from the system (open mappings stay usable);
  // true when it existed.
  static bool Remove(const char* name);

 private:
  struct Slot;
  bool Attach(long capacity, int slots);
  Slot* FindSlot(int value) const;
  Slot* Reserve(int value, int count, int type);
  // Where `count` bytes of the slot's value lie, or null when they do not fit.
  char* ValueBytes(const Slot& slot, int count) const;
  bool LockBlock();
  void UnlockBlock();

  std::string m_strName;      // as given
  std::string m_strShmName;   // as the system knows it
  void* m_pBlock = nullptr;
  std::size_t m_nMapped = 0;
};

}  // namespace kvdao
