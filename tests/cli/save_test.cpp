// `kalvo calc --save`: which files it writes, and which it must leave alone.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> NamesOf(const FolderImage& image) {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : image) {
    names.push_back(name);
  }
  return names;
}

class Save : public testing::Test {
 protected:
  enum class Results { kNone, kTold };

  // Runs with --save expecting that nothing was written.
  void ExpectKept(const std::vector<std::string>& arguments, int code, const std::string& message,
                  Results results = Results::kNone) {
    const FolderImage before = bench_.Studies();
    const Told told = bench_.Run(arguments);
    EXPECT_EQ(told.code, code) << told.err;
    EXPECT_EQ(told.out.empty(), results == Results::kNone) << told.out;
    EXPECT_THAT(told.err, HasSubstr(message));
    EXPECT_TRUE(bench_.Studies() == before);
  }

  const CliBench bench_;
  const std::string study_ = bench_.Put("study.PCK", SoundNetwork());
};

TEST_F(Save, WritesTheWholeFamilyAndNotTheStudyRead) {
  bench_.Put("study.WNT", SoundNetwork());
  const std::string before = bench_.Studies().at("study.PCK");
  const Told told = bench_.Run({"calc", study_, "--save", bench_.Path("Νέα μελέτη")});
  EXPECT_EQ(told.code, 0);
  EXPECT_EQ(told.err, "Σώθηκε : " + bench_.Path("Νέα μελέτη.PCK") + "\n");
  const FolderImage after = bench_.Studies();
  EXPECT_THAT(NamesOf(after), ElementsAre("study.LQD", "study.PCK", "study.WNT", "Νέα μελέτη.LQD",
                                          "Νέα μελέτη.PCK", "Νέα μελέτη.STC", "Νέα μελέτη.WNT"));
  EXPECT_EQ(after.at("study.PCK"), before);

  // The results are there when it is read again, and a re-run on them changes no byte.
  const std::string saved = bench_.Path("Νέα μελέτη.PCK");
  EXPECT_THAT(bench_.Run({"show", saved}).out, HasSubstr("Δυσμενέστερος κλάδος"));
  EXPECT_EQ(bench_.Run({"calc", saved, "--fixed", "--quiet", "--save", saved}).err, "");
  EXPECT_TRUE(bench_.Studies() == after);
}

TEST_F(Save, OverwritesOnlyItselfUnasked) {
  bench_.Put("other.pck", SoundNetwork());
  bench_.Put("third.LQD", "the fluid of third.PCA");
  const std::string exists = "υπάρχει ήδη";
  ExpectKept({"calc", study_, "--save", bench_.Path("other.pck")}, 6, exists);
  ExpectKept({"calc", study_, "--save", bench_.Path("other.PCK")}, 6, exists);
  ExpectKept({"calc", study_, "--save", bench_.Path("third.PCK")}, 6, exists);
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", study_}).code, 0);
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", bench_.Path("other.PCK"), "--overwrite"}).code,
            0);
  EXPECT_THAT(NamesOf(bench_.Studies()),
              ElementsAre("other.LQD", "other.STC", "other.pck", "study.LQD", "study.PCK",
                          "study.STC", "third.LQD"));
}

TEST_F(Save, OverTheStudyItselfDropsNoImposedDiameterUnasked) {
  ASSERT_EQ(bench_.Run({"calc", study_, "--save", study_}).code, 0);
  std::vector<SectionRow> rows = DecodeRows<SectionRow>(bench_.Studies().at("study.PCK"));
  rows[1].InDiameter = -53.1F;
  bench_.Put("study.PCK", rows);
  ExpectKept({"calc", study_, "--save", study_}, 6,
             "Θα χανόταν 1 διάμετρος που όρισε ο χρήστης (--fixed");
  rows[4].InDiameter = -53.1F;
  bench_.Put("study.PCK", rows);
  const std::string linked = bench_.Path("linked.PCK");
  std::filesystem::create_symlink(study_, linked);
  for (const std::string& name : {study_, linked, bench_.studies().string()}) {
    ExpectKept({"calc", study_, "--method", "2", "--save", name}, 6, "Θα χάνονταν 2 διάμετροι");
  }
  const auto imposed = [this](const char* name) {
    const auto saved = DecodeRows<SectionRow>(bench_.Studies().at(name));
    return std::ranges::count_if(saved, [](const auto& row) { return row.InDiameter < 0; });
  };
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", bench_.Path("other.PCK")}).code, 0);
  EXPECT_EQ(bench_.Run({"calc", study_, "--fixed", "--save", study_}).code, 0);
  EXPECT_EQ(imposed("study.PCK"), 2);
  EXPECT_EQ(bench_.Run({"calc", study_, "--overwrite", "--save", study_}).code, 0);
  EXPECT_EQ(imposed("study.PCK"), 0);
}

TEST_F(Save, ManyStudiesGoIntoAFolder) {
  const std::string second = bench_.Put("second.PCK", SoundNetwork());
  const std::string bad = bench_.Put("bad.PCK", "");
  const std::string into = "--save";
  ExpectKept({"calc", study_, second, into, bench_.Path("new.PCK")}, 2, "φάκελος");
  RealDisk disk;
  const auto folder = bench_.folder() / "αποτελέσματα";
  ASSERT_TRUE(disk.MakeFolder(folder).ok());
  ExpectKept({"calc", study_, study_, into, folder}, 2, "με το ίδιο όνομα");
  EXPECT_EQ(bench_.Run({"calc", study_, bad, second, into, folder}).code, 3);
  EXPECT_THAT(NamesOf(ImageOf(disk, folder)), ElementsAre("second.LQD", "second.PCK", "second.STC",
                                                          "study.LQD", "study.PCK", "study.STC"));
  EXPECT_EQ(bench_.Run({"calc", study_, into, folder}).code, 6);  // alone it goes there too
}

TEST_F(Save, PlaceThatCannotBeWrittenIsNamed) {
  ExpectKept({"calc", study_, "--save", study_ + "/new.PCK"}, 6, "Ο φάκελος δεν υπάρχει");
  ExpectKept({"calc", study_, "--save", bench_.Path("none/new.PCK")}, 6, bench_.Path("none"));
  ExpectKept({"calc", study_, "--save", "/proc/new.PCK"}, 6, "Η μελέτη ΔΕΝ σώθηκε. ",
             Results::kTold);
  RealDisk disk;
  ASSERT_TRUE(disk.MakeFolder(bench_.studies() / "new.STC").ok());
  ExpectKept({"calc", study_, "--save", bench_.Path("new.PCK"), "--overwrite"}, 6,
             "Είναι φάκελος και όχι αρχείο : " + bench_.Path("new.STC"), Results::kTold);
}

TEST_F(Save, AProtectedFileAndTheOtherKindsFluidAreReplacedOnWishOnly) {
  std::filesystem::permissions(study_, std::filesystem::perms::owner_read);
  ExpectKept({"calc", study_, "--save", study_}, 6, "προστατευμένο από εγγραφή (--overwrite");
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", study_, "--overwrite"}).code, 0);
  EXPECT_FALSE(RealDisk().Status(study_).value()->writable)
      << "the new file is protected as the old was";

  bench_.Put("twin.PCA", "");
  bench_.Put("twin.LQD", "another fluid");
  ExpectKept({"calc", study_, "--save", bench_.Path("twin.PCK")}, 6,
             "ανήκει και σε Μελέτη του άλλου είδους (--overwrite το αντικαθιστά) : " +
                 bench_.Path("twin.LQD"));
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", bench_.Path("twin.PCK"), "--overwrite"}).code, 0);
}

TEST_F(Save, AStudyBehindALinkOrWithItsFirstSaveBrokenOffIsFound) {
  const auto link = bench_.studies() / "link.PCK";
  std::filesystem::create_symlink("study.PCK", link);
  EXPECT_EQ(bench_.Run({"calc", link, "--save", link}).code, 0) << "it is the study itself";
  EXPECT_THAT(NamesOf(bench_.Studies()),
              ElementsAre("link.PCK", "study.LQD", "study.PCK", "study.STC"));

  RealDisk disk;
  ASSERT_TRUE(disk.Rename(study_, bench_.Path("half.PCK.new~")).ok());
  ASSERT_TRUE(disk.Write(bench_.Path("half.saving~"), "KALVOFLUME 1\nhalf.PCK\nTELOS\n").ok());
  EXPECT_EQ(bench_.Run({"show", bench_.Path("half")}).code, 0);
  EXPECT_TRUE(bench_.Studies().contains("half.PCK"));
}

}  // namespace
}  // namespace kalvo
