// Trace-text classification and comparison.

#include <gtest/gtest.h>

#include <string>

#include "kvdao/method/mass_string_comparitor.h"

namespace kvdao {
namespace {

using Kind = CMassStringComparitor::Kind;

int KindOf(const std::string& text) {
  CMassStringComparitor trace(text, 0.0);
  trace.DoConvertion();
  return trace.GetKind();
}

bool Equal(const std::string& a, double tolerance, const std::string& b, double otherTolerance = 0.0) {
  CMassStringComparitor left(a, tolerance);
  CMassStringComparitor right(b, otherTolerance);
  return left == right;
}

TEST(MassStringComparitorTest, ClassifiesEveryForm) {
  struct Case {
    const char* text;
    int kind;
    double first;
    double second;
  };
  const Case cases[] = {
      {"278.1", Kind::kMass, 278.1, 0},
      {" 278.1 > 154.0 ", Kind::kTransition, 278.1, 154.0},
      {"100-200", Kind::kRange, 100, 200},
      {"ch1", Kind::kChannel, 1, 0},
      {"CH32", Kind::kChannel, 32, 0},
      {"ch1>2", Kind::kChannel, 1, 2},
      {"trch1", Kind::kChannel, 1, 0},
      {"12+13", Kind::kSum, 12, 13},
      {"ch1.5+40", Kind::kSum, 1.5, 40},
      {"tic", Kind::kTic, 0, 0},
      {"trBPI", Kind::kBpi, 0, 0},
      {"50_60", Kind::kUnderscore, 50, 60},
      {"an3", Kind::kAnalogue, 3, 0},
      {"AN8", Kind::kAnalogue, 8, 0},
  };
  for (const Case& c : cases) {
    CMassStringComparitor trace(c.text, 0.0);
    trace.DoConvertion();
    EXPECT_EQ(trace.GetKind(), c.kind) << c.text;
    EXPECT_DOUBLE_EQ(trace.GetFirst(), c.first) << c.text;
    EXPECT_DOUBLE_EQ(trace.GetSecond(), c.second) << c.text;
  }
}

TEST(MassStringComparitorTest, InvalidTexts) {
  for (const char* text : {"ch33", "ch0", "ch2.5", "ch1>33", "ch1-2", "an9", "an12", "an", "an0", "0",
                           "-5", "abc", "", "12c5", "1.5>0", "_4", "TICK", "chTIC"}) {
    EXPECT_EQ(KindOf(text), Kind::kInvalid) << text;
  }
}

TEST(MassStringComparitorTest, RewritesItsText) {
  CMassStringComparitor trace(" TrCh 1 > 2 ", 0.0);
  trace.DoConvertion();
  EXPECT_EQ(trace.GetText(), "1>2");
  CMassStringComparitor removal("chchCHch", 0.0);
  removal.RemoveString("ch");
  EXPECT_EQ(removal.GetText(), "");
  CMassStringComparitor nested("cchh1", 0.0);
  nested.RemoveCh();
  EXPECT_EQ(nested.GetText(), "1");
}

TEST(MassStringComparitorTest, ToleranceIsInclusiveAndTakenFromTheLeft) {
  EXPECT_TRUE(Equal("278.1 > 154.0", 0.5, "278.4>153.6"));
  EXPECT_FALSE(Equal("278.1 > 154.0", 0.5, "278.7>154.0"));
  EXPECT_TRUE(Equal("1.0", 0.5, "1.5"));
  EXPECT_TRUE(Equal("1_2", 0.25, "1.25_1.75"));
  EXPECT_FALSE(Equal("1_2", 0.25, "1.25_2.5"));
  // Only the left tolerance counts.
  EXPECT_FALSE(Equal("100", 0.0, "100.1", 1.0));
  EXPECT_TRUE(Equal("100.1", 1.0, "100", 0.0));
  // Exact comparison without tolerance, second values included for pairs.
  EXPECT_TRUE(Equal("100+200", 0.0, "100.0+200.0"));
  EXPECT_FALSE(Equal("100+200", 0.0, "100+200.5"));
}

TEST(MassStringComparitorTest, KindsDecideBeforeValues) {
  EXPECT_TRUE(Equal("tic", 0.0, "TIC"));
  EXPECT_TRUE(Equal("BPI", 5.0, "trbpi"));
  EXPECT_FALSE(Equal("TIC", 0.0, "BPI"));
  EXPECT_FALSE(Equal("100>50", 1000.0, "100-50"));
  EXPECT_FALSE(Equal("ch1", 0.0, "1"));
  // Single-value kinds compare the first value only.
  EXPECT_TRUE(Equal("ch1>2", 0.0, "ch1>3"));
  EXPECT_TRUE(Equal("an2", 0.0, "an2"));
  // Invalid equals nothing, not even itself.
  EXPECT_FALSE(Equal("ch33", 100.0, "ch33"));
  EXPECT_FALSE(Equal("xyz", 0.0, "xyz"));
}

TEST(MassStringComparitorTest, ComparisonClassifiesBothSidesOnce) {
  CMassStringComparitor left("ch1", 0.0);
  CMassStringComparitor right("CH 1", 0.0);
  EXPECT_TRUE(left == right);
  EXPECT_EQ(right.GetKind(), Kind::kChannel);
  EXPECT_EQ(right.GetText(), "1");
  EXPECT_TRUE(right == left);  // already classified: the text is not read again
}

TEST(MassStringComparitorTest, UseCounterAndCopies) {
  CMassStringComparitor trace("278.1", 0.5);
  trace.AddCount().AddCount();
  EXPECT_EQ(trace.GetCount(), 3);

  CMassStringComparitor copy(trace);
  EXPECT_EQ(copy.GetCount(), 1);
  EXPECT_EQ(copy.GetTolerance(), 0.5);
  CMassStringComparitor assigned("x", 0.0);
  assigned = trace;
  EXPECT_EQ(assigned.GetCount(), 3);
  EXPECT_EQ(assigned.GetText(), "278.1");

  EXPECT_FALSE(trace.RemoveCount());
  EXPECT_FALSE(trace.RemoveCount());
  EXPECT_TRUE(trace.RemoveCount());
}

}  // namespace
}  // namespace kvdao
