// The safety copies made before every bulk change: what they hold, the 20 kept, the folders never
// touched, and a copy that fails leaving nothing behind.

#include "archive/safety_copies.h"

#include <filesystem>

#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

namespace fs = std::filesystem;

class SafetyCopiesTest : public test::ArchiveTest {
 protected:
  std::vector<std::string> foldersIn(const std::string& sub) {
    std::vector<std::string> names;
    files.listFolders(folder.path() + sub, names);
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(SafetyCopiesTest, ACopyHoldsTheNamedFilesThatAreThere) {
  folder.write("CC1.MOC", {1, 2, 3});
  folder.write("cc1.mor", {4, 0});
  ASSERT_TRUE(makeSafetyCopy(dir, clock, "chiusura", {"CC1.MOC", "CC1.MOR", "CC1.RIP"}).ok());
  const std::vector<std::string> copies = safetyCopies(dir);
  ASSERT_EQ(copies.size(), 1U);
  EXPECT_TRUE(copies[0].starts_with("20261121-")) << copies[0];
  EXPECT_TRUE(copies[0].ends_with("-chiusura")) << copies[0];
  EXPECT_EQ(foldersIn("copie"), copies);
  const std::string copy = "copie/" + copies[0] + "/";
  EXPECT_EQ(folder.read(copy + "CC1.MOC"), (test::Bytes{1, 2, 3}));
  EXPECT_EQ(folder.read(copy + "cc1.mor"), (test::Bytes{4, 0}));
  EXPECT_FALSE(folder.exists(copy + "CC1.RIP"));
}

TEST_F(SafetyCopiesTest, TheLastTwentyAreKeptAndOtherFoldersAreNeverTouched) {
  fs::create_directories(folder.path() + "copie/mie-copie");
  folder.write("copie/mie-copie/nota.txt", {1});
  fs::create_directories(folder.path() + "copie/20200101-000000-chiusura.tmp");  // a stop's
  for (int i = 10; i < 32; ++i) {
    fs::create_directories(folder.path() + "copie/201901" + std::to_string(i) + "-120000-ripr");
  }
  folder.write("CC1.MOC", {1});
  ASSERT_TRUE(makeSafetyCopy(dir, clock, "chiusura", {"CC1.MOC"}).ok());
  const std::vector<std::string> copies = safetyCopies(dir);
  ASSERT_EQ(copies.size(), kSafetyCopiesKept);
  EXPECT_EQ(copies.front(), "20190113-120000-ripr");  // the three oldest went
  EXPECT_TRUE(copies.back().starts_with("20261121-"));
  EXPECT_TRUE(folder.exists("copie/mie-copie/nota.txt"));
  EXPECT_FALSE(fs::exists(folder.path() + "copie/20200101-000000-chiusura.tmp"));
}

TEST_F(SafetyCopiesTest, ACopyThatFailsLeavesNothing) {
  folder.write("CC1.MOC", {1});
  folder.write("CC1.MOR", {1, 0});
  files.failWrite(2, diskerr::kDiskFull);
  const WriteOutcome outcome = makeSafetyCopy(dir, clock, "chiusura", {"CC1.MOC", "CC1.MOR"});
  EXPECT_EQ(outcome.error, diskerr::kDiskFull);
  EXPECT_EQ(outcome.failedFile, "CC1.MOR");
  EXPECT_TRUE(foldersIn("copie").empty());
}

}  // namespace
}  // namespace contavia
