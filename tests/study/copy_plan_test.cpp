#include "study/copying/copy_plan.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>

#include "study/companions.h"
#include "study/real_disk.h"
#include "study/study_extensions.h"
#include "tests/support/copying.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

const fs::path kStick = "/stick";

// One study is copied from a folder in memory to another.
class Copying : public testing::Test {
 protected:
  void Source(const FolderImage& files) { PutFolder(disk, kStudies, files); }
  void Target(const FolderImage& files) { PutFolder(disk, kStick, files); }
  CopyPlan Copy(const std::string& main) {
    CopyPlanner planner(disk, kStick);
    auto plan = planner.Plan(kStudies / main);
    EXPECT_TRUE(plan.ok()) << plan.error().Line();
    const Outcome made = planner.Make(*plan, [](const std::string&, std::uint64_t) {});
    EXPECT_TRUE(made.ok()) << made.error().Line();
    return *plan;
  }
  [[nodiscard]] FolderImage Stick() const { return ImageOf(disk, kStick); }

  MemoryDisk disk;
};

TEST_F(Copying, TakesAllFilesOfTheKindWithTheirSpellingAndTheirDates) {
  const FolderImage closed = {{"hotel.stc", "s"}, {"HOTEL.DPC", "d"}, {"HOTEL.WNT", "w"},
                              {"HOTEL.LQD", "l"}, {"Hotel.KLD", "k"}, {"HOTEL.PCK", "m"}};
  FolderImage all = closed;
  all.insert({{"HOTEL.STO", "other kind"}, {"HOTEL.DPO", "x"}, {"HOTEL.txt", "x"}, {"H.LQD", "x"}});
  Source(all);
  Target({});
  const CopyPlan plan = Copy("HOTEL.PCK");
  EXPECT_EQ(Stick(), closed);
  EXPECT_FALSE(plan.lacks_fluid);
  EXPECT_EQ(plan.files.back().name, "HOTEL.PCK");
  EXPECT_EQ(plan.Bytes(), 6U);
  EXPECT_TRUE(plan.in_the_way.empty() && plan.shared.empty());
  EXPECT_EQ((*disk.Status(kStick / "hotel.stc"))->modified, 9 * 86'400);
}

TEST_F(Copying, OfAnOpenStudyTakesItsOwnCompanions) {
  Source({{"A.PCA", "m"},
          {"A.STO", "s"},
          {"A.DPO", "d"},
          {"A.LQD", "l"},
          {"A.KLD", "k"},
          {"A.STC", "x"},
          {"A.WNT", "x"},
          {"A.DPC", "x"}});
  Target({});
  Copy("A.PCA");
  EXPECT_EQ(Stick(),
            (FolderImage{
                {"A.PCA", "m"}, {"A.STO", "s"}, {"A.DPO", "d"}, {"A.LQD", "l"}, {"A.KLD", "k"}}));
}

TEST_F(Copying, WithoutAnyCompanionIsNoErrorButTheFluidIsToldMissing) {
  Source({{"A.PCK", "m"}});
  Target({});
  EXPECT_TRUE(Copy("A.PCK").lacks_fluid);
  EXPECT_EQ(Stick(), (FolderImage{{"A.PCK", "m"}}));
}

TEST_F(Copying, RemovesWhatOnlyTheTargetHasAndWhatCaseHides) {
  Source({{"A.PCK", "m"}, {"A.STC", "s"}, {"A.LQD", "l"}});
  Target({{"A.pck", "old"},
          {"A.LQD", "old"},
          {"a.lqd", "older"},
          {"A.WNT", "foreign"},
          {"A.wnt", "foreign"},
          {"A.STO", "of the other kind"},
          {"B.WNT", "b"},
          {"B.PCK", "b"}});
  const CopyPlan plan = Copy("A.PCK");
  EXPECT_EQ(plan.in_the_way, "A.pck");
  EXPECT_TRUE(plan.is_there);
  EXPECT_EQ(Stick(), (FolderImage{{"A.pck", "m"},
                                  {"A.STC", "s"},
                                  {"A.LQD", "l"},
                                  {"A.STO", "of the other kind"},
                                  {"B.WNT", "b"},
                                  {"B.PCK", "b"}}));
}

TEST_F(Copying, AsksForCompanionsThatAreLeftOverWithoutTheirStudy) {
  Source({{"A.PCK", "m"}});
  Target({{"A.WNT", "foreign"}});
  const CopyPlan plan = Copy("A.PCK");
  EXPECT_EQ(plan.in_the_way, "A.WNT");
  EXPECT_FALSE(plan.is_there);
  EXPECT_EQ(Stick(), (FolderImage{{"A.PCK", "m"}})) << "it would load as the new study's winter";
}

TEST_F(Copying, ToldTheSameOnlyWhenEveryByteIs) {
  const FolderImage files = {{"A.PCK", "m"}, {"A.LQD", "l"}};
  Source(files);
  Target(files);
  EXPECT_TRUE(CopyPlanner(disk, kStick).Plan(kStudies / "A.PCK")->same);
  for (const auto& [name, bytes] : FolderImage{{"A.LQD", "L"}, {"A.PCK", "mm"}, {"A.KLD", ""}}) {
    ASSERT_TRUE(disk.Write(kStick / name, bytes).ok());
    const auto plan = CopyPlanner(disk, kStick).Plan(kStudies / "A.PCK");
    EXPECT_FALSE(plan->same) << name;
    EXPECT_EQ(plan->in_the_way, "A.PCK");
    Copy("A.PCK");
    EXPECT_EQ(Stick(), files);
  }
}

TEST_F(Copying, NamesTheFluidThatAStudyOfTheOtherKindShares) {
  Source({{"A.PCK", "m"}, {"A.LQD", "glycol"}});
  Target({{"A.PCA", "open"}, {"A.LQD", "water"}});
  auto plan = CopyPlanner(disk, kStick).Plan(kStudies / "A.PCK");
  EXPECT_EQ(plan->shared, "A.LQD");
  EXPECT_EQ(ReplaceBox(*plan).lines,
            (std::vector<std::string>{
                "... To Αρχείο < A.LQD >, υπάρχει ήδη ...",
                "... Το Αρχείο < A.LQD > ανήκει και στη Μελέτη < A.PCA >, και θα αλλάξει ...",
                "... ΘΕΛΕΤΕ ΝΑ ΤΟ ΑΝΤΙΚΑΤΑΣΤΗΣΩ ?? ..."}));
  ASSERT_TRUE(disk.Remove(kStick / "A.LQD").ok());
  plan = CopyPlanner(disk, kStick).Plan(kStudies / "A.PCK");
  EXPECT_EQ(plan->shared, "A.LQD") << "the other study is one of water so far";
  ASSERT_TRUE(disk.Write(kStick / "A.LQD", "glycol").ok());
  plan = CopyPlanner(disk, kStick).Plan(kStudies / "A.PCK");
  EXPECT_TRUE(plan->shared.empty() && plan->in_the_way.empty()) << "nothing there changes";
}

TEST_F(Copying, FinishesWhatABrokenOffSaveLeftAtEitherEnd) {
  Source({{"A.PCK", "old"},
          {"A.PCK.new~", "new"},
          {"A.WNT", "gone"},
          {"A.saving~", "KALVOFLUME 1\nA.PCK\n- A.WNT\nTELOS\n"}});
  Target({{"A.PCK", "old"},
          {"A.PCK.new~", "newer"},
          {"A.STC", "old"},
          {"A.STC.new~", "s"},
          {"A.saving~", "KALVOFLUME 1\nA.STC\nA.PCK\nTELOS\n"}});
  const auto plan = CopyPlanner(disk, kStick).Plan(kStudies / "A.PCK");
  ASSERT_TRUE(plan.ok());
  EXPECT_EQ(Stick(), (FolderImage{{"A.PCK", "newer"}, {"A.STC", "s"}}));
  Copy("A.PCK");
  EXPECT_EQ(Stick(), (FolderImage{{"A.PCK", "new"}}));
  EXPECT_EQ(ImageOf(disk, kStudies), (FolderImage{{"A.PCK", "new"}}));
}

TEST_F(Copying, ReadsTheNewStudyWhereItsSourceCannotBeSettled) {
  Source({{"A.PCK", "old"},
          {"A.PCK.new~", "new"},
          {"A.WNT", "gone"},
          {"A.saving~", "KALVOFLUME 1\nA.PCK\n- A.WNT\nTELOS\n"}});
  Target({});
  FailingDisk full(disk);
  full.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  const auto plan = CopyPlanner(full, kStick).Plan(kStudies / "A.PCK");
  ASSERT_TRUE(plan.ok());
  ASSERT_EQ(plan->files.size(), 1U);
  EXPECT_EQ(plan->files.front().length, 3U);
}

TEST_F(Copying, OnAMediumWithoutCaseReplacesTheEntryThatIsThere) {
  Source({{"HOTEL.PCK", "m"}, {"HOTEL.LQD", "l"}});
  Target({{"hotel.pck", "old"}, {"hotel.lqd", "old"}, {"hotel.wnt", "old"}});
  FatDisk fat(disk, kStick);
  const auto plan = CopyPlanner(fat, kStick).Plan(kStudies / "HOTEL.PCK");
  ASSERT_TRUE(plan.ok());
  EXPECT_TRUE(plan->case_blind);
  EXPECT_EQ(plan->in_the_way, "hotel.pck");
  ASSERT_TRUE(CopyPlanner(fat, kStick).Make(*plan, [](const std::string&, std::uint64_t) {}).ok());
  EXPECT_EQ(Stick(), (FolderImage{{"hotel.pck", "m"}, {"hotel.lqd", "l"}}));
}

// What a listing says is what a search from file to file finds, for any mixture of spellings.
TEST(FolderFamilies, FindsTheCompanionsThatALoadWouldFind) {
  std::mt19937 random(11);
  const std::vector<std::string> bases = {"A", "a", "Ά", "ά", "\xe1", "B.PCK"};
  std::size_t found = 0;
  for (int round = 0; round < 400; ++round) {
    MemoryDisk disk;
    std::set<std::string> names;
    for (int i = 0; i < 8; ++i) {
      constexpr std::array kExtensions = {".PCK", ".pck", ".LQD", ".lqd", ".STC", ".Wnt", ".PCA"};
      names.insert(bases[random() % bases.size()] + kExtensions[random() % kExtensions.size()]);
    }
    for (const std::string& name : names) ASSERT_TRUE(disk.Write(kStudies / name, name).ok());
    const FolderFamilies families({names.begin(), names.end()});
    for (const std::string& main : families.Mains(SystemKind::kClosed)) {
      std::vector<std::string> wanted;
      for (const std::string_view extension : {".STC", ".DPC", ".WNT", ".LQD"}) {
        if (const auto path = CompanionOf(disk, kStudies / main, extension)) {
          wanted.push_back(path->filename().string());
        }
      }
      EXPECT_EQ(families.Of(main).companions, wanted) << main;
      found += wanted.size();
    }
  }
  EXPECT_GT(found, 500U);
}

TEST(CopyingOnDisk, KeepsDatesAndGoesBehindLinks) {
  const DiskBench place;
  RealDisk disk;
  const fs::path stick = place.folder() / "stick";
  PutFolder(disk, place.studies(), {{"A.PCK", "m"}, {"A.LQD", "l"}});
  ASSERT_TRUE(disk.MakeFolder(stick).ok());
  ASSERT_TRUE(disk.MakeFolder(place.folder() / "links").ok());
  fs::create_symlink(place.studies() / "A.PCK", place.folder() / "links" / "B.PCK");
  const auto plan = CopyPlanner(disk, stick).Plan(place.folder() / "links" / "B.PCK");
  ASSERT_TRUE(plan.ok());
  ASSERT_TRUE(CopyPlanner(disk, stick).Make(*plan, [](const std::string&, std::uint64_t) {}).ok());
  EXPECT_EQ(ImageOf(disk, stick), (FolderImage{{"B.PCK", "m"}, {"B.LQD", "l"}}));
  EXPECT_EQ((*disk.Status(stick / "B.PCK"))->modified, 5 * 86'400);
}

}  // namespace
}  // namespace kalvo
