#include "kvdao/genericbatch/dim1_data.h"

#include <gtest/gtest.h>

#include <string>

namespace kvdao {
namespace {

TEST(Dim1DataTest, GrowsByAnEighthClampedToFourAndTenTwentyFour) {
  Dim1Data<int, int&> list;
  list.Add(1);
  EXPECT_EQ(list.GetCapacity(), 4);  // 0 + max(0 / 8, 4)
  for (int i = 0; i < 4; ++i) list.Add(i);
  EXPECT_EQ(list.GetCapacity(), 8);  // 4 + max(4 / 8, 4)
  list.SetSize(100);
  EXPECT_EQ(list.GetCapacity(), 100);  // 8 + 4 is short of 100: exactly 100
  list.Add(7);
  EXPECT_EQ(list.GetCapacity(), 112);  // 100 + 100 / 8
  list.SetSize(20000);
  list.Add(7);
  EXPECT_EQ(list.GetCapacity(), 20000 + 1024);
  Dim1Data<int, int&> stepped;
  stepped.SetGrowBy(50);
  stepped.Add(1);
  EXPECT_EQ(stepped.GetCapacity(), 50);
}

TEST(Dim1DataTest, ElementOperationsKeepOrderAndValues) {
  Dim1Data<std::string, std::string&> list{"a", "b", "c"};
  list.InsertAt(1, "x");
  list.InsertAt(6, "end");  // past the end: filled with empty texts
  ASSERT_EQ(list.GetSize(), 7);
  EXPECT_EQ(list[0] + list[1] + list[2] + list[3], "axbc");
  EXPECT_TRUE(list[4].empty() && list[5].empty());
  EXPECT_EQ(list[6], "end");
  list.RemoveAt(0, 2);
  list.RemoveAt(10);  // ignored
  EXPECT_EQ(list.GetSize(), 5);
  EXPECT_EQ(list[0], "b");
  list.Add(list[0]);  // an element of the array itself, across a growth
  EXPECT_EQ(list[list.GetUpperBound()], "b");

  Dim1Data<std::string, std::string&> copy;
  copy = list;
  copy[0] = "changed";
  EXPECT_EQ(list[0], "b");
  list.SetSize(1);
  list.SetSize(3);
  EXPECT_TRUE(list[1].empty());
  Dim1Data<double, double&> numbers;
  numbers.SetSize(3);
  EXPECT_EQ(numbers[2], 0.0);
}

}  // namespace
}  // namespace kvdao
