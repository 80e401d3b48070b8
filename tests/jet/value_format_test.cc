// Value decoding and formatting that the fixtures do not reach: exact
// currency and decimal digits, OLE dates around midnight and before 1899,
// GUID layout, Jet 4 text in both stored forms, and the header mask.

#include <gtest/gtest.h>

#include "header.h"
#include "kvdao/jet/field_value.h"
#include "text_codec.h"

namespace kvdao::jet {
namespace {

TEST(JetValueFormat, CurrencyAndDecimalDigits) {
  EXPECT_EQ(CurrencyToString(35000), "3.5");
  EXPECT_EQ(CurrencyToString(0), "0");
  EXPECT_EQ(CurrencyToString(-1), "-0.0001");
  EXPECT_EQ(CurrencyToString(INT64_MIN), "-922337203685477.5808");
  EXPECT_EQ(DecimalToString({true, 0, 12345, 2}), "-123.45");
  EXPECT_EQ(DecimalToString({false, 0, 1000, 3}), "1");
  EXPECT_EQ(DecimalToString({true, 0, 0, 4}), "0");
  // 2^64 + 1 with scale 0 needs the high word.
  EXPECT_EQ(DecimalToString({false, 1, 1, 0}), "18446744073709551617");
}

TEST(JetValueFormat, OleDates) {
  EXPECT_EQ(FormatOleDate(0.0), "1899-12-30T00:00:00");
  EXPECT_EQ(FormatOleDate(2.5), "1900-01-01T12:00:00");
  EXPECT_EQ(FormatOleDate(36526.0 + 2.0 / 86400000.0), "2000-01-01T00:00:00.002");
  // A time a hair before midnight rounds into the next day.
  EXPECT_EQ(FormatOleDate(36526.0 - 1e-10), "2000-01-01T00:00:00");
  // Before 1899-12-30 the fraction is still the time of day.
  EXPECT_EQ(FormatOleDate(-1.25), "1899-12-29T06:00:00");
}

TEST(JetValueFormat, GuidByteOrder) {
  std::uint8_t bytes[16] = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66,
                            0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
  EXPECT_EQ(GuidToString(bytes), "{00112233-4455-6677-8899-AABBCCDDEEFF}");
  EXPECT_EQ(GuidToString(std::span(bytes, 3)), "");
}

TEST(JetTextCodec, PlainAndCompressedUnicode) {
  using internal::AppendJet4Text;
  // "a€Ж" plain: 61 00 AC 20 16 04
  const std::uint8_t plain[] = {0x61, 0x00, 0xAC, 0x20, 0x16, 0x04};
  std::string cp1252, utf8;
  AppendJet4Text(plain, TextEncoding::kCp1252, cp1252);
  AppendJet4Text(plain, TextEncoding::kUtf8, utf8);
  EXPECT_EQ(cp1252, "a\x80?");
  EXPECT_EQ(utf8, "a\xE2\x82\xAC\xD0\x96");
  // Compressed: "ab", switch to two-byte for "€", back to one-byte "c".
  const std::uint8_t compressed[] = {0xFF, 0xFE, 'a', 'b', 0x00, 0xAC, 0x20, 0x00, 'c'};
  std::string text;
  AppendJet4Text(compressed, TextEncoding::kCp1252, text);
  EXPECT_EQ(text, "ab\x80" "c");
  // A dangling half character and a lone surrogate do not break decoding.
  const std::uint8_t odd[] = {0x00, 0xD8, 0x41};
  text.clear();
  AppendJet4Text(odd, TextEncoding::kCp1252, text);
  EXPECT_EQ(text, "?");
  std::string latin;
  internal::AppendJet3Text(std::span<const std::uint8_t>(reinterpret_cast<const std::uint8_t*>("\xA3\x80"), 2),
                           TextEncoding::kUtf8, latin);
  EXPECT_EQ(latin, "\xC2\xA3\xE2\x82\xAC");
}

TEST(JetHeader, Rc4MaskRoundTripsAndMatchesKnownStream) {
  // RC4 with key "Key" on "Plaintext" gives BBF316E8D940AF0AD3 (a published test vector).
  const std::uint8_t key[] = {'K', 'e', 'y'};
  std::uint8_t data[] = {'P', 'l', 'a', 'i', 'n', 't', 'e', 'x', 't'};
  internal::Rc4Apply(key, data);
  const std::uint8_t expected[] = {0xBB, 0xF3, 0x16, 0xE8, 0xD9, 0x40, 0xAF, 0x0A, 0xD3};
  EXPECT_EQ(0, std::memcmp(data, expected, sizeof data));
  internal::Rc4Apply(key, data);
  EXPECT_EQ(0, std::memcmp(data, "Plaintext", sizeof data));
}

}  // namespace
}  // namespace kvdao::jet
