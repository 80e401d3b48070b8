#pragma once

// Little-endian stores into buffers the writer owns, and a growing byte
// buffer for building structures whose size is not known in advance (table
// definitions, usage-map rows, catalog values).

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace kvdao::jet::internal {

inline void StoreU16(std::uint8_t* p, std::uint16_t v) noexcept {
  p[0] = static_cast<std::uint8_t>(v);
  p[1] = static_cast<std::uint8_t>(v >> 8);
}
inline void StoreU32(std::uint8_t* p, std::uint32_t v) noexcept {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<std::uint8_t>(v >> (8 * i));
}
inline void StoreU64(std::uint8_t* p, std::uint64_t v) noexcept {
  StoreU32(p, static_cast<std::uint32_t>(v));
  StoreU32(p + 4, static_cast<std::uint32_t>(v >> 32));
}
inline void StoreF64(std::uint8_t* p, double v) noexcept {
  std::uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  StoreU64(p, bits);
}
inline void StoreF32(std::uint8_t* p, float v) noexcept {
  std::uint32_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  StoreU32(p, bits);
}

class ByteBuffer {
 public:
  std::vector<std::uint8_t>& bytes() noexcept { return bytes_; }
  const std::vector<std::uint8_t>& bytes() const noexcept { return bytes_; }
  std::size_t size() const noexcept { return bytes_.size(); }

  void U8(std::uint8_t v) { bytes_.push_back(v); }
  void U16(std::uint16_t v) {
    bytes_.resize(bytes_.size() + 2);
    StoreU16(&bytes_[bytes_.size() - 2], v);
  }
  void U32(std::uint32_t v) {
    bytes_.resize(bytes_.size() + 4);
    StoreU32(&bytes_[bytes_.size() - 4], v);
  }
  void Zeros(std::size_t n) { bytes_.resize(bytes_.size() + n, 0); }
  void Append(const std::uint8_t* data, std::size_t n) { bytes_.insert(bytes_.end(), data, data + n); }
  // A name as Jet 4 stores it in definitions: 2-byte length, then UCS-2.
  void Name(std::string_view cp1252);
  // UCS-2 of code page 1252 text without a length.
  void Ucs2(std::string_view cp1252);

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace kvdao::jet::internal
