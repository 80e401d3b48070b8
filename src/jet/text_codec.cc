#include "text_codec.h"

#include "kvdao/platform/code_page.h"

namespace kvdao::jet::internal {
namespace {

// Emits the characters of UCS-2 text one by one, joining surrogate pairs.
template <typename Sink>
void ForEachChar(Bytes stored, bool compressed_form, Sink&& sink) {
  char32_t pending_high = 0;
  auto emit_unit = [&](char16_t unit) {
    if (unit >= 0xD800 && unit < 0xDC00) {
      if (pending_high != 0) sink(U'\uFFFD');
      pending_high = unit;
      return;
    }
    if (unit >= 0xDC00 && unit < 0xE000) {
      if (pending_high != 0) {
        sink(0x10000 + ((pending_high - 0xD800) << 10) + (unit - 0xDC00));
        pending_high = 0;
      } else {
        sink(U'\uFFFD');
      }
      return;
    }
    if (pending_high != 0) {
      sink(U'\uFFFD');
      pending_high = 0;
    }
    sink(unit);
  };
  const std::uint8_t* p = stored.data();
  const std::uint8_t* end = p + stored.size();
  if (compressed_form) {
    p += 2;
    bool compressed = true;
    while (p < end) {
      if (*p == 0) {
        compressed = !compressed;
        ++p;
      } else if (compressed) {
        emit_unit(*p++);
      } else if (end - p >= 2) {
        emit_unit(LoadU16(p));
        p += 2;
      } else {
        break;  // a dangling half character is dropped
      }
    }
  } else {
    for (; end - p >= 2; p += 2) emit_unit(LoadU16(p));
  }
  if (pending_high != 0) sink(U'\uFFFD');
}

}  // namespace

char UnicodeToCp1252(char32_t c) noexcept {
  return c < 0x80 ? static_cast<char>(c) : platform::ByteFrom1252CodePoint(c);
}


void AppendJet4Text(Bytes stored, TextEncoding encoding, std::string& out) {
  // Fast path: plain UCS-2 whose characters are all ASCII (most stored text),
  // four characters at a time.
  const bool compressed = IsCompressedText(stored);
  if (!compressed) {
    const std::size_t count = stored.size() / 2;
    const std::uint8_t* p = stored.data();
    const std::size_t base = out.size();
    out.resize(base + count);
    char* dest = out.data() + base;
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
      std::uint64_t units = LoadU64(p + 2 * i);
      if ((units & 0xFF80FF80FF80FF80ull) != 0) break;
      dest[i] = static_cast<char>(units);
      dest[i + 1] = static_cast<char>(units >> 16);
      dest[i + 2] = static_cast<char>(units >> 32);
      dest[i + 3] = static_cast<char>(units >> 48);
    }
    for (; i < count && p[2 * i + 1] == 0 && p[2 * i] < 0x80; ++i) dest[i] = static_cast<char>(p[2 * i]);
    out.resize(base + i);
    if (i == count) return;
    stored = stored.subspan(2 * i);
  }
  if (encoding == TextEncoding::kUtf8) {
    ForEachChar(stored, compressed, [&](char32_t c) {
      if (c < 0x80) {
        out += static_cast<char>(c);
      } else {
        platform::AppendUtf8(out, c);
      }
    });
  } else {
    ForEachChar(stored, compressed, [&](char32_t c) { out += UnicodeToCp1252(c); });
  }
}

void AppendJet3Text(Bytes stored, TextEncoding encoding, std::string& out) {
  if (encoding == TextEncoding::kCp1252) {
    out.append(reinterpret_cast<const char*>(stored.data()), stored.size());
    return;
  }
  for (std::uint8_t byte : stored) platform::AppendUtf8(out, platform::CodePointFrom1252(byte));
}

}  // namespace kvdao::jet::internal
