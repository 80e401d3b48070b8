#pragma once

// Text as Jet stores it, turned into the library's text. Jet 3 text is 8-bit
// (code page 1252 here). Jet 4 text is UCS-2, either plain or in the
// compressed form that starts with the bytes FF FE: in that form a byte
// stands for a character whose high byte is zero, until a zero byte switches
// to plain two-byte characters (and the next zero byte back again).

#include <string>

#include "bytes.h"
#include "kvdao/jet/field_value.h"

namespace kvdao::jet::internal {

// Code page 1252 byte for a Unicode character, or '?' when it has none.
char UnicodeToCp1252(char32_t c) noexcept;

// Appends Jet 4 text (plain or compressed UCS-2) to out in the encoding asked for.
void AppendJet4Text(Bytes stored, TextEncoding encoding, std::string& out);
// Appends Jet 3 text (8-bit) to out in the encoding asked for.
void AppendJet3Text(Bytes stored, TextEncoding encoding, std::string& out);
// True when Jet 4 text bytes are in the compressed form.
inline bool IsCompressedText(Bytes stored) noexcept {
  return stored.size() >= 2 && stored[0] == 0xFF && stored[1] == 0xFE;
}

}  // namespace kvdao::jet::internal
