// The XML form: document shape, a full round trip, the values the text
// cannot carry, and bad input.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kvdao/method/method_record.h"
#include "method_layout.h"

namespace kvdao {
namespace {

using test::kMethodLayout;
using test::Type;

std::u16string Wide(const std::string& ascii) { return std::u16string(ascii.begin(), ascii.end()); }

template <typename T>
void Put(tagINTERNAL_METHOD& record, std::size_t offset, T value) {
  std::memcpy(reinterpret_cast<char*>(&record) + offset, &value, sizeof value);
}

// Fields whose value the text forms do not carry; they keep their defaults
// in the round-trip record.
bool NotCarried(const std::string& name) {
  return name == "CorrectedResponse" || name == "AbsCorrectedResponse";
}

// A record in which every field that the text form carries differs from its
// default, with values that survive ten decimals.
CMethodRecord EveryFieldChanged() {
  CMethodRecord record;
  tagINTERNAL_METHOD& r = record.GetRecord();
  double next = 100.0;
  for (const auto& entry : kMethodLayout) {
    if (!entry.hasId || NotCarried(entry.name)) continue;
    for (int k = 0; k < entry.count; ++k) {
      next += 0.25;
      switch (entry.type) {
        case Type::kI32: {
          std::size_t offset = entry.offset + 4 * static_cast<std::size_t>(k);
          // 0 and 1 swap (yes/no fields carry nothing else); other defaults
          // become a small number.
          std::int32_t value = entry.value == 0 ? 1 : entry.value == 1 ? 0 : 3 + k;
          Put(r, offset, value);
          break;
        }
        case Type::kF32:
          Put(r, entry.offset + 4 * static_cast<std::size_t>(k), static_cast<float>(next));
          break;
        case Type::kF64:
          Put(r, entry.offset + 8 * static_cast<std::size_t>(k), next);
          break;
        case Type::kText:
        case Type::kReserved:
          break;
      }
    }
  }
  record.SetName(std::string("Caf\xe9ine \"&<>\" 1"));
  record.SetCas(std::string("58-08-2"));
  record.SetText(std::string("line one\nline two\ttab"));
  record.SetRepUnits(std::string("ng/mL"));
  record.SetFlags(std::string("AB"));
  record.SetQuanTrace(std::string("194.1>138.1"));
  record.SetSecondaryTrace(std::string("194.1>110.0"));
  record.SetAdductMass(std::string("+H"));
  record.SetCompoundType(std::string("Analyte"));
  record.SetTotalsGroup(std::string("Xanthines"));
  record.SetCalCompound(std::string("Caffeine-d3"));
  for (int i = 0; i < 4; ++i) record.SetTargetTrace(i, "ch" + std::to_string(i + 1));
  record.SetNoisePeakMethod("Manual");
  for (int i = 0; i < 50; ++i) {
    r.MassIntData[i][0] = 100 + i;
    r.MassIntData[i][1] = i - 3;
  }
  r.CraigCorrection[1] = 0.0;  // only element 0 travels
  r.CraigCorrection[2] = 0.0;
  r.PkMode = 5;
  r.PkWatOperations = 1 | 4;
  r.PkThreshMethod = 1 | 4;
  r.QuantificationTraces = 2 | 4 | 16;
  r.TargetFlags = 0x377;
  return record;
}

TEST(MethodXmlTest, OneRecordIsADeclarationAndOneElementOf348Parameters) {
  CMethodRecord record;
  XmlBuilder builder;
  ASSERT_TRUE(record.WriteXML(builder));
  EXPECT_EQ(builder.OpenCount(), 0u);
  std::string text = builder.ToString();
  EXPECT_EQ(text.rfind("<?xml version=\"1.0\"?>", 0), 0u);
  EXPECT_NE(text.find("<PARAMETER id=\"1\" value=\"New Compound\" />"), std::string::npos);

  pugi::xml_node root = builder.Document().document_element();
  EXPECT_STREQ(root.name(), "METHODRECORD");
  int expected = 0;
  for (pugi::xml_node parameter : root.children()) {
    EXPECT_STREQ(parameter.name(), "PARAMETER");
    EXPECT_EQ(parameter.attribute("id").as_int(), expected++);
  }
  EXPECT_EQ(expected, 348);
  EXPECT_STREQ(root.find_child_by_attribute("id", "50").attribute("value").value(), "");

  // Under an element the caller opened: no second declaration, records side
  // by side.
  XmlBuilder method;
  method.AddDeclaration();
  method.Open("METHOD");
  ASSERT_TRUE(record.WriteXML(method));
  ASSERT_TRUE(record.WriteXML(method));
  EXPECT_EQ(method.OpenCount(), 1u);
  std::string two = method.ToString();
  EXPECT_EQ(two.find("<?xml"), two.rfind("<?xml"));
  EXPECT_EQ(std::distance(method.Current().children().begin(), method.Current().children().end()), 2);
}

TEST(MethodXmlTest, RoundTripGivesTheSameBytes) {
  CMethodRecord original = EveryFieldChanged();
  CMethodRecord defaults;
  for (const auto& entry : kMethodLayout) {
    if (!entry.hasId || NotCarried(entry.name) || entry.type == Type::kText) continue;
    EXPECT_NE(std::memcmp(reinterpret_cast<const char*>(original.GetData()) + entry.offset,
                          reinterpret_cast<const char*>(defaults.GetData()) + entry.offset,
                          entry.type == Type::kF64 ? 8 : 4),
              0)
        << entry.name << " was not changed";
  }

  XmlBuilder builder;
  ASSERT_TRUE(original.WriteXML(builder));
  std::u16string wide = builder.ToBSTR();

  CMethodRecord copy;
  ASSERT_TRUE(copy.ReadBSTR(wide));
  for (std::size_t i = 0; i < 3504; ++i) {
    ASSERT_EQ(reinterpret_cast<const unsigned char*>(copy.GetData())[i],
              reinterpret_cast<const unsigned char*>(original.GetData())[i])
        << "byte " << i;
  }

  CMethodRecord fromNode;
  ASSERT_TRUE(fromNode.ReadXML(builder.Document().document_element()));
  EXPECT_EQ(std::memcmp(fromNode.GetData(), original.GetData(), 3504), 0);
}

TEST(MethodXmlTest, ValuesTheTextCannotCarry) {
  CMethodRecord original;
  tagINTERNAL_METHOD& r = original.GetRecord();
  r.PkMode = 3;
  r.SmooEnabled = 2;
  r.CraigCorrection[1] = 4.0;
  r.MassIntData[0][0] = 0;
  r.MassIntData[1][0] = 200;
  r.MassIntData[1][1] = 9;
  r.CorrectedResponse = 1.0;
  r.UseMulti = 1;
  r.StdConc = 0.123456789012345;

  XmlBuilder builder;
  ASSERT_TRUE(original.WriteXML(builder));
  CMethodRecord copy;
  ASSERT_TRUE(copy.ReadXML(builder.Document().document_element()));
  EXPECT_EQ(copy.GetPkMode(), -1);
  EXPECT_EQ(copy.GetSmooEnabled(), 1);
  EXPECT_EQ(copy.GetCraigCorrection(1), 0.0);
  EXPECT_EQ(copy.GetRecord().MassIntData[0][0], 200);  // moved up to the first pair
  EXPECT_EQ(copy.GetCorrectedResponse(), 0.0);
  EXPECT_EQ(copy.GetUseMulti(), 0);
  EXPECT_NEAR(copy.GetStdConc(), 0.123456789012345, 5e-11);
}

TEST(MethodXmlTest, BadInputLoadsWhatItCanAndChangesNothingElse) {
  CMethodRecord record;
  EXPECT_FALSE(record.ReadBSTR(Wide("<METHODRECORD><PARAMETER id=\"1\" value=\"x\">")));
  EXPECT_FALSE(record.ReadBSTR(u""));
  EXPECT_FALSE(record.ReadXML(pugi::xml_node()));
  EXPECT_EQ(record.GetName(), "New Compound");

  ASSERT_TRUE(record.ReadBSTR(Wide(
      "<METHODRECORD>"
      "<PARAMETER id=\"348\" value=\"1\"/><PARAMETER id=\"-4\" value=\"1\"/>"
      "<PARAMETER id=\"99999999999999\" value=\"1\"/><PARAMETER id=\"50\" value=\"1\"/>"
      "<PARAMETER value=\"7\"/>"
      "<PARAMETER id=\"16\"/>"
      "<PARAMETER id=\"61\" value=\"lots\"/>"
      "<PARAMETER id=\"19\" value=\"123456789012345678901234567890\"/>"
      "<OTHER id=\"1\" value=\"Renamed\"/>"
      "text<!-- comment -->"
      "</METHODRECORD>")));
  EXPECT_EQ(record.GetVersion(), 7);        // no id: number 0
  EXPECT_EQ(record.GetSmooEnabled(), 1);    // no value: on
  EXPECT_EQ(record.GetStdConc(), 0.0);
  EXPECT_EQ(record.GetSmooWidth(), 2147483647);
  EXPECT_EQ(record.GetName(), "Renamed");   // element names are not checked

  CMethodRecord untouched;
  CMethodRecord defaults;
  ASSERT_TRUE(untouched.ReadBSTR(Wide("<METHODRECORD><PARAMETER id=\"400\" value=\"1\"/></METHODRECORD>")));
  EXPECT_EQ(std::memcmp(untouched.GetData(), defaults.GetData(), 3504), 0);
}

TEST(MethodXmlTest, AddValueFormatsNumbers) {
  XmlBuilder builder;
  builder.Open("R");
  EXPECT_TRUE(CMethodRecord::AddValue(builder, 5, 2.5));
  EXPECT_TRUE(CMethodRecord::AddValue(builder, 6, -3));
  EXPECT_TRUE(CMethodRecord::AddValue(builder, 7, "t\xe9xt"));
  pugi::xml_node r = builder.Current();
  EXPECT_STREQ(r.find_child_by_attribute("id", "5").attribute("value").value(), "2.500000");
  EXPECT_STREQ(r.find_child_by_attribute("id", "6").attribute("value").value(), "-3");
  EXPECT_STREQ(r.find_child_by_attribute("id", "7").attribute("value").value(), "t\xc3\xa9xt");
}

TEST(XmlTextTest, CodePage1252AndUtf8ConvertBothWays) {
  std::string all;
  for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
  std::string utf8;
  std::string back;
  platform::Utf8From1252(all, utf8);
  platform::Cp1252FromUtf8(utf8, back);
  EXPECT_EQ(back, all);
  platform::Utf8From1252("\x80", utf8);
  EXPECT_EQ(utf8, "\xe2\x82\xac");  // the euro sign
  platform::Cp1252FromUtf8("a\xe4\xb8\xad" "b\xc3" "c\xff", back);
  EXPECT_EQ(back, "a?b?c?");
  EXPECT_TRUE(platform::IsAscii("plain"));
  EXPECT_FALSE(platform::IsAscii("caf\xe9"));
}

}  // namespace
}  // namespace kvdao
