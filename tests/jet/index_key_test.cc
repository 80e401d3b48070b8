// Index keys must sort, byte by byte, in the order of the values they encode,
// and match the bytes Jet writes (values taken from index pages of Access
// files).

#include "index_key.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "format.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

using Key = std::vector<std::uint8_t>;

Key KeyOf(std::uint8_t type, bool ascending, const Variant& value) {
  IndexKeyColumn column{type, ascending};
  Key key;
  EncodeIndexKey(std::span(&column, 1), std::span(&value, 1), key);
  return key;
}

TEST(IndexKey, MatchesJetBytes) {
  // A descending Long index of an Access file holds 4813 as 80 7F FF ED 32
  // and null as FF; an ascending one holds 2 as 7F 80 00 00 02.
  EXPECT_EQ(KeyOf(format::kLong, false, Variant(4813)), (Key{0x80, 0x7F, 0xFF, 0xED, 0x32}));
  EXPECT_EQ(KeyOf(format::kLong, false, Variant()), (Key{0xFF}));
  EXPECT_EQ(KeyOf(format::kLong, true, Variant(2)), (Key{0x7F, 0x80, 0x00, 0x00, 0x02}));
  Variant null;
  null = Variant::FromRaw(VT_NULL, 0);
  EXPECT_EQ(KeyOf(format::kDouble, true, null), (Key{0x00}));
  // Currency is scaled by 10,000: 1.5 is 15000 = 0x3A98.
  EXPECT_EQ(KeyOf(format::kMoney, true, Variant(Currency{15000})),
            (Key{0x7F, 0x80, 0, 0, 0, 0, 0, 0x3A, 0x98}));
  EXPECT_EQ(KeyOf(format::kByte, true, Variant(static_cast<unsigned char>(200))), (Key{0x7F, 200}));
  EXPECT_EQ(KeyOf(format::kByte, false, Variant(static_cast<unsigned char>(200))), (Key{0x80, 55}));
  // 1.0 is 3FF0 0000 0000 0000; its sign bit is flipped.
  EXPECT_EQ(KeyOf(format::kDouble, true, Variant(1.0)), (Key{0x7F, 0xBF, 0xF0, 0, 0, 0, 0, 0, 0}));
  // -1.0 is BFF0 ...: every bit inverted.
  EXPECT_EQ(KeyOf(format::kDouble, true, Variant(-1.0)), (Key{0x7F, 0x40, 0x0F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(IndexKey, BooleanIsNeverNull) {
  EXPECT_EQ(KeyOf(format::kBoolean, true, Variant(short{-1}, VT_BOOL)), (Key{0x7F, 0x00}));
  EXPECT_EQ(KeyOf(format::kBoolean, true, Variant(short{0}, VT_BOOL)), (Key{0x7F, 0xFF}));
  EXPECT_EQ(KeyOf(format::kBoolean, true, Variant()), (Key{0x7F, 0xFF}));
  EXPECT_EQ(KeyOf(format::kBoolean, false, Variant(short{-1}, VT_BOOL)), (Key{0x80, 0xFF}));
}

// Keys of ascending columns sort like the values, nulls first; descending
// keys sort the other way, nulls last.
template <typename Number>
void ExpectOrdered(std::uint8_t type, std::vector<Number> values) {
  std::sort(values.begin(), values.end());
  for (bool ascending : {true, false}) {
    std::vector<Key> keys;
    keys.push_back(KeyOf(type, ascending, Variant()));
    for (Number value : values) {
      Variant v = type == format::kDateTime ? Variant(OleDate{static_cast<double>(value)}) : Variant(value);
      keys.push_back(KeyOf(type, ascending, v));
    }
    for (std::size_t i = 1; i < keys.size(); ++i) {
      bool equal_values = i >= 2 && values[i - 1] == values[i - 2];
      if (equal_values) {
        EXPECT_EQ(keys[i - 1], keys[i]);
      } else if (ascending) {
        EXPECT_LT(keys[i - 1], keys[i]) << "type " << int(type) << " value " << values[i - 1];
      } else {
        EXPECT_GT(keys[i - 1], keys[i]) << "type " << int(type) << " value " << values[i - 1];
      }
    }
  }
}

TEST(IndexKey, KeysSortLikeValues) {
  std::mt19937 random(7);
  std::vector<int> longs = {std::numeric_limits<int>::min(), -65536, -1, 0, 1, 255, 256, std::numeric_limits<int>::max()};
  std::vector<short> shorts = {-32768, -256, -1, 0, 1, 256, 32767};
  std::vector<double> doubles = {-std::numeric_limits<double>::infinity(), -1e300, -2.5, -1.0, -1e-300, 0.0,
                                 1e-300, 1.0, 2.5, 1e300, std::numeric_limits<double>::infinity()};
  std::vector<float> floats = {-3.0e38f, -2.5f, -1e-30f, 0.0f, 1e-30f, 1.0f, 3.0e38f};
  for (int i = 0; i < 200; ++i) {
    longs.push_back(static_cast<int>(random()));
    shorts.push_back(static_cast<short>(random()));
    doubles.push_back(std::ldexp(static_cast<double>(static_cast<int>(random())), static_cast<int>(random() % 200) - 100));
  }
  ExpectOrdered(format::kLong, longs);
  ExpectOrdered(format::kInteger, shorts);
  ExpectOrdered(format::kDouble, doubles);
  ExpectOrdered(format::kDateTime, doubles);
  ExpectOrdered(format::kFloat, floats);
}

TEST(IndexKey, MultiColumnKeysConcatenate) {
  IndexKeyColumn columns[] = {{format::kLong, true}, {format::kDouble, false}, {format::kInteger, true}};
  Variant values[] = {Variant(5), Variant(), Variant(short{-2})};
  Key key;
  EncodeIndexKey(columns, values, key);
  Key expected = KeyOf(format::kLong, true, Variant(5));
  expected.push_back(0xFF);
  Key last = KeyOf(format::kInteger, true, Variant(short{-2}));
  expected.insert(expected.end(), last.begin(), last.end());
  EXPECT_EQ(key, expected);
}

TEST(IndexKey, OtherNumberTypesConvertLikeStoredValues) {
  // A Double for a Long column rounds half to even, as the stored value would.
  EXPECT_EQ(KeyOf(format::kLong, true, Variant(2.5)), KeyOf(format::kLong, true, Variant(2)));
  EXPECT_EQ(KeyOf(format::kLong, true, Variant(short{7})), KeyOf(format::kLong, true, Variant(7)));
  EXPECT_EQ(KeyOf(format::kMoney, true, Variant(3)), KeyOf(format::kMoney, true, Variant(Currency{30000})));
  EXPECT_EQ(KeyOf(format::kDateTime, true, Variant(OleDate{45000.5})), KeyOf(format::kDouble, true, Variant(45000.5)));
}

TEST(IndexKey, TextKeysFollowTheGeneralSortOrder) {
  // The flag, the letters' weights (A = 4A, B = 4C, case ignored), 01, and
  // for the accented É its accent byte 0E after a placeholder 02 for the
  // plain letter before it; a null is the flag alone.
  EXPECT_EQ(KeyOf(format::kText, true, Variant("aB")), (Key{0x7F, 0x4A, 0x4C, 0x01, 0x00}));
  EXPECT_EQ(KeyOf(format::kText, true, Variant("E\xC9")), (Key{0x7F, 0x51, 0x51, 0x01, 0x02, 0x0E, 0x00}));
  EXPECT_EQ(KeyOf(format::kText, true, Variant()), (Key{0x00}));
  // Code page 1252 bytes are its characters: 0x80 is the euro sign, not U+0080.
  EXPECT_EQ(KeyOf(format::kText, true, Variant("\x80")), (Key{0x7F, 0x35, 0xA1, 0x01, 0x00}));
  // A descending text key is inverted with a 00 before the inversion and one after.
  EXPECT_EQ(KeyOf(format::kText, false, Variant("a")), (Key{0x80, 0xB5, 0xFE, 0xFF, 0x00}));
}

TEST(IndexKey, RefusesWhatItCannotEncode) {
  auto description = [](std::uint8_t type, const Variant& value) {
    try {
      KeyOf(type, true, value);
    } catch (const DaoException& e) {
      return e.Description();
    }
    return std::string("no exception");
  };
  EXPECT_NE(description(format::kText, Variant(12)).find("needs text"), std::string::npos);
  EXPECT_EQ(description(format::kMemo, Variant()), "Indexes on Memo fields are not supported yet.");
  EXPECT_NE(description(format::kLong, Variant("12")).find("conversion"), std::string::npos);
  EXPECT_NE(description(format::kByte, Variant(256)).find("overflow"), std::string::npos);
  EXPECT_NE(description(format::kInteger, Variant(40000)).find("overflow"), std::string::npos);
  EXPECT_NE(description(format::kLong, Variant(3e9)).find("overflow"), std::string::npos);
  EXPECT_NE(description(format::kFloat, Variant(1e300)).find("overflow"), std::string::npos);
  IndexKeyColumn column{format::kLong, true};
  Key key;
  EXPECT_THROW(EncodeIndexKey(std::span(&column, 1), std::span<const Variant>(), key), DaoException);
}

}  // namespace
}  // namespace kvdao::jet::internal
