#include "platform/xls/plain_workbook.h"

#include "platform/xls/read_workbook.h"
#include "platform/xls/workbook_file.h"
#include "platform/xls/workbook_reasons.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

constexpr std::string_view kSheetName = "Kalvoflume";
constexpr unsigned kPlainVersion = 0x600;
constexpr unsigned kOfWorkbook = 5;
constexpr unsigned kOfSheet = 0x10;
constexpr int kStyleLooks = 15;  // that go before the one of cells

void AppendBytes(std::string& stream, std::uint16_t type, ByteWriter body = {}) {
  AppendRecord(stream, {type, body.Take(), {}});
}

void AppendBof(std::string& stream, unsigned kind) {
  ByteWriter body;
  body.U16(kPlainVersion).U16(kind).U16(0x0DBB).U16(0x07CC).U32(0).U32(kPlainVersion >> 8U);
  AppendBytes(stream, biff::kBof, std::move(body));
}

// Arial of 10 points.
void AppendFont(std::string& stream) {
  constexpr std::string_view kName = "Arial";
  ByteWriter body;
  body.U16(200).U16(0).U16(0x7FFF).U16(400).U16(0).U8(0).U8(0).U8(0).U8(0);
  body.U8(kName.size()).U8(0).Bytes(kName);
  AppendBytes(stream, biff::kFont, std::move(body));
}

// Source: [MS-XLS] 2.4.353, XF: of a style, or of cells on the first style.
void AppendLook(std::string& stream, bool is_style) {
  ByteWriter body;
  body.U16(0).U16(0).U16(is_style ? 0xFFF5U : 1U).U8(0x20).U8(0).U8(0);
  body.U8(is_style ? 0xF4U : 0U).U32(0).U32(0).U16(0x20C0);
  AppendBytes(stream, biff::kXf, std::move(body));
}

void AppendSheetEntry(std::string& stream, std::size_t offset) {
  ByteWriter body;
  body.U32(static_cast<std::uint32_t>(offset)).U16(0);
  body.U8(kSheetName.size()).U8(0).Bytes(kSheetName);
  AppendBytes(stream, biff::kBoundSheet, std::move(body));
}

std::string GlobalsOf(std::size_t sheet_offset) {
  std::string stream;
  AppendBof(stream, kOfWorkbook);
  for (int i = 0; i < 4; ++i) AppendFont(stream);  // the least that there are
  for (int i = 0; i < kStyleLooks; ++i) AppendLook(stream, true);
  AppendLook(stream, false);
  AppendSheetEntry(stream, sheet_offset);
  AppendBytes(stream, biff::kSst, ByteWriter().U32(0).U32(0));
  AppendBytes(stream, biff::kEof);
  return stream;
}

// The stream of a workbook with one sheet, which is empty.
std::string EmptyStream() {
  std::string stream = GlobalsOf(GlobalsOf(0).size());
  AppendBof(stream, kOfSheet);
  AppendBytes(stream, biff::kDimensions, ByteWriter().U32(0).U32(0).U16(0).U16(0).U16(0));
  ByteWriter window;
  window.U16(0x06B6).U16(0).U16(0).U32(0x40).U16(0).U16(0).U32(0);
  AppendBytes(stream, biff::kWindow2, std::move(window));
  AppendBytes(stream, biff::kEof);
  return stream;
}

void PutValue(Workbook& workbook, int row, int column, const PrintValue& value) {
  Sheet& sheet = workbook.sheets.front();
  if (const auto* whole = std::get_if<std::int32_t>(&value)) {
    PutNumber(workbook, sheet, row, column, *whole);
  } else if (const auto* single = std::get_if<float>(&value)) {
    PutNumber(workbook, sheet, row, column, ThroughText(*single));
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    PutText(workbook, sheet, row, column, text->substr(0, text->find_last_not_of(' ') + 1));
  }
}

}  // namespace

Result<std::string> MakePlainWorkbook(const PrintTable& table) {
  if (table.lines.size() >= kMostRows || table.columns.size() > kMostColumns) {
    return Because(workbook_reason::kDoesNotFit);
  }
  auto workbook = ReadWorkbookStream(EmptyStream());
  if (!workbook) return workbook.error();
  int column = 0;
  for (const PrintColumn& named : table.columns) {
    PutText(*workbook, workbook->sheets.front(), 0, column++, named.name);
  }
  int row = 0;
  for (const PrintLine& line : table.lines) {
    ++row;
    column = 0;
    for (const PrintValue& value : line) PutValue(*workbook, row, column++, value);
  }
  WorkbookFile file;
  file.workbook = std::move(*workbook);
  file.root.is_storage = true;
  file.root.entries.emplace_back().name = "Workbook";
  return WriteWorkbookFile(file);
}

}  // namespace kalvo
