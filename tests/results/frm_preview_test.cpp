#include "results/printing/frm_preview.h"

#include <gtest/gtest.h>

#include "tests/results/print_desk.h"

namespace kalvo {
namespace {

const std::filesystem::path kStudies = "/studies";

/// Pages that nobody paints.
class NotedPages : public PreviewedPages {
 public:
  [[nodiscard]] int count() const override { return pages; }
  [[nodiscard]] PageSize size() const override { return {600, 840}; }
  [[nodiscard]] std::string paper() const override { return "A4 όρθιο"; }
  [[nodiscard]] std::string sheet() const override { return "Φύλλο"; }
  Result<std::string> MakePdf() override {
    if (broken) return FileError{{}, "Οι σελίδες δεν σχεδιάζονται"};
    return std::string("%PDF");
  }
  int pages = 16;
  bool broken = false;
};

class Preview : public testing::Test, public TestDesk {
 protected:
  Preview() {
    desk.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    desk.questions.previewed = &pages;
    desk.questions.preview = {.title = "Αποτελέσματα",
                              .client = "Γραφείο",
                              .name = "HOTEL_RCO.XLS",
                              .note = "604 τμήματα",
                              .pdf = "HOTEL_RCO.PDF"};
  }
  FrmPreview& Open() {
    form.emplace(desk);
    form->Load();
    form->Derive();
    return *form;
  }
  void Press(const Key& key) {
    PressKey(*form, key);
    form->Derive();
  }
  [[nodiscard]] std::string Shown() const { return form->TxtPage.text; }

  NotedPages pages;
  AnsweringFileDialog files;
  std::optional<FrmPreview> form;
};

TEST_F(Preview, SaysWhatIsKnownOfThePages) {
  Open();
  EXPECT_EQ(form->LblTitle.text, "Αποτελέσματα");
  EXPECT_EQ(form->LblClient.text, "Γραφείο");
  EXPECT_EQ(form->LblCount.text, "από 16");
  EXPECT_EQ(form->LblName.text, "HOTEL_RCO.XLS · 604 τμήματα · A4 όρθιο");
  desk.questions.preview = {};
  pages.pages = 1;
  Open();
  EXPECT_EQ(form->LblTitle.text, "Φύλλο");
  EXPECT_EQ(form->LblName.text, "1 σελίδα · A4 όρθιο");
}

TEST_F(Preview, TurnsPagesByKeysFieldAndPictures) {
  Open();
  EXPECT_EQ(form->focus(), &form->Page);
  const auto step = [this](KeyCode key) {
    Press(Plain(key));
    return Shown();
  };
  EXPECT_EQ(step(KeyCode::kPageUp), "1");
  EXPECT_EQ(step(KeyCode::kPageDown), "2");
  EXPECT_EQ(step(KeyCode::kEnd), "16");
  EXPECT_EQ(step(KeyCode::kPageDown), "16");
  EXPECT_EQ(step(KeyCode::kPageUp), "15");
  EXPECT_EQ(step(KeyCode::kHome), "1");
  form->Tiles.on_pick(6);
  EXPECT_EQ(Shown(), "7");
  for (const auto& [typed, page] :
       {std::pair{"12", "12"}, {"99999999999", "16"}, {"0", "1"}, {"", "1"}}) {
    TypeInto(*form, form->TxtPage, typed);
    Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(Shown(), page) << typed;
    EXPECT_EQ(form->focus(), &form->Page);
  }
  TypeInto(*form, form->TxtPage, "x9");
  EXPECT_TRUE(form->MoveFocus(&form->CmdPdf));
  form->Derive();
  EXPECT_EQ(Shown(), "9") << "leaving takes it too";
  EXPECT_EQ(form->Tiles.current, 8);
}

TEST_F(Preview, ScrollsByTheSpaceBarAndFromPageToPage) {
  Open();
  Press(Typed(U' '));
  EXPECT_EQ(form->Page.scrolls, 1);
  Press(ShiftTyped(U' '));
  EXPECT_EQ(form->Page.scrolls, 0);
  form->Page.on_past_end(false);
  EXPECT_EQ(Shown(), "1");
  form->Page.on_past_end(true);
  EXPECT_EQ(Shown(), "2");
  EXPECT_FALSE(form->Page.from_the_end);
  form->Page.on_past_end(false);
  EXPECT_EQ(Shown(), "1");
  EXPECT_TRUE(form->Page.from_the_end);
  const int revision = form->Page.revision;
  form->Page.on_past_end(false);
  EXPECT_EQ(form->Page.revision, revision) << "nothing is before the first page";
}

TEST_F(Preview, ZoomsBetween25And400PercentAndToTheWholePage) {
  Open();
  const auto zoom = [this](const Key& key) {
    Press(key);
    return form->CboZoom.entries.at(static_cast<std::size_t>(form->CboZoom.selected));
  };
  form->Page.TakeRoom(402, 2000);
  form->Derive();
  EXPECT_EQ(form->CboZoom.entries.front(), "Ολόκληρη σελίδα · 67 %");
  EXPECT_EQ(zoom(Ctrl('+')), "75 %");
  EXPECT_EQ(form->CboZoom.entries.front(), "Ολόκληρη σελίδα");
  EXPECT_EQ(zoom(Ctrl('0')), "Ολόκληρη σελίδα · 67 %");
  EXPECT_EQ(zoom(Ctrl('-')), "50 %");
  EXPECT_EQ(zoom(Ctrl('=')), "75 %");
  form->Page.on_zoom(20);
  form->Derive();
  EXPECT_EQ(form->Page.ShownPercent(), 400);
  EXPECT_EQ(zoom(CtrlShift('+')), "400 %");
  form->Page.on_zoom(-20);
  EXPECT_EQ(form->Page.ShownPercent(), 25);
  form->CboZoom.Select(4);
  form->Derive();
  EXPECT_EQ(form->Page.ShownPercent(), 100);
  form->CboZoom.Select(0);
  EXPECT_EQ(form->Page.ShownPercent(), 67);
  form->Page.TakeRoom(1, 1);
  EXPECT_EQ(form->Page.ShownPercent(), 10) << "there is always something to see";
}

TEST_F(Preview, WritesThePdfUnderTheWorkbooksNameAndOpensIt) {
  Open();
  const auto file = kStudies / "ASCII/HOTEL_RCO.PDF";
  Press(CtrlShift('S'));
  EXPECT_EQ(test.outer_disk.Read(file).value(), "%PDF");
  EXPECT_FALSE(form->LblName.visible);
  EXPECT_TRUE(form->CmdOpen.visible);
  EXPECT_EQ(form->CmdOpen.hint, "HOTEL_RCO.PDF");
  Click(*form, form->CmdOpen);
  EXPECT_EQ(viewer.files, std::vector{file});

  ASSERT_TRUE(test.outer_disk.Write(file, "old").ok());
  test.prompter.Expect("  ! !  ΠΡΟΣΟΧΗ  ! ! ", Answer::kNo);
  Press(CtrlShift('S'));
  EXPECT_EQ(test.outer_disk.Read(file).value(), "old");
  EXPECT_EQ(form->LblName.text, "Το Αρχείο PDF ΔΕΝ δημιουργήθηκε");
  EXPECT_TRUE(form->LblName.visible && form->CmdOpen.visible) << "the old one can still be opened";
  pages.broken = true;
  test.prompter.Expect("  ! !  ΠΡΟΣΟΧΗ  ! ! ", Answer::kYes);
  Press(CtrlShift('S'));
  EXPECT_EQ(test.prompter.boxes().back().lines.front(), "Οι σελίδες δεν σχεδιάζονται");
  EXPECT_EQ(test.outer_disk.Read(file).value(), "old");
}

TEST_F(Preview, WritesThePdfWhereItIsToldTo) {
  desk.questions.preview.pdf = "/elsewhere/A_RCO.PDF";
  ASSERT_TRUE(test.outer_disk.MakeFolder("/elsewhere").ok());
  Open();
  Press(CtrlShift('S'));
  EXPECT_EQ(test.outer_disk.Read("/elsewhere/A_RCO.PDF").value(), "%PDF");
  desk.questions.preview = {};
  Open();
  desk.file_dialog = &files;
  Press(CtrlShift('S'));
  EXPECT_FALSE(test.outer_disk.Exists(kStudies / "ASCII/Φύλλο.PDF")) << "no name was chosen";
  EXPECT_EQ(files.asked.back().name, "Φύλλο");
  files.answer = "/elsewhere/b";
  Press(CtrlShift('S'));
  EXPECT_EQ(test.outer_disk.Read("/elsewhere/b.PDF").value(), "%PDF");
}

TEST_F(Preview, PrintsWhereTheUserChooses) {
  Open();
  printer.choice = {PrinterChoice::Kind::kPrinter, {}};
  Press(Ctrl('P'));
  EXPECT_EQ(printer.printed, std::vector<std::string>{"%PDF"});
  EXPECT_EQ(form->LblName.text, "Στάλθηκε στον εκτυπωτή");
  EXPECT_FALSE(printer.began_across);
  Press(Plain(KeyCode::kPageDown));
  EXPECT_EQ(form->LblName.text, "HOTEL_RCO.XLS · 604 τμήματα · A4 όρθιο");

  printer.choice = {PrinterChoice::Kind::kNoPrinter, {}};
  test.prompter.Expect("Εκτύπωση", Answer::kYes);
  Press(Ctrl('P'));
  EXPECT_TRUE(test.outer_disk.Exists(kStudies / "ASCII/HOTEL_RCO.PDF"));
  EXPECT_TRUE(form->CmdOpen.visible);

  printer.choice = {PrinterChoice::Kind::kCancelled, {}};
  Press(Ctrl('P'));
  EXPECT_EQ(form->LblName.text, "Η εκτύπωση ακυρώθηκε");
  EXPECT_EQ(printer.printed.size(), 1U);
}

TEST_F(Preview, IsAskedForByAFunctionAndClosesOnEscape) {
  navigator.Expect(screen::kPreview, [this] {
    EXPECT_EQ(desk.questions.previewed, &pages);
    Open();
    Press(Plain(KeyCode::kEscape));
  });
  ShowPreview(desk, pages);
  EXPECT_EQ(desk.questions.previewed, nullptr);
  EXPECT_EQ(desk.questions.preview.name, "") << "the next one is asked for anew";
  EXPECT_EQ(navigator.log.back(), "close FrmPreview");
}

TEST_F(Preview, WithoutPagesDoesNothing) {
  desk.questions.previewed = nullptr;
  desk.questions.preview = {};
  Open();
  EXPECT_EQ(form->LblCount.text, "από 0");
  Press(Plain(KeyCode::kEnd));
  Press(CtrlShift('S'));
  EXPECT_TRUE(form->LblName.visible);
}

}  // namespace
}  // namespace kalvo
