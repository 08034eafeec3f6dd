#include "platform/xls/read_workbook.h"

#include <algorithm>
#include <utility>

#include "platform/xls/read_formats.h"
#include "platform/xls/read_sheet.h"
#include "platform/xls/workbook_reasons.h"

namespace kalvo {

namespace {

// The built-in name of what is printed, and the token of an area on a sheet.
// Source: [MS-XLS], Lbl and PtgArea3d.
constexpr unsigned kBuiltIn = 0x20;
constexpr char kPrintArea = 6;
constexpr unsigned kArea3d = 0x3B;

struct SheetEntry {
  std::uint32_t offset = 0;
  bool is_worksheet = false;
  bool hidden = false;
  std::string name;
};

// Source: [MS-XLS], BoundSheet8.
Result<SheetEntry> ReadSheetEntry(const Record& record) {
  RecordReader reader(record);
  SheetEntry entry;
  entry.offset = reader.U32();
  entry.hidden = (reader.U8() & 3U) != 0;
  entry.is_worksheet = reader.U8() == 0;
  entry.name = reader.ShortText();
  if (!reader.ok()) return Because(workbook_reason::kDamaged);
  return entry;
}

// A name that says what part of a sheet is printed; one of several parts is passed over.
void ReadPrintArea(const Record& record, std::vector<Sheet>& sheets) {
  RecordReader reader(record);
  const unsigned flags = reader.U16();
  reader.Skip(1);
  const unsigned characters = reader.U8();
  const unsigned formula_bytes = reader.U16();
  reader.Skip(2);
  const std::size_t sheet = reader.U16();
  reader.Skip(5);
  const std::string_view name = reader.Bytes(1);
  const unsigned token = reader.U8();
  reader.Skip(2);
  CellRange range;
  range.first_row = static_cast<int>(reader.U16());
  range.last_row = static_cast<int>(reader.U16());
  range.first_column = static_cast<int>(reader.U16() & 0xFFU);
  range.last_column = static_cast<int>(reader.U16() & 0xFFU);
  const bool is_one_area = (flags & kBuiltIn) != 0 && characters == 1 && formula_bytes == 11 &&
                           name == std::string_view(&kPrintArea, 1) && token == kArea3d;
  if (reader.ok() && is_one_area && sheet >= 1 && sheet <= sheets.size()) {
    sheets[sheet - 1].print_area = range;
  }
}

Result<std::vector<SheetEntry>> SheetEntriesOf(const std::vector<Record>& globals) {
  std::vector<SheetEntry> entries;
  for (const Record& record : globals) {
    if (record.type == biff::kFilePass) return Because(workbook_reason::kEncrypted);
    if (record.type != biff::kBoundSheet) continue;
    auto entry = ReadSheetEntry(record);
    if (!entry) return entry.error();
    entries.push_back(std::move(*entry));
  }
  if (std::ranges::none_of(entries, &SheetEntry::is_worksheet)) {
    return Because(workbook_reason::kNoSheets);
  }
  return entries;
}

// Reads the shared strings. Their record keeps its place and loses its body; the one with their
// places in the file goes.
Outcome TakeTexts(Workbook& workbook) {
  std::vector<Record>& globals = workbook.globals;
  std::erase_if(globals, [](const Record& record) { return record.type == biff::kExtSst; });
  const auto found = std::ranges::find(globals, biff::kSst, &Record::type);
  if (found == globals.end()) {
    globals.insert(globals.end() - 1, {biff::kSst, {}, {}});
    return Done{};
  }
  auto texts = ReadSharedTexts(*found);
  if (!texts) return texts.error();
  workbook.texts = std::move(*texts);
  *found = {biff::kSst, {}, {}};
  // A second one would have no cells.
  globals.erase(std::remove_if(found + 1, globals.end(),
                               [](const Record& record) { return record.type == biff::kSst; }),
                globals.end());
  return Done{};
}

Outcome ReadSheets(std::string_view stream, const std::vector<SheetEntry>& entries,
                   Workbook& workbook) {
  CellAllowance allowance;
  std::size_t bytes_left = stream.size();
  for (const SheetEntry& entry : entries) {
    auto substream = ReadSubstream(stream, entry.offset);
    if (!substream) return substream.error();
    // Sheets that share their bytes would grow without measure.
    if (substream->length > bytes_left) return Because(workbook_reason::kDamaged);
    bytes_left -= substream->length;
    Sheet sheet;
    sheet.name = entry.name;
    sheet.hidden = entry.hidden;
    sheet.is_worksheet = entry.is_worksheet;
    if (entry.is_worksheet) {
      Outcome read = ReadSheet(std::move(substream->records), workbook, sheet, allowance);
      if (!read) return read;
    } else {
      sheet.head = std::move(substream->records);
    }
    workbook.sheets.push_back(std::move(sheet));
  }
  return Done{};
}

}  // namespace

Result<Workbook> ReadWorkbookStream(std::string_view stream) {
  auto substream = ReadSubstream(stream, 0);
  if (!substream) return substream.error();
  Workbook workbook;
  workbook.globals = std::move(substream->records);
  const auto entries = SheetEntriesOf(workbook.globals);
  if (!entries) return entries.error();
  WorkbookFormats formats = ReadFormats(workbook.globals);
  if (formats.formats.empty()) return Because(workbook_reason::kDamaged);
  workbook.formats = std::move(formats.formats);
  workbook.default_font = std::move(formats.default_font);
  if (Outcome texts = TakeTexts(workbook); !texts) return texts.error();
  if (Outcome sheets = ReadSheets(stream, *entries, workbook); !sheets) return sheets.error();
  for (const Record& record : workbook.globals) {
    if (record.type == biff::kName) ReadPrintArea(record, workbook.sheets);
  }
  return workbook;
}

}  // namespace kalvo
