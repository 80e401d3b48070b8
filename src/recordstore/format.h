#pragma once

// The on-disk layout of a record store and of its rollback journal, in one
// place: sizes, magic texts, little-endian field coding and the checksums.
// docs/record-store.md describes the same layout for readers of the files.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kvdao::recordstore {

inline constexpr std::size_t kHeaderSize = 64;
inline constexpr std::uint32_t kFormatVersion = 1;
inline constexpr std::size_t kSlotTrailerSize = 4;  // CRC-32 after each record
inline constexpr char kStoreMagic[8] = {'K', 'V', 'R', 'S', 'T', 'O', 'R', 'E'};
inline constexpr char kJournalMagic[8] = {'K', 'V', 'R', 'S', 'J', 'R', 'N', 'L'};
// Journal: magic, version, slot size, old store length, entry count, the old
// store header; then entries (record number + old slot); then a CRC-32.
inline constexpr std::size_t kJournalHeaderSize = 32 + kHeaderSize;
inline constexpr std::size_t kJournalTrailerSize = 4;

// The fields of a store header. The record count is the only one that
// changes over a store's life.
struct StoreHeader {
  std::uint32_t kind = 0;
  std::uint32_t recordSize = 0;
  std::uint64_t recordCount = 0;

  std::uint64_t SlotSize() const noexcept { return std::uint64_t{recordSize} + kSlotTrailerSize; }
  // The length a store file with this header must have.
  std::uint64_t FileLength() const noexcept { return kHeaderSize + recordCount * SlotSize(); }
  std::uint64_t SlotOffset(std::uint64_t number) const noexcept {
    return kHeaderSize + (number - 1) * SlotSize();
  }
};

using HeaderBytes = std::array<std::uint8_t, kHeaderSize>;

HeaderBytes EncodeHeader(const StoreHeader& header);
// The header, or nothing when the bytes are not a valid header of this
// format and version (magic, sizes, reserved bytes, checksum).
std::optional<StoreHeader> DecodeHeader(std::span<const std::uint8_t> bytes);

// CRC-32 (zlib's polynomial) continuing from `crc`.
std::uint32_t Crc32(std::uint32_t crc, const void* data, std::size_t size);
// The trailer of record `number`'s slot: a CRC-32 over the number (8 bytes,
// little-endian) and the record's bytes, so that a record written to the
// wrong place is detected as well as a damaged one.
std::uint32_t SlotChecksum(std::uint64_t number, const void* record, std::size_t size);

void PutU32(std::uint8_t* at, std::uint32_t value) noexcept;
void PutU64(std::uint8_t* at, std::uint64_t value) noexcept;
std::uint32_t GetU32(const std::uint8_t* at) noexcept;
std::uint64_t GetU64(const std::uint8_t* at) noexcept;

}  // namespace kvdao::recordstore
