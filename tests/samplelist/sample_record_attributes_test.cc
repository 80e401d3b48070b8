#include "kvdao/samplelist/sample_record_attributes.h"

#include <gtest/gtest.h>

namespace kvdao {
namespace {

TEST(SampleRecordAttributesTest, GroupsAreBoundedByTheirColumnCounts) {
  CSampleRecordAttributes attributes;
  EXPECT_TRUE(attributes.masses.Set(29, "301.2"));
  EXPECT_FALSE(attributes.masses.Set(30, "x"));
  EXPECT_FALSE(attributes.masses.Set(-1, "x"));
  EXPECT_EQ(attributes.masses.Count(), 30);
  EXPECT_EQ(attributes.masses.Get(29), "301.2");
  EXPECT_EQ(attributes.masses.Get(0), "");
  EXPECT_EQ(attributes.masses.Get(30), "");

  EXPECT_FALSE(attributes.concentrations.Set(20, "1"));
  EXPECT_FALSE(attributes.wavelengths.Set(10, 254.0));
  EXPECT_FALSE(attributes.fractionTriggers.Set(10, "t"));
  EXPECT_FALSE(attributes.spares.Set(5, "s"));
  EXPECT_TRUE(attributes.compounds.Set(29, "c"));
  EXPECT_FALSE(attributes.compounds.Set(30, "c"));
  EXPECT_EQ(attributes.wavelengths.Get(3), 0.0);
}

TEST(SampleRecordAttributesTest, TrimmingDropsOnlyTrailingEmptyMembers) {
  CSampleRecordAttributes attributes;
  attributes.wavelengths.Set(0, 254.0);
  attributes.wavelengths.Set(2, 280.0);
  attributes.wavelengths.Set(9, 0.0);
  attributes.wavelengths.TrimTrailingEmpty();
  EXPECT_EQ(attributes.wavelengths.Count(), 3);
  EXPECT_EQ(attributes.wavelengths.Get(1), 0.0);

  CSampleRecordAttributes other = attributes;
  EXPECT_EQ(other, attributes);
  other.SetText(CSampleRecordAttributes::MITFile, "plate.mit");
  EXPECT_NE(other, attributes);
  EXPECT_EQ(other.Text(CSampleRecordAttributes::MITFile), "plate.mit");
}

}  // namespace
}  // namespace kvdao
