#include "format.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace kvdao::recordstore {

void PutU32(std::uint8_t* at, std::uint32_t value) noexcept {
  for (int i = 0; i < 4; ++i) at[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

void PutU64(std::uint8_t* at, std::uint64_t value) noexcept {
  for (int i = 0; i < 8; ++i) at[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

std::uint32_t GetU32(const std::uint8_t* at) noexcept {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = (value << 8) | at[i];
  return value;
}

std::uint64_t GetU64(const std::uint8_t* at) noexcept {
  std::uint64_t value = 0;
  for (int i = 7; i >= 0; --i) value = (value << 8) | at[i];
  return value;
}

std::uint32_t Crc32(std::uint32_t crc, const void* data, std::size_t size) {
  const auto* bytes = static_cast<const Bytef*>(data);
  uLong value = crc;
  // zlib takes at most a uInt per call.
  while (size > 0) {
    uInt chunk = static_cast<uInt>(std::min<std::size_t>(size, std::numeric_limits<uInt>::max()));
    value = crc32(value, bytes, chunk);
    bytes += chunk;
    size -= chunk;
  }
  return static_cast<std::uint32_t>(value);
}

std::uint32_t SlotChecksum(std::uint64_t number, const void* record, std::size_t size) {
  std::uint8_t prefix[8];
  PutU64(prefix, number);
  return Crc32(Crc32(0, prefix, sizeof prefix), record, size);
}

// Header layout: magic (8), version (4), header size (4), kind (4), record
// size (4), record count (8), slot size (4), reserved zero (24), CRC-32 of
// the 60 bytes before it (4).
HeaderBytes EncodeHeader(const StoreHeader& header) {
  HeaderBytes bytes{};
  std::memcpy(bytes.data(), kStoreMagic, sizeof kStoreMagic);
  PutU32(&bytes[8], kFormatVersion);
  PutU32(&bytes[12], static_cast<std::uint32_t>(kHeaderSize));
  PutU32(&bytes[16], header.kind);
  PutU32(&bytes[20], header.recordSize);
  PutU64(&bytes[24], header.recordCount);
  PutU32(&bytes[32], static_cast<std::uint32_t>(header.SlotSize()));
  PutU32(&bytes[60], Crc32(0, bytes.data(), 60));
  return bytes;
}

std::optional<StoreHeader> DecodeHeader(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < kHeaderSize) return std::nullopt;
  const std::uint8_t* at = bytes.data();
  if (std::memcmp(at, kStoreMagic, sizeof kStoreMagic) != 0) return std::nullopt;
  if (GetU32(at + 60) != Crc32(0, at, 60)) return std::nullopt;
  if (GetU32(at + 8) != kFormatVersion || GetU32(at + 12) != kHeaderSize) return std::nullopt;
  if (std::any_of(at + 36, at + 60, [](std::uint8_t b) { return b != 0; })) return std::nullopt;
  StoreHeader header;
  header.kind = GetU32(at + 16);
  header.recordSize = GetU32(at + 20);
  header.recordCount = GetU64(at + 24);
  if (header.recordSize == 0 || GetU32(at + 32) != header.SlotSize()) return std::nullopt;
  // A count whose file length would not fit in 63 bits is not a real store.
  if (header.recordCount > (std::uint64_t{1} << 62) / header.SlotSize()) return std::nullopt;
  return header;
}

}  // namespace kvdao::recordstore
