// Text keys in the General sort order: they must order text as Access does
// (case and accents second to the letters, hyphen and apostrophe by
// position only) and know every character of code page 1252.

#include "general_sort_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/code_page.h"

namespace kvdao::jet::internal {
namespace {

using Key = std::vector<std::uint8_t>;

Key KeyOf(std::u32string_view text, bool ascending = true) {
  Key key;
  AppendGeneralTextKey(text, ascending, key);
  return key;
}

TEST(GeneralSortOrder, KnowsEveryCharacterOfCodePage1252) {
  for (int byte = 0; byte < 256; ++byte) {
    char32_t c = platform::CodePointFrom1252(static_cast<unsigned char>(byte));
    EXPECT_TRUE(GeneralSortOrderKnows(c)) << "byte " << byte;
  }
  EXPECT_FALSE(GeneralSortOrderKnows(U'\u0416'));  // Cyrillic Zhe
  EXPECT_FALSE(GeneralSortOrderKnows(U'\u4E2D'));
  EXPECT_FALSE(GeneralSortOrderKnows(U'\U0001F600'));
}

TEST(GeneralSortOrder, RefusesUnknownCharactersByName) {
  Key key{0x7F};
  try {
    AppendGeneralTextKey(U"ab\u0416", true, key);
    FAIL() << "no exception";
  } catch (const DaoException& e) {
    EXPECT_NE(e.Description().find("U+0416"), std::string::npos) << e.Description();
  }
  EXPECT_EQ(key, Key{0x7F}) << "nothing is left behind";
}

TEST(GeneralSortOrder, PositionalCharactersFollowTheWeights) {
  // "a-b": weights of a and b, 01, no accents, then 01 01 01 and the hyphen
  // (code 82) at position 1: 0x8000 | (7 + 4 * 1) = 80 0B, 06, 82.
  EXPECT_EQ(KeyOf(U"a-b"), (Key{0x4A, 0x4C, 0x01, 0x01, 0x01, 0x01, 0x80, 0x0B, 0x06, 0x82, 0x00}));
  // U+0000 counts for nothing at all.
  EXPECT_EQ(KeyOf(std::u32string(U"ab") + U'\0'), KeyOf(U"ab"));
}

// Keys sort like Access sorts the texts: by letters first, whatever their
// case or accents (ß and "ss" alike), then by punctuation that only counts
// by position, then by accents.
TEST(GeneralSortOrder, KeysSortLikeAccess) {
  const std::u32string ordered[] = {
      U"",       U" ",      U"!",     U"0",     U"9",     U"a",      U"\u00E1", U"ab",
      U"a-b",    U"\u00E4b", U"abc",   U"\u00E6", U"b",     U"c\u0153", U"e",      U"\u00E9",
      U"\u00EA", U"f",      U"\u0192", U"ss",    U"\u00DF", U"z",      U"\u017E",
  };
  for (std::size_t i = 1; i < std::size(ordered); ++i) {
    Key before = KeyOf(ordered[i - 1]);
    Key after = KeyOf(ordered[i]);
    EXPECT_LE(before, after) << "position " << i;
    // Descending keys sort the other way.
    EXPECT_GE(KeyOf(ordered[i - 1], false), KeyOf(ordered[i], false)) << "position " << i;
  }
  EXPECT_EQ(KeyOf(U"ABC"), KeyOf(U"abc"));
  EXPECT_EQ(KeyOf(U"\u00C9T\u00C9"), KeyOf(U"\u00E9t\u00E9"));
  EXPECT_NE(KeyOf(U"ab"), KeyOf(U"a-b"));
  EXPECT_NE(KeyOf(U"ab"), KeyOf(U"\u00E4b"));
}

TEST(GeneralSortOrder, IndexesTheFirst255Characters) {
  std::u32string longest(kMaxIndexedTextChars, U'x');
  EXPECT_EQ(KeyOf(longest + U"yz"), KeyOf(longest));
  EXPECT_NE(KeyOf(longest.substr(1) + U"y"), KeyOf(longest));
  // A text full of accents and positional characters still ends well.
  std::u32string mixed;
  for (int i = 0; i < 300; ++i) mixed += (i % 3 == 0) ? U'\u00E9' : (i % 3 == 1 ? U'-' : U'a');
  Key key = KeyOf(mixed, false);
  EXPECT_EQ(key.back(), 0x00);
  EXPECT_EQ(key[key.size() - 2], 0xFF);
}

}  // namespace
}  // namespace kvdao::jet::internal
