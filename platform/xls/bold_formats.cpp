#include "platform/xls/bold_formats.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kalvo {

namespace {

constexpr std::size_t kMostFormats = 4050;  // of all that a file may have
constexpr std::uint16_t kBoldWeight = 700;
constexpr unsigned kSkippedFont = 4;  // no font has that number ([MS-XLS], FontIndex)

// Places in the records. Sources: [MS-XLS] 2.4.122, Font; 2.4.353, XF; 2.5.249, StyleXF.
constexpr std::size_t kWeightOfFont = 6;
constexpr std::size_t kFontOfFormat = 0;
constexpr std::size_t kOwnParts = 9;
constexpr unsigned kOwnFont = 0x08;  // the format's font is not that of its style

void PutU16(std::string& body, std::size_t place, unsigned value) {
  ByteWriter bytes;
  bytes.U16(value);
  body.replace(place, 2, bytes.Take());
}

// Where the records of that type are.
std::vector<std::size_t> PlacesOf(const std::vector<Record>& records, std::uint16_t type) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (records[i].type == type) places.push_back(i);
  }
  return places;
}

// Puts a record behind the last of its type.
void AppendToItsType(std::vector<Record>& records, std::size_t last, Record record) {
  records.insert(records.begin() + static_cast<std::ptrdiff_t>(last) + 1, std::move(record));
}

// Adds a bold copy of a font; its number.
std::optional<unsigned> AddBoldFont(std::vector<Record>& globals, unsigned number) {
  const std::vector<std::size_t> fonts = PlacesOf(globals, biff::kFont);
  const std::size_t place = number > kSkippedFont ? number - 1 : number;
  if (place >= fonts.size()) return std::nullopt;
  Record font = globals[fonts[place]];
  if (font.body.size() < kWeightOfFont + 2) return std::nullopt;
  PutU16(font.body, kWeightOfFont, kBoldWeight);
  AppendToItsType(globals, fonts.back(), std::move(font));
  const auto added = static_cast<unsigned>(fonts.size());
  return added < kSkippedFont ? added : added + 1;
}

}  // namespace

void BoldFormats::Apply(Workbook& workbook, Sheet& sheet, int row, int column) {
  const auto in_row = sheet.rows.find(row);
  if (in_row == sheet.rows.end()) return;
  const auto cell =
      std::ranges::find(in_row->second.cells, static_cast<std::uint16_t>(column), &Cell::column);
  if (cell != in_row->second.cells.end()) cell->format = TwinOf(workbook, cell->format);
}

std::uint16_t BoldFormats::TwinOf(Workbook& workbook, std::uint16_t format) {
  if (const auto made = twins_.find(format); made != twins_.end()) return made->second;
  std::uint16_t& twin = twins_[format] = format;
  std::vector<Record>& globals = workbook.globals;
  const std::vector<std::size_t> formats = PlacesOf(globals, biff::kXf);
  if (format >= formats.size() || formats.size() >= kMostFormats ||
      formats.size() != workbook.formats.size()) {
    return twin;
  }
  Record record = globals[formats[format]];
  if (record.body.size() <= kOwnParts) return twin;
  const auto font = AddBoldFont(globals, RecordReader(record).U16());
  if (!font) return twin;
  PutU16(record.body, kFontOfFormat, *font);
  record.body[kOwnParts] = static_cast<char>(record.body[kOwnParts] | kOwnFont);
  // The font is before all formats, which moved by one.
  AppendToItsType(globals, formats.back() + 1, std::move(record));
  twin = static_cast<std::uint16_t>(workbook.formats.size());
  workbook.formats.push_back(workbook.formats[format]);
  workbook.formats.back().font.bold = true;
  return twin;
}

}  // namespace kalvo
