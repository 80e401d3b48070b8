#pragma once

// Little-endian reads from a bounds-checked byte range. Every structure the
// engine decodes comes from pages of an untrusted file, so each read checks
// its range and reports a damaged file as a DaoException instead of reading
// outside the page.

#include <cstdint>
#include <cstring>
#include <span>
#include <string>

namespace kvdao::jet::internal {

using Bytes = std::span<const std::uint8_t>;

// Throws DaoException("<what>: ... damaged") style errors; out of line so the
// readers stay small.
[[noreturn]] void ThrowDamaged(const std::string& what);

inline std::uint16_t LoadU16(const std::uint8_t* p) noexcept {
  return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}
inline std::uint32_t LoadU32(const std::uint8_t* p) noexcept {
  return static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8) |
         (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}
inline std::uint64_t LoadU64(const std::uint8_t* p) noexcept {
  return static_cast<std::uint64_t>(LoadU32(p)) | (static_cast<std::uint64_t>(LoadU32(p + 4)) << 32);
}
inline double LoadF64(const std::uint8_t* p) noexcept {
  std::uint64_t bits = LoadU64(p);
  double value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}
inline float LoadF32(const std::uint8_t* p) noexcept {
  std::uint32_t bits = LoadU32(p);
  float value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

// Checked reads at an offset inside a byte range.
class ByteReader {
 public:
  ByteReader(Bytes bytes, const char* what) : bytes_(bytes), what_(what) {}

  std::size_t size() const noexcept { return bytes_.size(); }
  Bytes bytes() const noexcept { return bytes_; }

  void Require(std::size_t offset, std::size_t length) const {
    if (offset > bytes_.size() || length > bytes_.size() - offset) ThrowDamaged(what_);
  }
  std::uint8_t U8(std::size_t offset) const {
    Require(offset, 1);
    return bytes_[offset];
  }
  std::uint16_t U16(std::size_t offset) const {
    Require(offset, 2);
    return LoadU16(bytes_.data() + offset);
  }
  std::uint32_t U32(std::size_t offset) const {
    Require(offset, 4);
    return LoadU32(bytes_.data() + offset);
  }
  double F64(std::size_t offset) const {
    Require(offset, 8);
    return LoadF64(bytes_.data() + offset);
  }
  Bytes Slice(std::size_t offset, std::size_t length) const {
    Require(offset, length);
    return bytes_.subspan(offset, length);
  }

 private:
  Bytes bytes_;
  const char* what_;
};

}  // namespace kvdao::jet::internal
