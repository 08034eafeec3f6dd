#include "shell/manual/frm_manual.h"

#include <gtest/gtest.h>

#include "shell/manual/manual_file.h"
#include "tests/support/dated_disk.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct OpenManual : TestDesk, testing::Test {
  OpenManual() {
    desk.installed_folder = "/share";
    EXPECT_TRUE(test.outer_disk.MakeFolder("/share/manual").ok());
    Put("README.md", "# Εγχειρίδιο\n\n[Πρώτο](01-first.md)\n");
    Put("01-first.md", "# 1. Πρώτο\n\n## Αρχή\n\nΗ αντλία.\n\n## Τέλος\n\n`F9`\n");
    Put("02-second.md",
        "# 2. Δεύτερο\n\nΔες [το τέλος](01-first.md#τέλος), [εδώ](#αντλία) ή "
        "[έξω](https://example.org).\n\n```\n# no heading\n```\n\n## Αντλία\n\nΥγρό.\n\n## Αρχή\n");
  }
  void Put(const std::string& name, const std::string& text) {
    EXPECT_TRUE(test.outer_disk.Write("/share/manual/" + name, text).ok());
  }
  FrmManual& Open(std::optional<ManualPlace> place = std::nullopt) {
    desk.questions.manual = std::move(place);
    form.emplace(desk);
    form->Load();
    form->Activate();
    form->Derive();
    return *form;
  }
  std::optional<FrmManual> form;
};

TEST_F(OpenManual, ShowsTheContentsAndTheHeadingsOfTheChapterThatIsRead) {
  FrmManual& manual = Open();
  EXPECT_EQ(manual.title, "Βοήθεια : Εγχειρίδιο");
  EXPECT_EQ(manual.LstContents.lines(),
            (std::vector<std::string>{"Περιεχόμενα", "1. Πρώτο", "2. Δεύτερο"}));
  manual.LstContents.Select(2);
  EXPECT_EQ(manual.Page.text().substr(0, 4), "# 2.");
  EXPECT_EQ(manual.LstContents.lines(),
            (std::vector<std::string>{"Περιεχόμενα", "1. Πρώτο", "2. Δεύτερο", "Αντλία", "Αρχή"}));
  EXPECT_EQ(manual.LstContents.depths(), (std::vector{0, 0, 0, 1, 1}));
  manual.LstContents.Select(3);
  EXPECT_EQ(manual.Page.anchor(), "αντλία");
  EXPECT_EQ(manual.LstContents.selected, 3);
}

TEST_F(OpenManual, FollowsLinksAndGoesBackToWhereItWasRead) {
  FrmManual& manual = Open(ManualPlace{"02-second"});
  manual.Page.scrolled = 40;
  manual.Page.on_follow("01-first.md#τέλος");
  EXPECT_EQ(manual.Page.text().substr(0, 4), "# 1.");
  EXPECT_EQ(manual.Page.anchor(), "τέλος");
  manual.Press(Alt(KeyCode::kLeft));
  EXPECT_EQ(manual.Page.text().substr(0, 4), "# 2.");
  EXPECT_EQ(manual.Page.scrolled, 40);
  manual.Press(Alt(KeyCode::kLeft));
  EXPECT_EQ(manual.Page.text().substr(0, 4), "# 2.") << "there is nothing before";
  manual.Page.on_follow("#αντλία");
  EXPECT_EQ(manual.Page.anchor(), "αντλία");
  manual.Page.on_follow("https://example.org");
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_EQ(test.prompter.boxes().back().lines.back(), "https://example.org");
  EXPECT_EQ(manual.Page.anchor(), "αντλία");
}

TEST_F(OpenManual, FindsWordsWhateverTheirCaseAndAccents) {
  FrmManual& manual = Open(ManualPlace{"01-first"});
  TypeInto(manual, manual.TxtSearch, "ΑΝΤΛΙΑ");
  manual.Derive();
  EXPECT_EQ(manual.LblFound.text, "2 σημεία");
  EXPECT_EQ(manual.LstContents.lines(),
            (std::vector<std::string>{"Αντλία  ·  2. Δεύτερο", "Αρχή  ·  1. Πρώτο"}))
      << "headings first";
  EXPECT_EQ(manual.Page.marked(), "ΑΝΤΛΙΑ");
  manual.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(manual.Page.anchor(), "αντλία");
  manual.Press(Plain(KeyCode::kF3));
  EXPECT_EQ(manual.Page.text().substr(0, 4), "# 1.");
  manual.Press(Plain(KeyCode::kF3));
  EXPECT_EQ(manual.Page.anchor(), "αντλία") << "after the last comes the first";
  TypeInto(manual, manual.TxtSearch, "αρχη υγρο");
  manual.Derive();
  EXPECT_EQ(manual.LblFound.text, "δεν βρέθηκε") << "not in one part";
  manual.Press(Alt(KeyCode::kHome));
  EXPECT_EQ(manual.Page.text().substr(0, 4), std::string("# Εγ").substr(0, 4));
  EXPECT_EQ(manual.LstContents.count(), 3);
  EXPECT_EQ(manual.Page.marked(), "");
}

TEST_F(OpenManual, SaysWhatCannotBeRead) {
  EXPECT_NE(Open(ManualPlace{"09-winter"}).Page.text().find("09-winter.md"), std::string::npos);
  desk.installed_folder = "/nowhere";
  FrmManual& manual = Open(ManualPlace{"01-first"});
  EXPECT_NE(manual.Page.text().find("/nowhere/manual"), std::string::npos);
  EXPECT_EQ(manual.LstContents.count(), 0);
  manual.Press(Plain(KeyCode::kF3));
  manual.Press(Alt(KeyCode::kHome));
}

TEST_F(OpenManual, OpensThePdfOrSaysWhyThereIsNone) {
  FrmManual& manual = Open();
  desk.program_folder = "/program";
  ASSERT_TRUE(test.outer_disk.MakeFolder("/program").ok());
  manual.Run(manual.CmdManual);
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_NE(test.prompter.boxes().back().lines.front().find("Kalvo.pdf"), std::string::npos);
  EXPECT_TRUE(viewer.files.empty());
  ASSERT_TRUE(test.outer_disk.MakeFolder("/share/pdf").ok());
  ASSERT_TRUE(test.outer_disk.Write("/share/pdf/Kalvo.pdf", "%PDF").ok());
  manual.Run(manual.CmdManual);
  EXPECT_EQ(viewer.files, (std::vector<std::filesystem::path>{"/program/Kalvo.pdf"}));
  EXPECT_EQ(*test.outer_disk.Read("/program/Kalvo.pdf"), "%PDF");
}

// A manual of that version with those pages.
std::string Pdf(const std::string& pages, const std::string& version = "1.2.0") {
  return "%PDF " + pages + "\n%%EOF\n" + ManualMark("%PDF " + pages + "\n%%EOF\n", version);
}

struct DeliveredManual : testing::Test {
  DeliveredManual() {
    EXPECT_TRUE(disk.MakeFolder("/share/pdf").ok());
    EXPECT_TRUE(disk.MakeFolder("/program").ok());
  }
  // What is in the program folder once the installed one is delivered.
  std::string After(const std::string& there, const std::string& installed) {
    EXPECT_TRUE(disk.Write("/program/Kalvo.pdf", there).ok());
    EXPECT_TRUE(disk.Write("/share/pdf/Kalvo.pdf", installed).ok());
    EXPECT_TRUE(DeliverManual(disk, "/program", "/share").ok());
    return *disk.Read("/program/Kalvo.pdf");
  }
  MemoryDisk disk;
};

TEST_F(DeliveredManual, IsReplacedByANewerOneUnlessSomebodyWroteInIt) {
  const std::string newer = Pdf("new", "1.10.0");
  EXPECT_EQ(After(Pdf("old"), newer), newer) << "1.10 is after 1.2";
  EXPECT_EQ(After(newer, Pdf("old")), newer);
  for (const std::string& own : {Pdf("old") + "notes", "my notes " + Pdf("old"),
                                 std::string("%PDF of my own"), std::string()}) {
    EXPECT_EQ(After(own, newer), own);
  }
  std::string changed = Pdf("old");
  changed[6] ^= 1;
  EXPECT_EQ(After(changed, newer), changed);
}

TEST_F(DeliveredManual, OfTheSameVersionIsNewerByItsDate) {
  DatedDisk dated(disk);
  for (const bool newer : {true, false}) {
    ASSERT_TRUE(dated.Write("/program/Kalvo.pdf", Pdf("old")).ok());
    ASSERT_TRUE(dated.Write("/share/pdf/Kalvo.pdf", Pdf("new")).ok());
    ASSERT_TRUE(dated.SetModified("/share/pdf/Kalvo.pdf", newer ? 1'000'001 : 999'999).ok());
    ASSERT_TRUE(DeliverManual(dated, "/program", "/share").ok());
    EXPECT_EQ(*disk.Read("/program/Kalvo.pdf"), Pdf(newer ? "new" : "old"));
  }
}

TEST_F(DeliveredManual, SaysWhyItIsStillMissing) {
  const Outcome none = DeliverManual(disk, "/program", "/share");
  ASSERT_FALSE(none);
  EXPECT_NE(none.error().Line().find("/share/pdf/Kalvo.pdf"), std::string::npos);
  ASSERT_TRUE(disk.Write("/share/pdf/Kalvo.pdf", Pdf("new")).ok());
  FailingDisk full(disk);
  full.FailAfterBytes(3);
  EXPECT_FALSE(DeliverManual(full, "/program", "/share"));
  EXPECT_FALSE(disk.Exists("/program/Kalvo.pdf")) << "no half of it";
  ASSERT_TRUE(disk.Write("/program/Kalvo.pdf", Pdf("old", "1.0.0")).ok());
  EXPECT_TRUE(DeliverManual(full, "/program", "/share").ok()) << "the older one serves";
  EXPECT_EQ(*disk.Read("/program/Kalvo.pdf"), Pdf("old", "1.0.0"));
}

}  // namespace
}  // namespace kalvo
