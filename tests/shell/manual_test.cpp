// The studies of the manual, entered as its chapters say and compared with what they promise.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "entry/sections/sheet_columns.h"
#include "study/export_folder.h"
#include "tests/shell/manual_reader.h"

namespace kalvo {
namespace {

// Heads of the sheet's columns that are typed into, in their order; the last two are left out.
std::vector<std::string> TypedHeads(SystemKind kind) {
  std::vector<std::string> heads;
  for (const SheetColumn& column : SheetColumns()) {
    if (std::string_view(column.Head(kind)) != kSlashText) {
      heads.push_back(HeadRead(column.Head(kind)));
    }
  }
  heads.resize(heads.size() - 2);
  return heads;
}

class FloorReader : public ManualReader {
 public:
  FloorReader() : ManualReader("02-fancoil.md") {
    for (const CsvLine& line : chapter.Table("πλήκτρο", "στήλη")) {
      tee_letters.emplace_back(line.at("στήλη"), line.at("πλήκτρο").at(kLetterAt));
    }
  }

  void EnterSheet() {
    const std::vector<CsvLine> lines = chapter.Table("α/α", heads_.front());
    ASSERT_EQ(lines.size(), 62U);
    Press<FrmMain>(Ctrl('T'));
    for (int row = 0; row < kPastedFrom; ++row) {
      TypeRow(row, lines[static_cast<std::size_t>(row)], lines[kCopied]);
    }
    FillDown();
    Paste(lines);
    TakeBack();
    EXPECT_EQ(At<FrmData_Sheet>().LblMissing.text, "Κενά που λείπουν: 0");
    Press<FrmData_Sheet>(Ctrl(KeyCode::kEnter));
  }

  void EnterEmitters() {
    for (const CsvLine& line : chapter.Table("α/α", "ΠΤΩΣΗ ΠΙΕΣΗΣ [mm w.g.]")) {
      Enter(line.at("α/α"));
      EXPECT_EQ(At<FrmSoma>().Text2.text, line.at("ΟΝΟΜΑΣΙΑ ΤΜΗΜΑΤΟΣ"));
      Enter(line.at("ΠΑΡΟΧΗ [Lit/h]"));
      Enter(line.at("ΠΤΩΣΗ ΠΙΕΣΗΣ [mm w.g.]"));
      Press<FrmSoma>(Plain(KeyCode::kEnter));
    }
    EXPECT_EQ(At<FrmSoma>().LblTotal.text, "20");
    EXPECT_EQ(At<FrmSoma>().LblFlow.text, "7,44");
    auto& form = At<FrmSoma>();
    form.Run(form.SSCmdBack);
  }

  // The way by one section to the pump's page and back to the main menu.
  void LookAtThePump() {
    Press<FrmRes_Sheet>(Shift(KeyCode::kF12));
    At<FrmRes>().Run(At<FrmRes>().CmdPump);
    EXPECT_EQ(At<FrmResGn>().Text2.text, chapter.Value("Παροχή Αντλίας, σε [m³/h]"));
    Press<FrmResGn>(Plain(KeyCode::kEnter));
    EXPECT_FALSE(forms.IsOpen(screen::kPump));
    forms.Show(screen::kResults);  // the window below
    Press<FrmRes>(Plain(KeyCode::kEscape));
  }

  void CheckNodes() {
    forms.uses[std::string(screen::kViewer)] = [](Form& form) {
      form.Press(Plain(KeyCode::kEnter));
    };
    Press<FrmMain>(Ctrl('K'));
    EXPECT_EQ(viewer.files.size(), 1U);
  }

  void EnterWinter() {
    Press<FrmMain>(Ctrl('W'));
    auto& form = At<FrmWinter>();
    TypeInto(form, form.TxtMeanT, winter_.Value(kWinterTemperature));
    Press<FrmWinter>(Plain(KeyCode::kEnter));
    const std::vector<CsvLine> lines = winter_.Table(form.fpSpread1.columns()[0].header);
    ASSERT_EQ(static_cast<int>(lines.size()), form.fpSpread1.row_count());
    for (std::size_t row = 0; row < lines.size(); ++row) {
      for (const int column : {0, 1}) {
        EXPECT_EQ(form.fpSpread1.At(static_cast<int>(row), column).text,
                  lines[row].at(form.fpSpread1.columns()[static_cast<std::size_t>(column)].header));
      }
    }
    for (const std::size_t column : {5U, 6U}) {
      for (const CsvLine& line : lines) {
        Type<FrmWinter>(line.at(form.fpSpread1.columns()[column].header));
        Press<FrmWinter>(Plain(KeyCode::kEnter));
      }
    }
  }

  // The same once more, from a spreadsheet.
  void PasteWinter() {
    auto& form = At<FrmWinter>();
    std::string text;
    for (const CsvLine& line : winter_.Table(form.fpSpread1.columns()[0].header)) {
      text += line.at(form.fpSpread1.columns()[5].header) + "\t" +
              line.at(form.fpSpread1.columns()[6].header) + "\n";
    }
    clipboard.SetText(text);
    form.fpSpread1.GoTo({0, 5});
    Press<FrmWinter>(Ctrl('V'));
    EXPECT_FALSE(At<FrmWinter>().LblVoid.visible) << "it says what was typed";
  }

  void CalculateWinter() {
    Press<FrmWinter>(Ctrl(KeyCode::kEnter));
    auto& form = At<FrmWinter>();
    const std::string flow = winter_.Value("Παροχή");
    const std::string head = winter_.Value("Μανομετρικό Ύψος");
    EXPECT_EQ(form.LblFlowWinter.text, flow);
    EXPECT_EQ(form.LblHeadWinter.text, head);
    form.Run(form.Cmd_Res);
    EXPECT_EQ(At<FrmRes_Sheet>().frame.LblFlow.text, flow);
    EXPECT_EQ(At<FrmRes_Sheet>().frame.LblHead.text, head);
    Press<FrmRes_Sheet>(Plain(KeyCode::kEscape));
  }

  void EndWinter() {
    test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kYes);
    Press<FrmWinter>(Plain(KeyCode::kEscape));
    EXPECT_NE(At<FrmMain>().LblHead.text, winter_.Value("Μανομετρικό Ύψος")) << "summer's is shown";
  }

  void CompareWinterWithSample(const std::string& file) {
    const CalculatedCase sample(std::filesystem::path(KALVO_SAMPLES_DIR) / file, KALVO_LIBRARY_DIR);
    const std::vector<SectionRow> expected = sample.Rows(work_file::kWinter);
    const std::vector<SectionRow> rows = test.Rows(work_file::kWinter);
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      SCOPED_TRACE(i + 1);
      EXPECT_EQ(rows[i].MeanTemp, expected[i].MeanTemp);
      EXPECT_EQ(rows[i].WaterFlow, expected[i].WaterFlow);
      EXPECT_EQ(rows[i].SomaDrop, expected[i].SomaDrop);
      EXPECT_EQ(rows[i].TotalDrop, expected[i].TotalDrop);
    }
  }

  // On a printer, and where there is none; the study stays as it is.
  void PrintSheet(const std::string& pdf) {
    Press<FrmMain>(Ctrl('T'));
    printer.choice.kind = PrinterChoice::Kind::kPrinter;
    Press<FrmData_Sheet>(Ctrl('P'));
    ASSERT_EQ(printer.printed.size(), 1U);
    const std::string pages = std::to_string(printer.tables.front().pages.size());
    EXPECT_NE(chapter.text.find("Βγαίνουν " + pages + " σελίδες"), std::string::npos) << pages;
    EXPECT_EQ(At<FrmData_Sheet>().LblStatus.text, "Στάλθηκε στον εκτυπωτή");
    printer.choice.kind = PrinterChoice::Kind::kNoPrinter;
    test.prompter.Expect("Εκτύπωση", Answer::kYes);
    Press<FrmData_Sheet>(Ctrl('P'));
    EXPECT_TRUE(test.outer_disk.Exists(kStudies / kExportFolder / pdf));
    Press<FrmData_Sheet>(Ctrl(KeyCode::kEnter));
    EXPECT_FALSE(At<FrmMain>().LblUnsaved.visible);
    EXPECT_TRUE(test.study.results_valid);
  }

 private:
  static constexpr std::size_t kLetterAt = 7;  // of "`Shift+C`"
  static constexpr std::string_view kWinterTemperature =
      "Μέση Θερμοκρασία του Υγρού στους Σωλήνες, κατά την Χειμερινή περίοδο, σε [°C]";
  static constexpr std::size_t kNodes = 2;
  // As the chapter tells, from 0.
  static constexpr std::size_t kCopied = 2;
  static constexpr int kFilledFrom = 21;
  static constexpr int kFilledTo = 29;
  static constexpr int kPastedFrom = 31;
  static constexpr int kThrough = sheet_column::kDiaTee + 1;

  void Enter(std::string_view text) {
    Type<FrmSoma>(text);
    Press<FrmSoma>(Plain(KeyCode::kEnter));
  }

  [[nodiscard]] bool IsTee(const std::string& head) const {
    return std::ranges::count(tee_letters, head, &std::pair<std::string, char>::first) != 0;
  }

  // Nothing but its nodes is its own.
  [[nodiscard]] bool IsSame(const CsvLine& line, const CsvLine& other) const {
    return std::ranges::all_of(std::span(heads_).subspan(kNodes), [&](const std::string& head) {
      return line.at(head) == other.at(head);
    });
  }

  void TypeRow(int row, const CsvLine& line, const CsvLine& copied) {
    const auto& grid = At<FrmData_Sheet>().fpSpread1;
    ASSERT_EQ(grid.current().row, row);
    const std::size_t begun = grid.current().column == sheet_column::kRight ? 1 : 0;  // the source
    const bool takes = row > static_cast<int>(kCopied) && IsSame(line, copied);
    const std::size_t end = takes ? kNodes : heads_.size();
    for (const std::string& head : std::span(heads_).subspan(begun, end - begun)) {
      if (!IsTee(head)) Type<FrmData_Sheet>(line.at(head));
      Press<FrmData_Sheet>(Plain(KeyCode::kEnter));
    }
    const bool filled = row > kFilledFrom && row <= kFilledTo;
    if (takes) {
      TakeSame();
    } else if (!filled) {
      PressTees<FrmData_Sheet>(line);
    }
    Press<FrmData_Sheet>(Plain(KeyCode::kDown));
    Press<FrmData_Sheet>(Plain(KeyCode::kHome));
  }

  void TakeSame() {
    auto& sheet = At<FrmData_Sheet>();
    sheet.Run(sheet.CmdSame);
    Press<FrmData_Sheet>(Plain(KeyCode::kHome));
    for (std::size_t i = 0; i < kCopied; ++i) Press<FrmData_Sheet>(Plain(KeyCode::kDown));
    Press<FrmData_Sheet>(Plain(KeyCode::kEnter));
  }

  void FillDown() {
    auto& sheet = At<FrmData_Sheet>();
    sheet.fpSpread1.GoTo({kFilledFrom, kThrough});
    for (int row = kFilledFrom; row < kFilledTo; ++row) {
      Press<FrmData_Sheet>(Shift(KeyCode::kDown));
    }
    Press<FrmData_Sheet>(Plain(KeyCode::kF7));
    EXPECT_EQ(sheet.draft().Text(kFilledTo, kThrough), "1");
  }

  void Paste(const std::vector<CsvLine>& lines) {
    std::string text;
    for (const CsvLine& line : std::span(lines).subspan(kPastedFrom)) {
      std::string cells;
      for (const std::string& head : heads_) {
        cells += (cells.empty() ? "" : "\t") + line.at(head);
      }
      text += cells + "\n";
    }
    clipboard.SetText(text);
    At<FrmData_Sheet>().fpSpread1.GoTo({kPastedFrom, 0});
    Press<FrmData_Sheet>(Ctrl('V'));
  }

  void TakeBack() {
    auto& sheet = At<FrmData_Sheet>();
    sheet.fpSpread1.GoTo({0, sheet_column::kLength});
    Press<FrmData_Sheet>(Plain(KeyCode::kDelete));
    EXPECT_EQ(sheet.draft().Text(0, sheet_column::kLength), "");
    Press<FrmData_Sheet>(Ctrl('Z'));
    EXPECT_EQ(sheet.draft().Text(0, sheet_column::kLength), "18");
  }

  std::vector<std::string> heads_ = TypedHeads(SystemKind::kClosed);
  Markdown winter_ = chapter.Parts().at("Ο χειμώνας");
};

class HouseReader : public ManualReader {
 public:
  HouseReader() : ManualReader("03-house.md") {
    tee_letters = {{"<ΤΑΥ> ΣΕ ΔΙΑΚΛΑΔΩΣΗ [τεμ.]", 'C'}, {"<ΤΑΥ> ΣΕ ΔΙΕΛΕΥΣΗ [τεμ.]", 'A'}};
  }

  void EnterSections() {
    At<FrmMain>().ChkDataKind.Set(false);
    Press<FrmMain>(Ctrl('T'));
    const std::vector<CsvLine> lines = chapter.Table("α/α", heads_[1]);
    for (const CsvLine& line : lines) {
      EXPECT_EQ(At<FrmData>().Txt0.text, line.at("α/α"));
      TypeFields(line);
      PressTees<FrmData>(line);
      Press<FrmData>(&line == &lines.back() ? Ctrl(KeyCode::kEnter) : Plain(KeyCode::kPageDown));
    }
    EXPECT_TRUE(test.prompter.codes().empty());
  }

  void EnterOutlets() {
    for (const CsvLine& line : chapter.Table("α/α", "ΠΙΕΣΗ ΡΟΗΣ [m w.g.]")) {
      EXPECT_EQ(At<FrmYpodo>().Text1.text, line.at("α/α"));
      EXPECT_EQ(At<FrmYpodo>().Text2.text, line.at("ΟΝΟΜΑΣΙΑ ΤΜΗΜΑΤΟΣ"));
      for (const char* head : {"ΠΑΡΟΧΗ [Lit/h]", "ΠΙΕΣΗ ΡΟΗΣ [m w.g.]", "ΥΨΟΣ ΑΠΟ ΑΝΤΛΙΑ [m]"}) {
        Type<FrmYpodo>(line.at(head));
        Press<FrmYpodo>(Plain(KeyCode::kEnter));
      }
      Press<FrmYpodo>(Plain(KeyCode::kEnter));
    }
    Press<FrmYpodo>(Plain(KeyCode::kEnter));  // the focus is on the way out
  }

 private:
  // Field by field by Enter; what shows already is passed.
  void TypeFields(const CsvLine& line) {
    FrmData& form = At<FrmData>();
    const std::array<Field*, 12> fields = {&form.Txt1,  &form.Txt2,  &form.Txt6,  &form.Txt7,
                                           &form.Txt8,  &form.Txt9,  &form.Txt10, &form.Txt11,
                                           &form.Txt12, &form.Txt13, &form.Txt14, &form.Txt15};
    for (std::size_t i = form.focus() == fields[0] ? 0 : 1; i < fields.size(); ++i) {
      ASSERT_EQ(form.focus(), fields[i]) << heads_[i + 1];
      const auto cell = line.find(heads_[i + 1]);
      const std::string wanted = cell == line.end() ? "" : cell->second;
      const bool tee = heads_[i + 1].starts_with("<ΤΑΥ>");
      const bool zero = wanted.empty() && ParseNumber(fields[i]->text, desk.separators) == 0;
      if (!tee && !zero && fields[i]->text != wanted) {
        Type<FrmData>(wanted.empty() ? "0" : wanted);
      }
      if (form.focus() == fields[i]) Press<FrmData>(Plain(KeyCode::kEnter));
    }
  }

  std::vector<std::string> heads_ = TypedHeads(SystemKind::kOpen);
};

TEST(Manual, TheFloorGivesThePumpThatItsChapterPromises) {
  const std::string title = "Κλιματισμός ορόφου γραφείων με fan coil";
  FloorReader user;
  user.EnterUpToTheSections('K');
  user.EnterSheet();
  user.EnterEmitters();
  user.CompareWithSample("fancoil.PCK");
  user.CalculateAndCompare();
  user.LookAtThePump();
  user.CheckNodes();
  user.SaveFirst(title + ".PCK");
  user.EnterWinter();
  user.CalculateWinter();
  user.PasteWinter();
  user.EndWinter();
  user.Save(title + ".WNT");
  user.CompareWinterWithSample("fancoil.PCK");
  user.PrintSheet(title + "_SPREAD.PDF");
}

TEST(Manual, TheHouseGivesThePumpThatItsChapterPromises) {
  HouseReader user;
  user.EnterUpToTheSections('A');
  user.EnterSections();
  user.EnterOutlets();
  user.CompareWithSample("house.PCA");
  user.CalculateAndCompare();
  user.Press<FrmRes_Sheet>(Plain(KeyCode::kEscape));
  user.SaveFirst("Ύδρευση διώροφης κατοικίας.PCA");
}

}  // namespace
}  // namespace kalvo
