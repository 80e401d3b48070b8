#include "kvdao/samplelist/kv_variant.h"

#include <gtest/gtest.h>

#include <thread>

namespace kvdao {
namespace {

TEST(GetStringTest, ConvertsEachTagAsTheSampleListsShowIt) {
  EXPECT_EQ(GetString(CKVVariant()), "");
  EXPECT_EQ(GetString(CKVVariant(0.1)), "0.100000");
  EXPECT_EQ(GetString(CKVVariant(1.5f)), "1.500000");
  EXPECT_EQ(GetString(CKVVariant(-2.0)), "-2.000000");
  EXPECT_EQ(GetString(CKVVariant("MS method")), "MS method");
  EXPECT_EQ(GetString(CKVVariant(short{1}, VT_BOOL)), "TRUE");
  EXPECT_EQ(GetString(CKVVariant(short{0}, VT_BOOL)), "FALSE");
  EXPECT_EQ(GetString(CKVVariant(short{-5})), "-5");
  EXPECT_EQ(GetString(CKVVariant(static_cast<unsigned char>(200))), "200");
  EXPECT_EQ(GetString(CKVVariant(123456L)), "123456");
  EXPECT_EQ(GetString(CKVVariant::FromRaw(VT_UI2, 65535)), "65535");
  EXPECT_EQ(GetString(CKVVariant::FromRaw(VT_I1, 'x')), "x");
  CKVVariant null = CKVVariant::FromRaw(VT_NULL, 0);
  EXPECT_EQ(GetString(null), "");
}

TEST(GetStringTest, TagsWithoutConversionKeepThePreviousText) {
  GetString(CKVVariant("ABC"));
  EXPECT_EQ(GetString(CKVVariant(OleDate{45000.0})), "ABC");
  EXPECT_EQ(GetString(CKVVariant(Currency{10000})), "ABC");
  EXPECT_EQ(GetString(CKVVariant(ByteArray{1, 2})), "ABC");
  // The buffer is shared: the reference follows the next conversion.
  const std::string& first = GetString(CKVVariant("one"));
  GetString(CKVVariant("two"));
  EXPECT_EQ(first, "two");
}

TEST(GetStringTest, ThreadsDoNotShareTheBuffer) {
  GetString(CKVVariant("main"));
  std::thread other([] { GetString(CKVVariant("other thread")); });
  other.join();
  EXPECT_EQ(GetString(CKVVariant(OleDate{1.0})), "main");
}

TEST(CKVVariantTest, EmptyCharPointerIsAnEmptyTextNotAnEmptyVariant) {
  CKVVariant value("");
  EXPECT_EQ(value.vt(), VT_BSTR);
  EXPECT_TRUE(value.text().empty());
  CKVVariant assigned;
  assigned = "";
  EXPECT_EQ(assigned.vt(), VT_BSTR);
}

}  // namespace
}  // namespace kvdao
