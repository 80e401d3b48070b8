#include "kvdao/genericbatch/generic_sample.h"

#include <gtest/gtest.h>

#include "common/test_env.h"
#include "kvdao/genericbatch/generic_plate.h"

namespace kvdao {
namespace {

class GenericSampleTest : public test::TempEnvTest {
 protected:
  // The sample written alone as [Sample:1:1].
  std::string Written(GenericSample& sample) {
    std::string path = PathTo("sample.xbt");
    EXPECT_EQ(sample.Write(path, 1, 1, ":"), 1);
    return test::ReadFile(path);
  }
  // The lines from `first` up to (not including) `last`.
  static std::string Between(const std::string& text, const std::string& first,
                             const std::string& last) {
    std::size_t from = text.find(first);
    std::size_t to = text.find(last, from);
    if (from == std::string::npos || to == std::string::npos) return "<missing>\n" + text;
    return text.substr(from, to - from);
  }
  std::string File(const std::string& content) {
    std::string path = PathTo("in.xbt");
    test::WriteFile(path, content);
    return path;
  }
};

TEST_F(GenericSampleTest, ADefaultSampleWritesItsNumbersAndCountsOnly) {
  GenericSample sample;
  sample.Location("A1");
  EXPECT_EQ(Written(sample),
            "[Sample:1:1]\n"
            "Well=A1\n"
            "Reinjections=0\n"
            "SampleType=0\n"
            "MSInjectionVolume=0.0000\n"
            "SubjectTime=0.0000\n"
            "NumberOfMasses=0\n"
            "NumberOfCompounds=0\n"
            "NumberOfWaveLengths=0\n"
            "NumberOfMassFractionTriggers=0\n"
            "NumberOfPDAFractionTriggers=0\n"
            "NumberOfAnalogFractionTriggers=0\n"
            "NumberOfUVFractionTriggers=0\n"
            "NumberOfConcs=0\n"
            "NumberOfFormulae=0\n"
            "NumberOfFactors=0\n"
            "NumberOfUserFields=0\n"
            "RetentionTimeOffset=0\n"
            "PrepInjectionVolume=0.0000\n");
}

TEST_F(GenericSampleTest, MassTriggersAreWrittenAsTheFirstMasses) {
  GenericSample sample;
  sample.Location("B7");
  sample.FractionTriggers({"300.1", "Formula-C6H6", "TIC"});
  sample.Masses({150.2, 151.3});
  sample.MSRetentionTimeOffset(1.6);
  std::string text = Written(sample);
  // Trigger masses go before the count line, the sample's own after it.
  EXPECT_EQ(Between(text, "Mass1=", "NumberOfCompounds"),
            "Mass1=300.1\nMass2=C6H6\nNumberOfMasses=4\nMass3=150.2000\nMass4=151.3000\n")
      << text;
  EXPECT_EQ(Between(text, "NumberOfMassFractionTriggers", "NumberOfPDA"),
            "NumberOfMassFractionTriggers=3\nFraction1=Mass A\nFraction2=Mass B\n"
            "Fraction3=Mass TIC\n");
  EXPECT_NE(text.find("\nRetentionTimeOffset=2\n"), std::string::npos);

  // Dummies and mixed triggers reserve mass numbers; resolved names and
  // special items keep or lose their letter as the entries say.
  GenericSample mixed;
  mixed.Location("C1");
  mixed.AddMass(std::string("C6H6"));
  mixed.FractionTriggers({"Dummy-250", "Trigger-Mass B:410.5", "TIC", "Mass B", ""});
  text = Written(mixed);
  EXPECT_EQ(Between(text, "Mass1=", "NumberOfCompounds"),
            "Mass1=250\nMass2=410.5\nNumberOfMasses=3\nMass3=C6H6\n");
  EXPECT_EQ(Between(text, "NumberOfMassFractionTriggers", "NumberOfPDA"),
            "NumberOfMassFractionTriggers=5\nFraction1=No Trigger\nFraction2=Mass B\n"
            "Fraction3=Mass TIC\nFraction4=No Trigger\n");
  // The first write cut ":410.5" off the mixed trigger; written again, it
  // still takes mass number 2 but has no value left to write there.
  EXPECT_EQ(mixed.GetFractionTrigger(1), "Trigger-Mass B");
  EXPECT_NE(Written(mixed).find("Mass1=250\nNumberOfMasses=3\nMass3=C6H6\n"), std::string::npos);
}

TEST_F(GenericSampleTest, OtherTriggersShareTheFractionNumbersUpToTen) {
  GenericSample sample;
  sample.Location("D4");
  sample.Wavelengths({280.0});
  sample.FractionPDATriggers({"254", "Wavelength A", "Wavelength C", "xyz"});
  sample.FractionAnaTriggers({"2", "Analog 3", "Analog 7", "x"});
  sample.FractionUVTriggers({"254", "", "365"});
  std::string text = Written(sample);
  EXPECT_EQ(Between(text, "Wavelength1=", "NumberOfMassFraction"),
            "Wavelength1=254\nNumberOfWaveLengths=2\nWavelength2=280.0\n");
  EXPECT_EQ(Between(text, "NumberOfPDAFractionTriggers", "NumberOfConcs"),
            "NumberOfPDAFractionTriggers=4\n"
            "Fraction1=WaveLength A\nFraction2=Wavelength A\nFraction3=No Trigger\n"
            "Fraction4=xyz\n"
            "NumberOfAnalogFractionTriggers=4\n"
            "Fraction5=Analog 2\nFraction6=Analog 3\nFraction7=No Trigger\n"
            "Fraction8=No Trigger\n"
            "NumberOfUVFractionTriggers=3\n"
            "Fraction9=UV 254\nFraction10=No Trigger\n");

  GenericSample many;
  many.Location("D5");
  for (int i = 0; i < 8; ++i) many.AddFractionTrigger(std::to_string(100 + i));
  many.FractionPDATriggers({"210", "220", "230", "240", "250"});
  text = Written(many);
  EXPECT_NE(text.find("NumberOfPDAFractionTriggers=5\nFraction9=WaveLength A\n"
                      "Fraction10=WaveLength B\nNumberOfConcs=0\n"),
            std::string::npos)
      << text;
  many.AddFractionTrigger("108");
  many.AddFractionTrigger("109");
  text = Written(many);
  EXPECT_NE(text.find("Fraction10=Mass J\nNumberOfConcs"), std::string::npos) << text;
  EXPECT_EQ(text.find("NumberOfPDAFractionTriggers"), std::string::npos);
  EXPECT_EQ(text.find("NumberOfUVFractionTriggers"), std::string::npos);
}

TEST_F(GenericSampleTest, ReadingCountsFractionKeysAcrossTheListsAndChecksCodes) {
  std::string path = File(
      "[Sample:1:2]\n"
      "NumberOfMasses=2\nMass1=C6H6\nMass2=150.5\n"
      "NumberOfMassFractionTriggers=1\nNumberOfPDAFractionTriggers=2\n"
      "NumberOfUVFractionTriggers=1\n"
      "Fraction1=Mass A\nFraction2=PDA TIC\nFraction3=No Trigger\nFraction4=UV 254\n"
      "Well=A2\nSampleType=7\nControl=4\nLCMethod=lc1\nLCMethod=lc2\n"
      "AutoAddition=yes\nRetentionTimeOffset=2\n"
      "[Sample:1:3]\nWell=A3\nControl=5\nSampleType=3\n"
      "[Sample:1:4]\nSampleID=no well\n"
      "[Sample:1:5]\nWell=A5\nNumberOfConcs=-1\n");
  GenericSample sample;
  ASSERT_EQ(sample.Read(path, 1, 2, ":"), 1);
  EXPECT_EQ(sample.NumMasses(), 2);
  EXPECT_EQ(sample.FormulaMasses()[0], "C6H6");
  EXPECT_EQ(sample.Masses()[0], 0.0);
  EXPECT_EQ(sample.Masses()[1], 150.5);
  EXPECT_EQ(sample.GetFractionTrigger(0), "Mass A");
  EXPECT_EQ(sample.GetFractionPDATrigger(0), "PDA TIC");
  EXPECT_EQ(sample.GetFractionPDATrigger(1), "No Trigger");
  EXPECT_EQ(sample.GetFractionUVTrigger(0), "UV 254");
  EXPECT_EQ(sample.Type(), 0);
  EXPECT_EQ(sample.ControlType(), 4);
  EXPECT_EQ(sample.InletMethod(), "lc1");
  EXPECT_EQ(sample.ASMethod(), "lc1");
  EXPECT_EQ(sample.AutoAddition(), "");
  EXPECT_EQ(sample.Reinjections(), "");

  ASSERT_EQ(sample.Read(path, 1, 3, ":"), 1);
  EXPECT_EQ(sample.Type(), 3);
  EXPECT_EQ(sample.ControlType(), 0);
  EXPECT_EQ(sample.NumMasses(), 0);
  EXPECT_EQ(sample.Read(path, 1, 4, ":"), 0);
  EXPECT_EQ(sample.Read(path, 1, 5, ":"), 0);
  EXPECT_EQ(sample.Read(path, 1, 9, ":"), 0);
  EXPECT_EQ(sample.Read(path, -1, 2, ":"), 0);
}

TEST_F(GenericSampleTest, AbsurdListCountsAreBoundedByTheSectionsKeys) {
  std::string path = File("[Sample:1:1]\nWell=A1\nNumberOfMasses=2000000000\nMass1=5\n"
                          "NumberOfUserFields=3\nUser1=u\n");
  GenericSample sample;
  ASSERT_EQ(sample.Read(path, 1, 1, ":"), 1);
  EXPECT_LE(sample.NumMasses(), 5);
  EXPECT_EQ(sample.Masses()[0], 5.0);
  EXPECT_EQ(sample.NumUserField(), 3);  // within the maximum: believed
}

TEST_F(GenericSampleTest, WrittenSamplesReadBackAndRewriteTheSame) {
  GenericSample sample;
  sample.Location("H12");
  sample.Reinjections("2");
  sample.SampleID("S-001");
  sample.Description("first; with = sign");
  sample.MSDataName("DATA001");
  sample.Type(GenericSample::LastSampleType);
  sample.MSInjectionVolume(5.25);
  sample.SubjectTime(1.5);
  sample.MSMethod("ms.exp");
  sample.InletMethod("lc.m");
  sample.ASMethod("lc.m");
  sample.QualityReference("QC1");
  sample.MITFile("a.mit");
  sample.PrepInjectionVolume(2.5);
  sample.FractionTriggers({"300.1", "Formula-C6H6", "TIC"});
  sample.Masses({150.2});
  sample.Compounds({"caffeine"});
  sample.Concentrations({1.0, 2.5});
  sample.Formulae({"C8H10N4O2"});
  sample.Factors({0.5});
  sample.UserFields({"u1", "", "u3"});
  std::string first = Written(sample);

  GenericSample read;
  ASSERT_EQ(read.Read(PathTo("sample.xbt"), 1, 1, ":"), 1);
  EXPECT_EQ(read.SampleID(), "S-001");
  EXPECT_EQ(read.Description(), "first; with = sign");
  EXPECT_EQ(read.Type(), GenericSample::LastSampleType);
  EXPECT_EQ(read.MSInjectionVolume(), 5.25);
  EXPECT_EQ(read.PrepInjectionVolume(), 2.5);
  EXPECT_EQ(read.MITFile(), "a.mit");
  EXPECT_EQ(read.QualityReference(), "QC1");
  EXPECT_EQ(read.NumMasses(), 3);
  EXPECT_EQ(read.FormulaMasses()[2], "150.2000");
  EXPECT_EQ(read.GetFractionTrigger(1), "Mass B");
  EXPECT_EQ(read.Compounds()[0], "caffeine");
  EXPECT_EQ(read.Concentrations()[1], 2.5);
  EXPECT_EQ(read.NumUserField(), 3);
  EXPECT_EQ(read.UserFields()[2], "u3");
  // Read back, the triggers are resolved names and every mass is the
  // sample's own: from then on a write reads back as itself.
  EXPECT_NE(first.find("Mass2=C6H6\nNumberOfMasses=3\n"), std::string::npos);
  std::string second = Written(read);
  EXPECT_NE(second.find("NumberOfMasses=3\nMass1=300.1\nMass2=C6H6\n"), std::string::npos);
  GenericSample again;
  ASSERT_EQ(again.Read(PathTo("sample.xbt"), 1, 1, ":"), 1);
  EXPECT_EQ(Written(again), second);
}

TEST_F(GenericSampleTest, GenericAccessByKeyName) {
  EXPECT_EQ(GenericSample::IsValidField("WELL"), 0);
  EXPECT_EQ(GenericSample::IsValidField("mass12"), 11);
  EXPECT_EQ(GenericSample::IsValidField("Mass31"), -1);
  EXPECT_EQ(GenericSample::IsValidField("Mass0"), -1);
  EXPECT_EQ(GenericSample::IsValidField("numberofwavelengths"), 12);
  EXPECT_EQ(GenericSample::IsValidField("Fraction3"), 15);
  EXPECT_EQ(GenericSample::IsValidField("PDA Fraction10"), 16);
  EXPECT_EQ(GenericSample::IsValidField("LCMethod"), 27);
  EXPECT_EQ(GenericSample::IsValidField("Reinjections"), 42);
  EXPECT_EQ(GenericSample::IsValidField("Nonsense"), -1);

  GenericSample sample;
  std::string text = "12.5";
  EXPECT_EQ(sample.SetField("MSInjectionVolume", text, -1), 1);
  EXPECT_EQ(sample.MSInjectionVolume(), 12.5);
  text = "2";
  EXPECT_EQ(sample.SetField("SampleType", text, 0), 1);
  EXPECT_EQ(sample.Type(), 2);
  double mass = 301.5;
  EXPECT_EQ(sample.SetField("Mass", mass, 3), 1);  // grows the list to 4
  EXPECT_EQ(sample.NumMasses(), 4);
  EXPECT_EQ(sample.Masses()[3], 301.5);
  EXPECT_EQ(sample.SetField("Mass", mass, 30), 0);
  EXPECT_EQ(sample.SetField("Mass", mass, -2), 0);
  text = "x";
  EXPECT_EQ(sample.SetField("Compound", text, -1), 1);
  EXPECT_EQ(sample.SetField("Compound", text, -1), 0);  // full at its maximum of 1
  EXPECT_EQ(sample.SetField("Well", mass, -1), 0);      // a number into a text field
  EXPECT_FALSE(sample.IsSampleIDUpdated());
  text = "ID7";
  EXPECT_EQ(sample.SetField("SampleID", text, -1), 1);
  EXPECT_TRUE(sample.IsSampleIDUpdated());
  EXPECT_EQ(sample.AddMixedTrigger("Fraction", "A:300"), 1);
  EXPECT_EQ(sample.GetFractionTrigger(0), "Trigger-A:300");

  std::vector<std::string> names;
  EXPECT_EQ(GenericSample::SampleFields(names, 0), 32 + 95);
  EXPECT_EQ(names[11], "Mass1");
  EXPECT_EQ(names[40], "Mass30");
  EXPECT_EQ(GenericSample::SampleFields(names, 1), 32 + 95 + 11);
  EXPECT_EQ(names[41], "NumberOfMasses");
  EXPECT_EQ(names.back(), "Reinjections");

  sample.SetFieldAddresses();
  EXPECT_EQ(*static_cast<double*>(GenericSample::AllFields[7].address), 12.5);
}

TEST_F(GenericSampleTest, CopiesLeaveAutoAdditionAndCartridgesBehind) {
  GenericSample sample;
  std::string text = "auto";
  ASSERT_EQ(sample.SetField("AutoAddition", text, -1), 1);
  text = "C1";
  ASSERT_EQ(sample.SetField("Cartridge Location 1", text, -1), 1);
  sample.AutoAddition("ignored");
  EXPECT_EQ(sample.AutoAddition(), "auto");
  sample.SampleID("abc");

  GenericSample copy(sample);
  EXPECT_EQ(copy.AutoAddition(), "");
  EXPECT_EQ(copy.CartridgeLocation1(), "");
  EXPECT_EQ(copy.SampleID(), "abc");
  GenericSample other;
  text = "own";
  other.SetField("AutoAddition", text, -1);
  other = sample;
  EXPECT_EQ(other.AutoAddition(), "own");

  GenericPlate plate;
  plate.AddSample(sample);
  EXPECT_EQ(plate.Samples()[0].AutoAddition(), "");
  plate.NumSamples(40);  // growth moves samples: nothing further is lost
  EXPECT_EQ(plate.Samples()[0].SampleID(), "abc");

  GenericSample upper;
  upper.SampleID("ABC");
  EXPECT_TRUE(upper == sample);
  upper.SampleID("abd");
  EXPECT_TRUE(upper != sample);
}

TEST_F(GenericSampleTest, ListOperationsKeepTheirLimits) {
  GenericSample sample;
  for (int i = 0; i < 12; ++i) sample.AddWavelength(200.0 + i);
  EXPECT_EQ(sample.NumWavelengths(), 10);
  EXPECT_EQ(sample.AddFactor(1.0), 1);
  EXPECT_EQ(sample.AddFactor(2.0), 0);
  EXPECT_EQ(sample.AddMass(150.25), 0);  // appended all the same
  EXPECT_EQ(sample.FormulaMasses()[0], "150.250");
  EXPECT_EQ(sample.AddMass(std::string("C2H6")), 1);
  EXPECT_EQ(sample.Masses()[1], 0.0);
  double value = 0;
  EXPECT_EQ(sample.GetWavelength(9, value), 1);
  EXPECT_EQ(value, 209.0);
  EXPECT_EQ(sample.GetWavelength(10, value), 0);
  EXPECT_EQ(sample.RemoveWavelength(0), 1);
  EXPECT_EQ(sample.Wavelengths()[0], 201.0);
  sample.AddFractionTrigger("1");
  EXPECT_EQ(sample.RemoveFractionTrigger(1), 1);  // the count passes, nothing removed
  EXPECT_EQ(sample.NumFractionTriggers(), 1);
  EXPECT_EQ(sample.RemoveFractionTrigger(2), 0);
  EXPECT_EQ(sample.GetFractionTrigger(5), "");
  std::string section;
  EXPECT_EQ(sample.SampleSectFormat(section, 2, 7, ":"), 1);
  EXPECT_EQ(section, "Sample:2:7");
  EXPECT_EQ(sample.SampleSectFormat(section, 2, -1, ":"), 0);
  EXPECT_EQ(section, "");
}

}  // namespace
}  // namespace kvdao
