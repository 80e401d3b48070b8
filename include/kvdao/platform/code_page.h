#pragma once

// Conversions between the library's 8-bit text (code page 1252) and Unicode.

#include <string>
#include <string_view>

namespace kvdao {
namespace platform {

// The Unicode character of a code page 1252 byte, and the byte of a Unicode
// character ('?' for one the code page lacks).
char32_t CodePointFrom1252(unsigned char byte) noexcept;
char ByteFrom1252CodePoint(char32_t cp) noexcept;

// Appends one Unicode character to UTF-8 text.
void AppendUtf8(std::string& out, char32_t cp);

// Code page 1252 to UTF-8: every byte maps to one Unicode character (the five
// bytes the code page leaves undefined map to the C1 control of the same
// number, so nothing is lost). `out` is replaced.
void Utf8From1252(std::string_view text, std::string& out);
// UTF-8 to code page 1252: characters outside the code page and malformed
// sequences become '?'. `out` is replaced.
void Cp1252FromUtf8(std::string_view text, std::string& out);
// True when every byte is below 0x80, so that both forms are the same bytes.
bool IsAscii(std::string_view text) noexcept;

}  // namespace platform
}  // namespace kvdao
