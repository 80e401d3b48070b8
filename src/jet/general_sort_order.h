#pragma once

// Index keys of text in the General sort order, the collation Jet 4
// (Access 2000 to 2003) gives every Text column of a database created with
// it. Jet compares keys byte by byte, so the text is turned into bytes that
// sort as the collation wants:
//
//  - each character has a primary weight of one or two bytes; letters weigh
//    the same whatever their case or accent, digits and punctuation have
//    their own weights. These come first, then the byte 01;
//  - accented characters add a secondary byte that tells them apart from
//    the plain letter; the secondary bytes of all characters (02 for "no
//    accent") follow the 01, up to the last character that has one;
//  - a few characters have no weight at all and only count where they
//    stand (the apostrophe, the hyphen, control characters): each adds
//    four bytes after the marker 01 01 01 — its position among the weighted
//    characters as 0x8000 | (7 + 4 × position), big-endian, then 06 and
//    its own code — so "coop" and "co-op" sort together but differ;
//  - the character U+0000 and unassigned characters are ignored;
//  - the key ends with 00. In a descending column every byte of the text's
//    key is inverted, a 00 is put before the inversion and another after.
//
// Only the first 255 characters of a text are indexed.
//
// Characters whose place in the collation this engine knows: U+0000 to
// U+0192 (ASCII, Latin-1, Latin Extended-A), the rest of code page 1252
// (ˆ ˜ € ™) and the General Punctuation characters U+2000 to U+2046 (the
// typographic quotes, dashes, bullet, ellipsis, per mille). Text with any
// other character is refused with a DaoException rather than given a key
// that Jet would sort elsewhere.

#include <cstdint>
#include <string_view>
#include <vector>

namespace kvdao::jet::internal {

// The most characters of a text that an index key holds.
inline constexpr std::size_t kMaxIndexedTextChars = 255;

// True when c has a known place in the General sort order.
bool GeneralSortOrderKnows(char32_t c) noexcept;

// Appends the key bytes of text (Unicode characters) in the General sort
// order to key, after the column's flag byte. DaoException naming the
// character when one is not known.
void AppendGeneralTextKey(std::u32string_view text, bool ascending, std::vector<std::uint8_t>& key);

}  // namespace kvdao::jet::internal
