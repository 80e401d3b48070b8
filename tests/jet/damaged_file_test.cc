// Damaged files: every kind of damage must end in a DaoException with a
// description, never a crash, a hang or a read outside the file (the
// sanitizer build checks the last).

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "common/test_env.h"
#include "kvdao/jet/jet.h"

namespace kvdao::jet {
namespace {

using Image = std::vector<std::uint8_t>;

// Opens the image and reads every field of every table (user and system).
void ReadEverything(const Image& image) {
  Database db;
  db.OpenImage(image);
  for (const std::string& name : db.GetTableNames(true)) {
    Recordset rs = db.OpenTable(name);
    rs.SetTextEncoding(TextEncoding::kUtf8);
    for (; !rs.IsEOF(); rs.MoveNext()) {
      for (int i = 0; i < rs.GetFieldCount(); ++i) {
        rs.GetFieldView(i);
        rs.GetFieldValue(i);
      }
    }
  }
}

// "" when the image reads, else the DaoException's description; any other
// exception fails the test.
std::string Outcome(const Image& image) {
  try {
    ReadEverything(image);
    return "";
  } catch (const DaoException& error) {
    EXPECT_FALSE(error.Description().empty());
    return error.Description();
  }
}

void PutU32(Image& image, std::size_t at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) image[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

class JetDamageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fixtures_ = kvdao::test::FixturesDir();
    if (fixtures_.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  }
  Image Load(const std::string& name) const {
    std::string bytes = kvdao::test::ReadFile(fixtures_ + "/jet/" + name);
    return Image(bytes.begin(), bytes.end());
  }
  std::string fixtures_;
};

TEST_F(JetDamageTest, IntactImagesRead) {
  EXPECT_EQ(Outcome(Load("real/jackcess-test2V2000.mdb")), "");
  EXPECT_EQ(Outcome(Load("real/jackcess-testV1997.mdb")), "");
}

TEST_F(JetDamageTest, TruncatedFiles) {
  Image full = Load("generated/analysis-100.mdb");
  EXPECT_NE(Outcome(Image(full.begin(), full.begin() + 100)).find("not a Jet database"), std::string::npos);
  EXPECT_NE(Outcome(Image(full.begin(), full.begin() + 4096 * 2)), "");
  // Cut anywhere past the system pages: the read either completes (the cut
  // fell in unused pages) or reports a page outside the file.
  for (std::size_t pages = 3; pages * 4096 < full.size(); pages += 3) {
    SCOPED_TRACE(pages);
    std::string outcome = Outcome(Image(full.begin(), full.begin() + static_cast<std::ptrdiff_t>(pages * 4096 + 77)));
    if (!outcome.empty()) {
      EXPECT_NE(outcome.find("damaged"), std::string::npos) << outcome;
    }
  }
}

TEST_F(JetDamageTest, StructuralDamage) {
  Image base = Load("generated/analysis-100.mdb");
  const std::size_t page = 4096;

  Image cycle = base;
  PutU32(cycle, 2 * page + 4, 2);  // catalog definition continues on itself
  EXPECT_NE(Outcome(cycle).find("cycle"), std::string::npos);

  Image wrong_type = base;
  wrong_type[2 * page] = 0x01;
  EXPECT_NE(Outcome(wrong_type).find("page type"), std::string::npos);

  Image far_map = base;
  PutU32(far_map, 2 * page + 55, 0x7FFFFF00u);  // usage map row on a page past the end
  EXPECT_NE(Outcome(far_map).find("outside the file"), std::string::npos);

  Image many_columns = base;
  many_columns[2 * page + 45] = 0xFF;
  many_columns[2 * page + 46] = 0xFF;
  EXPECT_NE(Outcome(many_columns), "");

  // A data page of the sample table claiming an absurd number of rows.
  Image many_rows = base;
  bool found = false;
  for (std::size_t at = 3 * page; at + page <= many_rows.size() && !found; at += page) {
    if (many_rows[at] == 0x01 && many_rows[at + 4] > 2) {
      many_rows[at + 12] = 0xFF;
      many_rows[at + 13] = 0xFF;
      found = true;
    }
  }
  ASSERT_TRUE(found);
  EXPECT_NE(Outcome(many_rows).find("rows"), std::string::npos);
}

TEST_F(JetDamageTest, RandomCorruptionOnlyRaisesDaoExceptions) {
  for (const char* name : {"real/jackcess-test2V2000.mdb", "real/jackcess-testV1997.mdb",
                           "real/jackcess-overflowTestV1997.mdb"}) {
    Image base = Load(name);
    std::mt19937 random(1234);
    int failures = 0;
    for (int round = 0; round < 150; ++round) {
      Image image = base;
      int flips = 1 + static_cast<int>(random() % 8);
      for (int i = 0; i < flips; ++i) {
        // Damage lands after the header page, where the structures live.
        std::size_t at = 2048 + random() % (image.size() - 2048);
        image[at] = static_cast<std::uint8_t>(random());
      }
      failures += !Outcome(image).empty();
    }
    SCOPED_TRACE(name);
    EXPECT_GT(failures, 0);
  }
}

}  // namespace
}  // namespace kvdao::jet
