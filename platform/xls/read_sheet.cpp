#include "platform/xls/read_sheet.h"

#include <algorithm>
#include <array>
#include <set>
#include <span>
#include <utility>

#include "platform/xls/read_cells.h"
#include "platform/xls/workbook_reasons.h"

namespace kalvo {

namespace {

// Before which records new ones come, and after which.
// Source: [MS-XLS] 2.1.7.20.5, Worksheet Substream.
constexpr auto kBehindBreaks = std::to_array<std::uint16_t>(
    {biff::kVerticalPageBreaks, biff::kHeader, biff::kFooter, biff::kHCenter, biff::kVCenter,
     biff::kLeftMargin, biff::kRightMargin, biff::kTopMargin, biff::kBottomMargin, biff::kPls,
     biff::kSetup, biff::kProtect, biff::kDefColWidth, biff::kColInfo});
constexpr auto kBehindProtection =
    std::to_array<std::uint16_t>({biff::kDefColWidth, biff::kColInfo, biff::kScenarios, biff::kSort,
                                  biff::kFilterMode, biff::kAutoFilterInfo});
constexpr auto kBeforeMerges = std::to_array<std::uint16_t>(
    {biff::kWindow2, biff::kScale, biff::kPane, biff::kSelection, biff::kUserViewEnd});

bool IsOneOf(std::uint16_t type, std::span<const std::uint16_t> types) {
  return std::ranges::find(types, type) != types.end();
}

void MakePlaceBefore(Sheet& sheet, std::uint16_t type, std::span<const std::uint16_t> behind) {
  const auto place = std::ranges::find_if(
      sheet.head, [behind](const Record& record) { return IsOneOf(record.type, behind); });
  sheet.head.insert(place, {type, {}, {}});
}

void MakePlaceOfMerges(Sheet& sheet) {
  const auto last = std::find_if(sheet.tail.rbegin(), sheet.tail.rend(), [](const Record& record) {
    return IsOneOf(record.type, kBeforeMerges);
  });
  sheet.tail.insert(last.base(), {biff::kMergeCells, {}, {}});
}

// A length of paper; what is none, or longer than any sheet of it, is taken as none.
double ReadInches(RecordReader& reader) {
  const double inches = reader.F64();
  return inches >= 0 && inches < 50 ? inches : 0;
}

void ReadSetup(RecordReader& reader, PageSetup& page) {
  const auto paper = static_cast<int>(reader.U16());
  const auto scale = static_cast<int>(reader.U16());
  reader.Skip(2);
  page.fit_width = static_cast<int>(reader.U16());
  page.fit_height = static_cast<int>(reader.U16());
  const unsigned flags = reader.U16();
  const bool initialised = (flags & 4U) == 0;
  if (initialised) {
    page.paper = paper;
    page.scale = std::clamp(scale, 10, 400);
    page.landscape = (flags & 0x42U) == 0;
  }
  reader.Skip(4);
  page.header_margin = ReadInches(reader);
  page.footer_margin = ReadInches(reader);
}

// A count of characters without the space beside the text, as a width: five points of the screen
// more (ECMA-376 Part 1, 18.3.1.81, sheetFormatPr), in whole steps of eight, where "0" is seven
// wide. So 8 characters are the 64 points that a new sheet's columns have.
double DefaultWidth(unsigned characters) {
  const unsigned steps = (characters * 7 + 5 + 7) / 8;
  return steps * 8 / 7.0;
}

void ReadColumns(RecordReader& reader, Sheet& sheet) {
  ColumnSpan span;
  span.first = static_cast<int>(reader.U16());
  span.last = std::min(static_cast<int>(reader.U16()), kMostColumns - 1);
  span.width = reader.U16() / 256.0;
  span.format = static_cast<std::uint16_t>(reader.U16());
  span.hidden = (reader.U16() & 1U) != 0;
  if (span.first <= span.last && sheet.columns.size() < std::size_t{kMostColumns}) {
    sheet.columns.push_back(span);
  }
}

void ReadBreaks(RecordReader& reader, Sheet& sheet) {
  for (unsigned count = reader.U16(); count > 0 && reader.left() >= 6; --count) {
    PageBreak page_break;
    page_break.row = static_cast<int>(reader.U16());
    page_break.first_column = static_cast<int>(reader.U16());
    page_break.last_column = static_cast<int>(reader.U16());
    sheet.breaks.push_back(page_break);
  }
  std::ranges::stable_sort(sheet.breaks, {}, &PageBreak::row);
}

void ReadColumnBreaks(RecordReader& reader, Sheet& sheet) {
  for (unsigned count = reader.U16(); count > 0 && reader.left() >= 6; --count) {
    sheet.column_breaks.push_back(static_cast<int>(reader.U16()));
    reader.Skip(4);
  }
}

// Reads a record that says something about the sheet, if it is one.
void ReadSetting(const Record& record, Sheet& sheet) {
  RecordReader reader(record);
  PageSetup& page = sheet.page;
  switch (record.type) {
    case biff::kHeader:
      if (reader.left() > 0) page.header = reader.Text();
      break;
    case biff::kFooter:
      if (reader.left() > 0) page.footer = reader.Text();
      break;
    case biff::kLeftMargin:
      page.left = ReadInches(reader);
      break;
    case biff::kRightMargin:
      page.right = ReadInches(reader);
      break;
    case biff::kTopMargin:
      page.top = ReadInches(reader);
      break;
    case biff::kBottomMargin:
      page.bottom = ReadInches(reader);
      break;
    case biff::kHCenter:
      page.centre_horizontally = reader.U16() != 0;
      break;
    case biff::kVCenter:
      page.centre_vertically = reader.U16() != 0;
      break;
    case biff::kPrintGrid:
      page.print_grid = (reader.U16() & 1U) != 0;
      break;
    case biff::kSetup:
      ReadSetup(reader, page);
      break;
    case biff::kWsBool:
      page.fit_to_pages = (reader.U16() & 0x0100U) != 0;
      break;
    case biff::kDefColWidth:
      sheet.default_width = DefaultWidth(reader.U16());
      break;
    case biff::kStandardWidth:
      sheet.default_width = reader.U16() / 256.0;
      break;
    case biff::kDefaultRowHeight:
      reader.Skip(2);
      sheet.default_height_twips = static_cast<int>(reader.U16());
      break;
    case biff::kColInfo:
      ReadColumns(reader, sheet);
      break;
    case biff::kVerticalPageBreaks:
      ReadColumnBreaks(reader, sheet);
      break;
    default:
      break;
  }
}

// The types whose records are made anew; the four of protection have one place.
std::uint16_t PlaceTypeOf(std::uint16_t type) {
  switch (type) {
    case biff::kHorizontalPageBreaks:
    case biff::kMergeCells:
      return type;
    case biff::kProtect:
    case biff::kScenarioProtect:
    case biff::kObjectProtect:
    case biff::kPassword:
      return biff::kProtect;
    default:
      return 0;
  }
}

bool ReadMerges(RecordReader& reader, Sheet& sheet) {
  for (unsigned count = reader.U16(); count > 0; --count) {
    CellRange range;
    range.first_row = static_cast<int>(reader.U16());
    range.last_row = static_cast<int>(reader.U16());
    range.first_column = static_cast<int>(reader.U16());
    range.last_column = static_cast<int>(reader.U16());
    if (!reader.ok() || range.first_row > range.last_row ||
        range.first_column > range.last_column || range.last_column >= kMostColumns) {
      return false;
    }
    sheet.merges.push_back(range);
  }
  return reader.ok();
}

// Reads a record that is made anew when the sheet is written.
Outcome ReadRenewed(const Record& record, Sheet& sheet) {
  RecordReader reader(record);
  switch (record.type) {
    case biff::kHorizontalPageBreaks:
      ReadBreaks(reader, sheet);
      break;
    case biff::kMergeCells:
      if (!ReadMerges(reader, sheet)) return Because(workbook_reason::kDamaged);
      break;
    case biff::kProtect:
      sheet.protection.cells = reader.U16() != 0;
      break;
    case biff::kScenarioProtect:
      sheet.protection.scenarios = reader.U16() != 0;
      break;
    case biff::kObjectProtect:
      sheet.protection.objects = reader.U16() != 0;
      break;
    default:
      sheet.protection.password = static_cast<std::uint16_t>(reader.U16());
      break;
  }
  return Done{};
}

// Which records of a substream are at its own level, and not of one within it.
std::vector<bool> OwnLevel(const std::vector<Record>& records) {
  std::vector<bool> own(records.size());
  int depth = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    depth += records[i].type == biff::kBof ? 1 : 0;
    own[i] = depth == 1;
    depth -= records[i].type == biff::kEof ? 1 : 0;
  }
  return own;
}

// The records from `first` up to `end` are those of the cells.
struct CellTable {
  std::size_t first = 0;
  std::size_t end = 0;
};

CellTable FindCellTable(const std::vector<Record>& records, const std::vector<bool>& own) {
  std::optional<std::size_t> first;
  std::size_t end = 0;
  std::size_t without_any = records.size() - 1;
  for (std::size_t i = records.size(); i-- > 0;) {
    if (!own[i]) continue;
    const std::uint16_t type = records[i].type;
    if (type == biff::kDimensions || IsCellRecord(type)) {
      first = i;
      end = std::max(end, i + 1);
    }
    if (type == biff::kWindow2) without_any = i;
  }
  return first ? CellTable{*first, end} : CellTable{without_any, without_any};
}

}  // namespace

Outcome ReadSheet(std::vector<Record> records, Workbook& workbook, Sheet& sheet,
                  CellAllowance& allowance) {
  const std::vector<bool> own = OwnLevel(records);
  const CellTable table = FindCellTable(records, own);
  CellTableReader cells(workbook, sheet, allowance);
  std::set<std::uint16_t> places;
  for (std::size_t i = 0; i < records.size(); ++i) {
    Record& record = records[i];
    const bool in_table = i >= table.first && i < table.end;
    std::vector<Record>& around = i < table.first || in_table ? sheet.head : sheet.tail;
    if (own[i]) {
      const std::uint16_t type = record.type;
      if (type == biff::kIndex || type == biff::kDbCell || type == biff::kDimensions) continue;
      if (const std::uint16_t place = PlaceTypeOf(type); place != 0) {
        Outcome read = ReadRenewed(record, sheet);
        if (!read) return read;
        if (places.insert(place).second) around.push_back({place, {}, {}});
        continue;
      }
      if (IsCellRecord(type)) {
        Outcome read = cells.Read(std::move(record));
        if (!read) return read;
        continue;
      }
      ReadSetting(record, sheet);
    }
    if (!in_table || !cells.Carry(record)) around.push_back(std::move(record));
  }
  if (!places.contains(biff::kHorizontalPageBreaks)) {
    MakePlaceBefore(sheet, biff::kHorizontalPageBreaks, kBehindBreaks);
  }
  if (!places.contains(biff::kProtect)) {
    MakePlaceBefore(sheet, biff::kProtect, kBehindProtection);
  }
  if (!places.contains(biff::kMergeCells)) MakePlaceOfMerges(sheet);
  return Done{};
}

}  // namespace kalvo
