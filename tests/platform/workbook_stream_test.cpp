#include <gtest/gtest.h>

#include <algorithm>

#include "platform/xls/read_workbook.h"
#include "platform/xls/workbook_reasons.h"
#include "platform/xls/write_workbook.h"
#include "tests/platform/biff_stream.h"

namespace kalvo {
namespace {

// Bodies of a cell's record begin with its row, column and format.
constexpr const char* kPrintSetup =
    "09 00 55 00 01 00 01 00 01 00 00 00 58 02 58 02 00 00 00 00 00 00 E0 3F 00 00 00 00 00 00 D0 "
    "3F"
    " 01 00";

Workbook Read(const BiffStream& sheet, const BiffStream& extra = {}) {
  auto workbook = ReadWorkbookStream(StreamWith(sheet, extra));
  EXPECT_TRUE(workbook) << (workbook ? "" : workbook.error().reason);
  return workbook ? std::move(*workbook) : Workbook();
}

double NumberAt(const Workbook& workbook, int row, int column) {
  const Cell* cell = workbook.sheets[0].FindCell(row, column);
  return cell == nullptr ? -1 : std::get<double>(cell->value);
}

std::string_view TextAt(const Workbook& workbook, int row, int column) {
  const Cell* cell = workbook.sheets[0].FindCell(row, column);
  return cell == nullptr ? "(no cell)" : workbook.TextOf(*cell);
}

// The types of the records of the sheet, as it is written.
std::vector<int> TypesOf(const Workbook& workbook) {
  const std::string stream = WriteWorkbookStream(workbook);
  const std::size_t begin = ReadSubstream(stream, 0)->length;
  const auto sheet = ReadSubstream(stream, begin);
  std::vector<int> types;
  for (const Record& record : sheet->records) types.push_back(record.type);
  return types;
}

TEST(WorkbookStream, HoldsCellsOfEveryKind) {
  BiffStream extra;
  extra.Add(biff::kSst, "01 00 00 00 01 00 00 00 01 00 01 A9 03");
  BiffStream sheet;
  sheet.Add(biff::kRow, "02 00 00 00 09 00 2C 01 00 00 00 00 40 01 0F 00");
  sheet.Add(biff::kNumber, "02 00 00 00 00 00 00 00 00 00 00 00 F8 3F");  // 1.5
  sheet.Add(biff::kRk, "02 00 01 00 00 00 02 00 00 00");                  // 0 as a whole number
  sheet.Add(biff::kMulRk,
            "02 00 02 00 00 00 F6 FF FF FF 00 00 01 00 F8 3F 00 00 7B 00 00 00 04 00");
  sheet.Add(biff::kMulBlank, "02 00 05 00 00 00 00 00 06 00");
  sheet.Add(biff::kLabelSst, "02 00 07 00 00 00 00 00 00 00");
  sheet.Add(biff::kLabel, "02 00 08 00 00 00 02 00 00 61 62");
  sheet.Add(biff::kBoolErr, "03 00 00 00 00 00 01 00")
      .Add(biff::kBoolErr, "03 00 01 00 00 00 2A 01");
  const Workbook workbook = Read(sheet, extra);
  ASSERT_EQ(workbook.sheets.size(), 1U);
  EXPECT_EQ(workbook.sheets[0].name, "Φ1");
  EXPECT_DOUBLE_EQ(workbook.sheets[0].RowHeightPoints(2), 15);
  EXPECT_EQ(NumberAt(workbook, 2, 0), 1.5);
  EXPECT_EQ(NumberAt(workbook, 2, 1), 0);
  EXPECT_EQ(NumberAt(workbook, 2, 2), -3) << "30 bits with their sign";
  EXPECT_EQ(NumberAt(workbook, 2, 3), 0.015) << "hundredths of a double";
  EXPECT_EQ(workbook.sheets[0].FindCell(2, 4)->format, 0);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(workbook.sheets[0].FindCell(2, 6)->value));
  EXPECT_EQ(TextAt(workbook, 2, 7), "Ω");
  EXPECT_EQ(TextAt(workbook, 2, 8), "ab");
  EXPECT_TRUE(std::get<bool>(workbook.sheets[0].FindCell(3, 0)->value));
  EXPECT_EQ(std::get<CellError>(workbook.sheets[0].FindCell(3, 1)->value).code, 0x2A);
  const std::string written = WriteWorkbookStream(workbook);
  EXPECT_EQ(WriteWorkbookStream(*ReadWorkbookStream(written)), written);
}

TEST(WorkbookStream, KeepsWhatItDoesNotKnowInItsPlace) {
  BiffStream sheet;
  sheet.Add(biff::kIndex, "00 00 00 00").Add(0x1111, "01").Add(biff::kSetup, kPrintSetup);
  sheet.Add(0x1112, "02").Add(biff::kDimensions, "00").Add(biff::kBlank, "00 00 00 00 00 00");
  sheet.Add(0x1113, "03").Add(biff::kBlank, "01 00 00 00 00 00").Add(biff::kDbCell, "00 00");
  sheet.Add(0x1114, "04").Add(biff::kContinue, "05");
  // A chart within the sheet, with page settings of its own.
  sheet.Add(biff::kBof, "00 06 20 00").Add(biff::kSetup, "07").Add(biff::kMergeCells, "08");
  sheet.Add(biff::kEof).Add(biff::kWindow2, "06").Add(0x1115, "07");
  Workbook workbook = Read(sheet);
  EXPECT_EQ(workbook.sheets[0].page.scale, 85);
  EXPECT_EQ(TypesOf(workbook),
            (std::vector<int>{biff::kBof, 0x1111, biff::kSetup, 0x1112, biff::kDimensions,
                              biff::kRow, biff::kRow, biff::kBlank, biff::kBlank, 0x1113, 0x1114,
                              biff::kBof, biff::kSetup, biff::kMergeCells, biff::kEof,
                              biff::kWindow2, 0x1115, biff::kEof}));
  const std::string written = WriteWorkbookStream(workbook);
  EXPECT_NE(written.find(BiffStream().Add(0x1114, "04").Add(biff::kContinue, "05").bytes()),
            std::string::npos);
}

TEST(WorkbookStream, PutsNewRecordsWhereTheyBelong) {
  BiffStream sheet;
  sheet.Add(0x0225, "00 00 FF 00").Add(biff::kHeader).Add(biff::kSetup, kPrintSetup);
  sheet.Add(biff::kDefColWidth, "08 00").Add(biff::kDimensions, "00").Add(biff::kWindow2, "06");
  sheet.Add(biff::kSelection, "06").Add(0x1115, "07");
  Workbook workbook = Read(sheet);
  AddPageBreak(workbook.sheets[0], 118);
  AddPageBreak(workbook.sheets[0], 59);
  AddPageBreak(workbook.sheets[0], 59);
  workbook.sheets[0].merges.push_back({0, 1, 0, 8});
  ProtectSheets(workbook, "abcdefghij");
  EXPECT_EQ(
      TypesOf(workbook),
      (std::vector<int>{biff::kBof, 0x0225, biff::kHorizontalPageBreaks, biff::kHeader,
                        biff::kSetup, biff::kProtect, biff::kScenarioProtect, biff::kObjectProtect,
                        biff::kPassword, biff::kDefColWidth, biff::kDimensions, biff::kWindow2,
                        biff::kSelection, biff::kMergeCells, 0x1115, biff::kEof}));
  const std::string written = WriteWorkbookStream(workbook);
  BiffStream expected;
  expected.Add(biff::kHorizontalPageBreaks, "02 00 3B 00 00 00 FF 00 76 00 00 00 FF 00");
  EXPECT_NE(written.find(expected.bytes()), std::string::npos);
  expected = BiffStream().Add(biff::kProtect, "01 00").Add(biff::kScenarioProtect, "01 00");
  expected.Add(biff::kObjectProtect, "01 00").Add(biff::kPassword, "F1 FE");
  EXPECT_NE(written.find(expected.bytes()), std::string::npos);
  const Sheet again = ReadWorkbookStream(written)->sheets[0];
  EXPECT_EQ(again.merges, workbook.sheets[0].merges);
  EXPECT_EQ(again.breaks, workbook.sheets[0].breaks);
  EXPECT_EQ(again.protection.password, 0xFEF1);
}

// =A1*2 with the result "ab", and a formula of an area, which its second cell only refers to.
BiffStream Formulas() {
  BiffStream sheet;
  sheet.Add(biff::kFormula,
            "00 00 00 00 00 00 00 00 00 00 00 00 FF FF 00 00 00 00 00 00 03 00 1E 02 00");
  sheet.Add(biff::kString, "02 00 00 61 62");
  for (const std::string_view row : {"01 00", "02 00"}) {
    sheet.Add(biff::kFormula, std::string(row) +
                                  " 00 00 00 00 00 00 00 00 00 00 F8 3F 08 00 00 00 00 00 05 00"
                                  " 01 01 00 00 00");
    if (row == "01 00") sheet.Add(biff::kSharedFormula, "01 00 02 00 00 00 00 02 03 00 1E 02 00");
  }
  return sheet;
}

TEST(WorkbookStream, KeepsFormulasWithTheirResults) {
  const Workbook workbook = Read(Formulas());
  EXPECT_EQ(TextAt(workbook, 0, 0), "ab");
  EXPECT_EQ(NumberAt(workbook, 1, 0), 1.5);
  const std::string written = WriteWorkbookStream(workbook);
  const Workbook again = *ReadWorkbookStream(written);
  EXPECT_EQ(TextAt(again, 0, 0), "ab");
  EXPECT_EQ(again.texts.size(), 1U) << "a result is no shared text";
  const auto types = TypesOf(workbook);
  EXPECT_EQ(std::count(types.begin(), types.end(), biff::kFormula), 3);
  EXPECT_EQ(again.sheets[0].FindCell(1, 0)->formula->record.body[14] & 1, 1)
      << "calculated at the next opening";
}

TEST(WorkbookStream, LeavesResultsWhereTheFormulaOfAnAreaIsGone) {
  Workbook workbook = Read(Formulas());
  PutNumber(workbook, workbook.sheets[0], 1, 0, 7);
  EXPECT_EQ(NumberAt(workbook, 1, 0), 7);
  EXPECT_EQ(NumberAt(workbook, 2, 0), 1.5);
  EXPECT_EQ(workbook.sheets[0].FindCell(2, 0)->formula, nullptr);
  EXPECT_NE(workbook.sheets[0].FindCell(0, 0)->formula, nullptr);
  const auto types = TypesOf(workbook);
  EXPECT_EQ(std::count(types.begin(), types.end(), biff::kSharedFormula), 0);
}

TEST(WorkbookStream, ReadsNamedFontsColoursAndWhatIsPrinted) {
  BiffStream extra;
  for (int i = 1; i < 5; ++i) {  // fonts 1, 2, 3 and 5; none has the number 4
    extra.Add(biff::kFont, "F0 00 0A 00 08 00 BC 02 00 00 01 00 00 00 01 00 4" + std::to_string(i));
  }
  extra.Add(biff::kFormat, "A4 00 05 00 00 30 2E 30 30 30");
  extra.Add(biff::kXf, "05 00 A4 00 01 00 1A 5A 03 00 51 26 08 84 40 20 04 04 89 20");
  extra.Add(biff::kPalette, "01 00 12 34 56 00");
  extra.Add(biff::kName,
            "20 00 00 01 0B 00 00 00 01 00 00 00 00 00 00 06 3B 00 00 00 00 3A 00 00 00 08 00");
  BiffStream sheet;
  sheet.Add(biff::kColInfo, "02 00 04 00 80 0A 00 00 00 00 00 00");
  const Workbook workbook = Read(sheet, extra);
  ASSERT_EQ(workbook.formats.size(), 2U);
  const CellFormat& format = workbook.formats[1];
  EXPECT_EQ(format.font.name, "D");
  EXPECT_EQ(format.font.height_points, 12);
  EXPECT_TRUE(format.font.bold && format.font.italic && format.font.underlined &&
              format.font.struck_out);
  EXPECT_EQ(format.font.colour, 0x123456U);
  EXPECT_EQ(format.number_format, "0.000");
  EXPECT_EQ(format.horizontal, HorizontalAlign::kCentre);
  EXPECT_EQ(format.vertical, VerticalAlign::kCentre);
  EXPECT_TRUE(format.wrap);
  EXPECT_EQ(format.rotation, 90);
  EXPECT_EQ(format.indent, 3);
  EXPECT_EQ(format.left.style, LineStyle::kThin);
  EXPECT_EQ(format.right.style, LineStyle::kThick);
  EXPECT_EQ(format.top.style, LineStyle::kDouble);
  EXPECT_EQ(format.bottom.style, LineStyle::kMedium);
  EXPECT_EQ(format.fill_pattern, 1);
  EXPECT_EQ(format.fill_colour, 0xFFFFFFU);
  EXPECT_EQ(workbook.sheets[0].ColumnWidth(3), 10.5);
  EXPECT_NEAR(workbook.sheets[0].ColumnWidth(5), 9.14, 0.01) << "8 characters and their space";
  EXPECT_EQ(workbook.sheets[0].print_area, (CellRange{0, 58, 0, 8}));
}

std::string ReasonFor(const BiffStream& sheet, const BiffStream& extra = {}) {
  const auto workbook = ReadWorkbookStream(StreamWith(sheet, extra));
  return workbook ? "(read)" : workbook.error().reason;
}

TEST(WorkbookStream, CutAnywhereIsRefused) {
  const std::string stream = StreamWith(Formulas());
  for (std::size_t length = 0; length < stream.size(); ++length) {
    const auto workbook = ReadWorkbookStream(stream.substr(0, length));
    ASSERT_FALSE(workbook) << length;
    EXPECT_EQ(workbook.error().reason, workbook_reason::kCut) << length;
  }
}

TEST(WorkbookStream, WithReferencesToNowhereIsRefused) {
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kLabelSst, "00 00 00 00 00 00 01 00 00 00")),
            workbook_reason::kNoText);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kBlank, "00 00 00 00 01 00")),
            workbook_reason::kNoFormat);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kBlank, "00 00 00 01 00 00")),
            workbook_reason::kOutside);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kMulBlank, "00 00 FE FF 00 00 00 00 FF FF")),
            workbook_reason::kOutside);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kNumber, "00 00 00 00 00 00 00")),
            workbook_reason::kDamaged);
  EXPECT_EQ(
      ReasonFor(BiffStream().Add(biff::kFormula, "00 00 00 00 00 00 00 00 00 00 00 00 00 00")),
      workbook_reason::kDamaged);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kMergeCells, "01 00 05 00 01 00 00 00 00 00")),
            workbook_reason::kDamaged);
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kMergeCells, "FF FF")), workbook_reason::kDamaged);
}

TEST(WorkbookStream, ThatIsEncryptedOrWithoutSheetsIsRefused) {
  EXPECT_EQ(ReasonFor({}, BiffStream().Add(biff::kFilePass, "01 00 01 00")),
            workbook_reason::kEncrypted);
  BiffStream chart_only;
  chart_only.Add(biff::kBof, kGlobalsBof).Add(biff::kBoundSheet, "00 00 00 00 00 02 01 00 41");
  chart_only.Add(biff::kEof);
  EXPECT_EQ(ReadWorkbookStream(chart_only.bytes()).error().reason, workbook_reason::kNoSheets);
  EXPECT_EQ(ReadWorkbookStream(BiffStream().Add(biff::kBof, kGlobalsBof).Add(biff::kEof).bytes())
                .error()
                .reason,
            workbook_reason::kNoSheets);
}

// Two sheets in the same bytes, and a sheet that is the workbook's own part.
TEST(WorkbookStream, WithSheetsThatShareTheirBytesIsRefused) {
  BiffStream extra;
  for (int i = 0; i < 9; ++i) extra.Add(biff::kBoundSheet, "00 00 00 00 00 00 01 00 41");
  EXPECT_EQ(ReasonFor({}, extra), workbook_reason::kDamaged);
}

// A row that gives its cells look 9, a column that gives them look 7; there is one look.
TEST(WorkbookStream, GivesNewCellsALookThatIsThere) {
  BiffStream sheet;
  sheet.Add(biff::kColInfo, "00 00 04 00 80 0A 07 00 00 00 00 00");
  sheet.Add(biff::kRow, "02 00 00 00 09 00 2C 01 00 00 00 00 80 01 09 00");
  Workbook workbook = Read(sheet);
  PutNumber(workbook, workbook.sheets[0], 2, 0, 7);
  PutNumber(workbook, workbook.sheets[0], 3, 1, 7);
  PutNumber(workbook, workbook.sheets[0], 3, 9, 7);
  EXPECT_TRUE(ReadWorkbookStream(WriteWorkbookStream(workbook)));
  EXPECT_EQ(ReadWorkbookStream(BiffStream()
                                   .Add(biff::kBof, kGlobalsBof)
                                   .Add(biff::kBoundSheet, "00 00 00 00 00 00 01 00 41")
                                   .Add(biff::kEof)
                                   .bytes())
                .error()
                .reason,
            workbook_reason::kDamaged)
      << "without any look there is no cell";
}

// A look that hangs on itself: no look is asked what it hangs on.
TEST(WorkbookStream, WithFormatsInACircleIsRead) {
  BiffStream extra;
  extra.Add(biff::kXf, "00 00 00 00 11 00 20 00 00 00 00 00 00 00 00 00 00 00 C0 20");
  EXPECT_EQ(ReasonFor(BiffStream().Add(biff::kBlank, "00 00 00 00 01 00"), extra), "(read)");
}

TEST(WorkbookStream, OfTooManyCellsIsRefused) {
  BiffStream sheet;
  for (unsigned row = 0; row < 1000; ++row) {
    ByteWriter body;
    body.U16(row).U16(0).Bytes(std::string(512, '\0')).U16(255);
    sheet.AddBytes(biff::kMulBlank, body.Take());
  }
  EXPECT_EQ(ReasonFor(sheet), workbook_reason::kTooLarge);
}

}  // namespace
}  // namespace kalvo
