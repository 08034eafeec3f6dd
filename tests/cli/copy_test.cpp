#include <gtest/gtest.h>

#include <filesystem>

#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

class CopyByCommand : public testing::Test {
 protected:
  CopyByCommand() : hotel(bench.Put("hotel.PCK", "rows")), stick(bench.folder() / "stick") {
    bench.Put("hotel.LQD", "fluid");
    EXPECT_TRUE(RealDisk().MakeFolder(stick).ok());
  }
  [[nodiscard]] Told Copy(std::vector<std::string> more) const {
    more.insert(more.begin(), {"copy", hotel});
    more.insert(more.end(), {"--to", stick.string()});
    return Kalvo(more);
  }

  CliBench bench;
  std::string hotel;
  fs::path stick;
};

TEST_F(CopyByCommand, CopiesAllFilesAndReplacesOnlyWhenToldTo) {
  Told told = Copy({});
  EXPECT_EQ(told.code, exit_code::kDone) << told.err;
  EXPECT_EQ(told.out, "hotel.PCK : αντιγράφηκε · 2 αρχεία\n");
  EXPECT_EQ(ImageOf(RealDisk(), stick), bench.Studies());
  EXPECT_EQ(Copy({"--quiet"}).out, "") << "the same again is no replacing";

  ASSERT_TRUE(RealDisk().Write(stick / "hotel.PCK", "other").ok());
  told = Copy({});
  EXPECT_EQ(told.code, exit_code::kUnwritable);
  EXPECT_EQ(told.err,
            "hotel.PCK : ΔΕΝ αντιγράφηκε · μένει αυτή που υπάρχει (--overwrite την αντικαθιστά)\n");
  EXPECT_EQ(*RealDisk().Read(stick / "hotel.PCK"), "other");
  EXPECT_EQ(Copy({"--overwrite"}).code, exit_code::kDone);
  EXPECT_EQ(ImageOf(RealDisk(), stick), bench.Studies());
}

TEST_F(CopyByCommand, SaysWhatIsNoStudyAndWhereNothingCanGo) {
  const FolderImage before = bench.Studies();
  EXPECT_EQ(Copy({bench.Path("gone.PCK")}).code, exit_code::kUnreadable);
  EXPECT_EQ(Copy({bench.Path("hotel.LQD")}).code, exit_code::kUnreadable);
  EXPECT_EQ(ImageOf(RealDisk(), stick), before) << "the others go all the same";
  for (const fs::path& folder : {bench.folder() / "gone", bench.studies(), fs::path(hotel)}) {
    const Told told = Kalvo({"copy", hotel, "--to", folder.string()});
    EXPECT_EQ(told.code, exit_code::kUnwritable) << folder;
    EXPECT_FALSE(told.err.empty());
  }
  EXPECT_EQ(Kalvo({"copy", hotel}).code, exit_code::kWrongUse);
  EXPECT_EQ(bench.Studies(), before);
}

}  // namespace
}  // namespace kalvo
