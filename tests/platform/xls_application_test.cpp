#include "platform/xls/xls_application.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/xls/cell_text.h"
#include "platform/xls/workbook_file.h"
#include "platform/xls/workbook_reasons.h"
#include "study/memory_disk.h"
#include "tests/platform/biff_stream.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

const std::filesystem::path kTemplate = "/program/template.xls";
const std::filesystem::path kReport = "/studies/ASCII/b_RCO.XLS";
constexpr const char* kPassword = "(*1234567890*)";

/// Notes what it is to paint.
class NotedPages : public WorkbookPages {
 public:
  Result<bool> Print(const Workbook& workbook, const PrintOrder& order) override {
    noted += "print " + order.printer + " x" + std::to_string(order.copies) + " of " +
             std::to_string(workbook.sheets.size()) + "; ";
    return true;
  }
  Outcome Preview(const Workbook& /*workbook*/) override {
    noted += "preview; ";
    return Done{};
  }
  Result<std::string> MakePdf(const Workbook& /*workbook*/) override {
    if (fails) return FileError{{}, "Δεν γίνεται"};
    return std::string("%PDF");
  }

  std::string noted;
  bool fails = false;
};

std::string TemplateBytes() {
  const std::filesystem::path path =
      std::filesystem::path(KALVO_SOURCE_DIR) / "tests/platform/template.xls";
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// Row and column from 1, of the first sheet.
CellFormat FormatAt(const Workbook& workbook, int row, int column) {
  const Cell* cell = workbook.sheets[0].FindCell(row - 1, column - 1);
  return cell == nullptr ? CellFormat() : workbook.FormatOf(cell->format);
}

class XlsApplicationTest : public testing::Test {
 protected:
  XlsApplicationTest() { PutTemplate(TemplateBytes()); }

  void PutTemplate(std::string bytes) { ASSERT_TRUE(memory_.Write(kTemplate, std::move(bytes))); }
  std::unique_ptr<OpenWorkbook> Open() {
    auto book = application_.Open(kTemplate, kPassword);
    EXPECT_TRUE(book) << (book ? "" : book.error().Line());
    return book ? std::move(*book) : nullptr;
  }
  Workbook Saved() {
    auto file = ReadWorkbookFile(*memory_.Read(kReport));
    EXPECT_TRUE(file);
    return file ? std::move(file->workbook) : Workbook();
  }
  std::string ReasonFor(std::string bytes) {
    PutTemplate(std::move(bytes));
    const auto book = application_.Open(kTemplate, kPassword);
    if (book) return "(opened)";
    EXPECT_EQ(book.error().file, kTemplate);
    return book.error().reason;
  }

  MemoryDisk memory_;
  FailingDisk disk_{memory_};
  NotedPages pages_;
  XlsApplication application_{disk_, pages_};
};

std::string Shown(const Workbook& workbook, int sheet, int row, int column) {
  const Cell* cell = workbook.sheets[static_cast<std::size_t>(sheet)].FindCell(row - 1, column - 1);
  return cell == nullptr ? "(no cell)" : CellText(workbook, *cell, Separators{',', '.'});
}

// A report of three pages, as one is filled.
void Fill(OpenWorkbook& book) {
  for (int page = 1; page < 3; ++page) {
    book.CopyRows(0, {1, 59}, 0, 59 * page + 1);
    book.BreakBefore(0, 59 * page + 1);
  }
  for (int page = 0; page < 3; ++page) {
    book.PutText(0, 59 * page + 4, 1, "Κτίριο «Ω» & Υιοί, όροφος Γ΄");
    for (int row = 18; row < 58; ++row) {
      book.PutNumber(0, 59 * page + row, 1, 40 * page + row - 17);
      book.PutText(0, 59 * page + row, 2, "ANT/" + std::to_string(row));
      book.PutNumber(0, 59 * page + row, 3, 1234.56);
      book.PutNumber(0, 59 * page + row, 5, -0.1234);
    }
  }
  book.Protect(kPassword);
}

TEST_F(XlsApplicationTest, FillsATemplateAndSavesIt) {
  const auto book = Open();
  ASSERT_NE(book, nullptr);
  EXPECT_EQ(book->FindSheet("ΑΠΟΤΕΛΈΣΜΑΤΑ"), 0);
  EXPECT_EQ(book->FindSheet("Sheet2"), 1);
  EXPECT_EQ(book->FindSheet("Sheet3"), std::nullopt);
  Fill(*book);
  ASSERT_TRUE(book->SaveAs(kReport));

  const Workbook saved = Saved();
  ASSERT_EQ(saved.sheets.size(), 2U);
  const Sheet& sheet = saved.sheets[0];
  EXPECT_EQ(Shown(saved, 0, 1, 1), "Μελέτη δικτύου");
  EXPECT_EQ(Shown(saved, 0, 122, 1), "Κτίριο «Ω» & Υιοί, όροφος Γ΄");
  EXPECT_EQ(Shown(saved, 0, 175, 1), "120");
  EXPECT_EQ(Shown(saved, 0, 175, 2), "ANT/57");
  EXPECT_EQ(Shown(saved, 0, 175, 3), "1.234,6");
  EXPECT_EQ(Shown(saved, 0, 175, 5), "-0,123 mm");
  EXPECT_EQ(Shown(saved, 1, 2, 3), "συγχώνευση");
  EXPECT_EQ(sheet.RowHeightPoints(174), 15);
  EXPECT_EQ(sheet.RowHeightPoints(176), 20);
  EXPECT_EQ(sheet.merges.size(), 6U);
  EXPECT_EQ(std::ranges::count(sheet.merges, CellRange{176, 176, 0, 8}), 1);
  EXPECT_EQ(sheet.breaks, (std::vector<PageBreak>{{59}, {118}}));
  EXPECT_EQ(sheet.FindCell(134, 8)->format, sheet.FindCell(16, 8)->format);
  for (const Sheet& barred : saved.sheets) {
    EXPECT_TRUE(barred.protection.cells && barred.protection.objects &&
                barred.protection.scenarios);
    EXPECT_EQ(barred.protection.password, saved.sheets[0].protection.password);
  }
}

TEST_F(XlsApplicationTest, MakesCellsBoldAndLeavesTheirNeighboursAlone) {
  const auto book = Open();
  const CellFormat before = FormatAt(ReadWorkbookFile(TemplateBytes())->workbook, 18, 3);
  ASSERT_FALSE(before.font.bold);
  for (const int row : {18, 19, 20}) book->PutText(0, row, 3, "(DN 15)");
  book->Embolden(0, 18, 3);
  book->Embolden(0, 20, 3);
  book->Embolden(0, 1, 1);  // bold already
  book->Embolden(0, 300, 3);
  ASSERT_TRUE(book->SaveAs(kReport));
  const Workbook saved = Saved();
  const CellFormat bold = FormatAt(saved, 18, 3);
  EXPECT_TRUE(bold.font.bold);
  EXPECT_EQ(bold.font.name, before.font.name);
  EXPECT_EQ(bold.font.height_points, before.font.height_points);
  EXPECT_EQ(bold.number_format, before.number_format);
  EXPECT_EQ(bold.right, before.right);
  EXPECT_FALSE(FormatAt(saved, 19, 3).font.bold);
  EXPECT_TRUE(FormatAt(saved, 20, 3).font.bold);
  EXPECT_EQ(saved.sheets[0].FindCell(17, 2)->format, saved.sheets[0].FindCell(19, 2)->format);
  EXPECT_TRUE(FormatAt(saved, 1, 1).font.bold);
}

TEST_F(XlsApplicationTest, SavesTheSameBytesForTheSameReport) {
  std::vector<std::string> saved;
  for (int time = 0; time < 2; ++time) {
    const auto book = Open();
    Fill(*book);
    ASSERT_TRUE(book->SaveAs(kReport));
    ASSERT_TRUE(book->SaveAs(kReport)) << "a workbook can be saved again";
    saved.push_back(*memory_.Read(kReport));
  }
  EXPECT_EQ(saved[0], saved[1]);
  const auto file = ReadWorkbookFile(saved[0]);
  EXPECT_EQ(*WriteWorkbookFile(*file), saved[0]);
}

TEST_F(XlsApplicationTest, TellsThePainterHowPagesLook) {
  const Workbook book = ReadWorkbookFile(TemplateBytes())->workbook;
  const Sheet& sheet = book.sheets[0];
  EXPECT_FALSE(sheet.page.landscape);
  EXPECT_TRUE(book.sheets[1].page.landscape);
  EXPECT_EQ(sheet.page.paper, 9);
  EXPECT_EQ(sheet.page.scale, 85);
  EXPECT_EQ(sheet.page.left, 0.5);
  EXPECT_EQ(sheet.page.top, 0.75);
  EXPECT_EQ(sheet.page.header, "");
  EXPECT_EQ(sheet.page.footer, "&Lκτίριο&RΣελίδα &P / &N");
  EXPECT_TRUE(sheet.page.centre_horizontally);
  EXPECT_EQ(sheet.ColumnWidth(8), 14);
  const CellFormat& head = book.FormatOf(sheet.FindCell(16, 0)->format);
  EXPECT_TRUE(head.font.italic);
  EXPECT_EQ(head.font.colour, 0x123456U);
  EXPECT_EQ(head.top.style, LineStyle::kMedium);
  EXPECT_EQ(head.bottom.style, LineStyle::kDouble);
  EXPECT_EQ(head.fill_pattern, 1);
  EXPECT_EQ(head.fill_colour, 0xCCCCFFU);
  const CellFormat& title = book.FormatOf(sheet.FindCell(0, 0)->format);
  EXPECT_EQ(title.font.height_points, 14);
  EXPECT_TRUE(title.font.bold && title.wrap);
  EXPECT_EQ(title.vertical, VerticalAlign::kCentre);
  EXPECT_EQ(book.FormatOf(sheet.FindCell(3, 0)->format).indent, 2);
  EXPECT_EQ(CellAlign(book, *sheet.FindCell(57, 0)), HorizontalAlign::kRight);
  EXPECT_EQ(CellAlign(book, *sheet.FindCell(57, 2)), HorizontalAlign::kCentre);
  EXPECT_EQ(Shown(book, 0, 58, 3), "ΑΛΗΘΗΣ");
}

TEST_F(XlsApplicationTest, CopiesRowsOverOthersOfAnotherSheet) {
  const auto book = Open();
  book->PutText(1, 2, 9, "μακριά");
  book->CopyRows(1, {1, 2}, 0, 59);
  book->SetRowHeight(0, 58, 7);
  book->PutText(0, 58, 1, "");
  ASSERT_TRUE(book->SaveAs(kReport));
  const Workbook saved = Saved();
  EXPECT_EQ(Shown(saved, 0, 59, 1), "άλλη σελίδα");
  EXPECT_EQ(Shown(saved, 0, 60, 9), "μακριά");
  EXPECT_EQ(Shown(saved, 0, 58, 1), "");
  EXPECT_EQ(saved.sheets[0].RowHeightPoints(57), 7);
  EXPECT_EQ(saved.sheets[0].RowHeightPoints(59), 25);
  EXPECT_EQ(saved.sheets[0].merges, (std::vector<CellRange>{{0, 1, 0, 8}, {59, 59, 2, 4}}))
      << "what was merged below gives way, what is above stays";
  EXPECT_EQ(saved.sheets[1].merges.size(), 1U);
}

TEST_F(XlsApplicationTest, HandsItsPagesToThePainter) {
  const auto book = Open();
  ASSERT_TRUE(book->Preview());
  ASSERT_TRUE(book->Print({"Laser", 2}));
  EXPECT_EQ(pages_.noted, "preview; print Laser x2 of 2; ");
  ASSERT_TRUE(book->SaveAsPdf("/studies/b.PDF"));
  EXPECT_EQ(*memory_.Read("/studies/b.PDF"), "%PDF");
  pages_.fails = true;
  EXPECT_EQ(book->SaveAsPdf("/studies/c.PDF").error().Line(), "Δεν γίνεται : /studies/c.PDF");
}

TEST_F(XlsApplicationTest, SaysWhatDoesNotFit) {
  const auto put = [this](const auto& fill) {
    const auto book = Open();
    fill(*book);
    const Outcome saved = book->SaveAs(kReport);
    EXPECT_EQ(book->Preview().ok(), saved.ok());
    return saved ? "(saved)" : saved.error().reason;
  };
  const std::string reason(workbook_reason::kDoesNotFit);
  EXPECT_EQ(put([](OpenWorkbook& book) { book.PutNumber(0, 65536, 256, 1); }), "(saved)");
  EXPECT_EQ(put([](OpenWorkbook& book) { book.PutNumber(0, 65537, 1, 1); }), reason);
  EXPECT_EQ(put([](OpenWorkbook& book) { book.PutText(0, 1, 257, "x"); }), reason);
  EXPECT_EQ(put([](OpenWorkbook& book) { book.PutText(2, 1, 1, "x"); }), reason);
  EXPECT_EQ(put([](OpenWorkbook& book) { book.CopyRows(0, {1, 59}, 0, 65530); }), reason);
  EXPECT_EQ(put([](OpenWorkbook& book) {
              for (int row = 2; row < 2000; ++row) book.BreakBefore(0, row);
            }),
            reason);
}

TEST_F(XlsApplicationTest, RefusesWhatIsNoWorkbookByItsName) {
  EXPECT_EQ(ReasonFor(""), workbook_reason::kEmpty);
  EXPECT_EQ(ReasonFor("PK\3\4 and so on"), workbook_reason::kNewer);
  EXPECT_EQ(ReasonFor("α;β\n1;2\n"), workbook_reason::kOtherKind);
  EXPECT_EQ(ReasonFor(BytesOf("09 04 06 00 00 00 10 00")), workbook_reason::kOlder);
  EXPECT_EQ(ReasonFor(CompoundWith("WordDocument", "text")), workbook_reason::kOtherKind);
  EXPECT_EQ(ReasonFor(CompoundWith("Book", "text")), workbook_reason::kOlder);
  EXPECT_EQ(ReasonFor(CompoundWith("EncryptedPackage", "x")), workbook_reason::kEncrypted);
  EXPECT_EQ(ReasonFor(CompoundWith("Workbook", "")), workbook_reason::kCut);
  EXPECT_EQ(application_.Open("/program/none.xls", "").error().kind, FileErrorKind::kMissing);
}

TEST_F(XlsApplicationTest, RefusesATemplateThatIsCut) {
  const std::string bytes = TemplateBytes();
  for (std::size_t length = 0; length < bytes.size(); length += 61) {
    const std::string reason = ReasonFor(bytes.substr(0, length));
    EXPECT_TRUE(reason != "(opened)" || length + 512 > bytes.size()) << length;
  }
}

TEST_F(XlsApplicationTest, KeepsTheOldFileWhereTheDiskFails) {
  ASSERT_TRUE(memory_.Write(kReport, "old"));
  const auto book = Open();
  disk_.FailAfterBytes(1000);
  const Outcome saved = book->SaveAs(kReport);
  ASSERT_FALSE(saved);
  EXPECT_EQ(*memory_.Read(kReport), "old");
  disk_.Mend();
  EXPECT_TRUE(book->SaveAs(kReport));
  disk_.FailAtRead(1);
  EXPECT_EQ(application_.Open(kTemplate, "").error().reason, "Σφάλμα του δίσκου");
}

// A number that a text or a formula gave way to, and back; none of what is not finite.
TEST_F(XlsApplicationTest, PutsValuesOverOthers) {
  const auto book = Open();
  book->PutText(0, 58, 1, "κείμενο");
  book->PutNumber(0, 58, 4, 2.25);
  book->PutNumber(0, 58, 2, std::numeric_limits<double>::infinity());
  book->PutNumber(1, 40, 40, 0.5);
  ASSERT_TRUE(book->SaveAs(kReport));
  const Workbook saved = Saved();
  EXPECT_EQ(Shown(saved, 0, 58, 1), "κείμενο");
  EXPECT_EQ(Shown(saved, 0, 58, 4), "2,3");
  EXPECT_EQ(saved.sheets[0].FindCell(57, 3)->formula, nullptr);
  EXPECT_EQ(Shown(saved, 0, 58, 2), "#NUM!");
  EXPECT_EQ(Shown(saved, 1, 40, 40), "0,5");
}

}  // namespace
}  // namespace kalvo
