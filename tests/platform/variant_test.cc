#include "kvdao/platform/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kvdao {
namespace {

TEST(VariantTest, ConstructorsPickTheOleTag) {
  EXPECT_EQ(Variant().vt(), VT_EMPTY);
  EXPECT_EQ(Variant(static_cast<unsigned char>(200)).vt(), VT_UI1);
  EXPECT_EQ(Variant(static_cast<unsigned char>(200)).bVal(), 200);
  EXPECT_EQ(Variant(short{-7}).vt(), VT_I2);
  EXPECT_EQ(Variant(short{-7}).iVal(), -7);
  EXPECT_EQ(Variant(-70000L).vt(), VT_I4);
  EXPECT_EQ(Variant(-70000L).lVal(), -70000);
  EXPECT_EQ(Variant(5L, VT_ERROR).vt(), VT_ERROR);
  EXPECT_EQ(Variant(Currency{12345}).vt(), VT_CY);
  EXPECT_EQ(Variant(Currency{12345}).cyVal(), 12345);
  EXPECT_EQ(Variant(2.5f).vt(), VT_R4);
  EXPECT_EQ(Variant(2.5f).fltVal(), 2.5f);
  EXPECT_EQ(Variant(2.5).vt(), VT_R8);
  EXPECT_EQ(Variant(OleDate{45000.25}).vt(), VT_DATE);
  EXPECT_EQ(Variant(OleDate{45000.25}).date(), 45000.25);
  EXPECT_EQ(Variant(ByteArray{1, 2, 3}).vt(), VT_UI1 | VT_ARRAY);
}

TEST(VariantTest, BooleansAreStoredAsOleTrueAndFalse) {
  EXPECT_EQ(Variant(short{5}, VT_BOOL).vt(), VT_BOOL);
  EXPECT_EQ(Variant(short{5}, VT_BOOL).boolVal(), VARIANT_TRUE);
  EXPECT_EQ(Variant(0L, VT_BOOL).boolVal(), VARIANT_FALSE);
  // A long whose low 32 bits are zero is still true.
  EXPECT_EQ(Variant(0x100000000L, VT_BOOL).boolVal(), VARIANT_TRUE);
}

TEST(VariantTest, TextIsEightBitAndNullPointersGiveEmptyText) {
  Variant fromNull(static_cast<const char*>(nullptr));
  EXPECT_EQ(fromNull.vt(), VT_BSTR);
  EXPECT_EQ(fromNull.text(), "");

  Variant ansi("caf\xe9", VT_BSTRT);
  EXPECT_EQ(ansi.vt(), VT_BSTR);
  EXPECT_EQ(ansi.text(), "caf\xe9");

  Variant assigned(3.0);
  assigned = static_cast<const char*>(nullptr);
  EXPECT_EQ(assigned.vt(), VT_BSTR);
  EXPECT_TRUE(assigned.text().empty());

  std::string withNul("a\0b", 3);
  EXPECT_EQ(Variant(withNul).text().size(), 3u);
}

TEST(VariantTest, CopiesAreDeepAndMovesEmptyTheSource) {
  Variant text("sample");
  Variant copy = text;
  copy = "changed";
  EXPECT_EQ(text.text(), "sample");

  Variant bytes(ByteArray{1, 2, 3});
  Variant bytesCopy(bytes);
  bytes = ByteArray{9};
  ASSERT_NE(bytesCopy.bytes(), nullptr);
  EXPECT_EQ(*bytesCopy.bytes(), (ByteArray{1, 2, 3}));

  Variant moved(std::move(copy));
  EXPECT_EQ(moved.text(), "changed");
  EXPECT_EQ(copy.vt(), VT_EMPTY);  // NOLINT(bugprone-use-after-move)

  Variant self("self");
  const Variant& alias = self;
  self = alias;
  EXPECT_EQ(self.text(), "self");

  Variant fromPointer(static_cast<const Variant*>(nullptr));
  EXPECT_EQ(fromPointer.vt(), VT_EMPTY);
  EXPECT_EQ(Variant(&text).text(), "sample");
}

TEST(VariantTest, EqualityNeedsSameTagAndValue) {
  EXPECT_EQ(Variant("a"), Variant(std::string("a")));
  EXPECT_FALSE(Variant("a") == Variant("b"));
  EXPECT_FALSE(Variant(short{5}) == Variant(5L));
  EXPECT_FALSE(Variant(5.0) == Variant(5.0f));
  EXPECT_FALSE(Variant("") == Variant());
  EXPECT_EQ(Variant(), Variant());
  EXPECT_EQ(Variant(ByteArray{1, 2}), Variant(ByteArray{1, 2}));
  EXPECT_FALSE(Variant(ByteArray{1, 2}) == Variant(ByteArray{1, 3}));
  double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(Variant(nan) == Variant(nan));
}

TEST(VariantTest, RawPayloadReadsNumbersButNeverAddresses) {
  EXPECT_EQ(Variant(254.5).RawPayloadAsDouble(), 254.5);
  EXPECT_EQ(Variant(OleDate{2.0}).RawPayloadAsDouble(), 2.0);
  EXPECT_EQ(Variant("text").RawPayloadAsDouble(), 0.0);
  EXPECT_EQ(Variant(ByteArray{1}).RawPayloadAsDouble(), 0.0);
  EXPECT_EQ(Variant().RawPayloadAsDouble(), 0.0);
  // Narrow payloads are zero-extended.
  EXPECT_EQ(Variant(short{-1}).uiVal(), 0xFFFF);
  EXPECT_EQ(Variant(short{-1}).ulVal(), 0xFFFFu);

  EXPECT_EQ(Variant::FromRaw(VT_BSTR, 12345).vt(), VT_EMPTY);
  EXPECT_EQ(Variant::FromRaw(VT_I4, 7).lVal(), 7);
}

}  // namespace
}  // namespace kvdao
