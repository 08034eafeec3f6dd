#include "platform/xls/read_formats.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/xls/palette.h"

namespace kalvo {

namespace {

constexpr PaperColour kBlack = 0;
constexpr PaperColour kWhite = 0xFFFFFF;
constexpr double kTwipsOfFontPoint = 20;
constexpr unsigned kBoldFrom = 600;  // 400 is normal, 700 bold

// The formats that have a number and no record.
// Source: ECMA-376 Part 1, 18.8.30, numFmt.
constexpr auto kKnownFormats = std::to_array<std::pair<unsigned, std::string_view>>({
    {0, "General"},
    {1, "0"},
    {2, "0.00"},
    {3, "#,##0"},
    {4, "#,##0.00"},
    {9, "0%"},
    {10, "0.00%"},
    {11, "0.00E+00"},
    {12, "# ?/?"},
    {13, "# ?\?/?\?"},
    {14, "d/m/yyyy"},
    {15, "d-mmm-yy"},
    {16, "d-mmm"},
    {17, "mmm-yy"},
    {18, "h:mm AM/PM"},
    {19, "h:mm:ss AM/PM"},
    {20, "h:mm"},
    {21, "h:mm:ss"},
    {22, "d/m/yyyy h:mm"},
    {37, "#,##0 ;(#,##0)"},
    {38, "#,##0 ;[Red](#,##0)"},
    {39, "#,##0.00;(#,##0.00)"},
    {40, "#,##0.00;[Red](#,##0.00)"},
    {45, "mm:ss"},
    {46, "[h]:mm:ss"},
    {47, "mmss.0"},
    {48, "##0.0E+0"},
    {49, "@"},
});

using NumberFormats = std::map<unsigned, std::string>;

// A record of the fonts with its colour still a number.
CellFont ReadFont(const Record& record, const Palette& palette) {
  RecordReader reader(record);
  CellFont font;
  font.height_points = reader.U16() / kTwipsOfFontPoint;
  const unsigned flags = reader.U16();
  font.italic = (flags & 2U) != 0;
  font.struck_out = (flags & 8U) != 0;
  font.colour = palette.At(reader.U16(), kBlack);
  font.bold = reader.U16() >= kBoldFrom;
  reader.Skip(2);
  font.underlined = reader.U8() != 0;
  reader.Skip(3);
  const std::string name = reader.ShortText();
  if (reader.ok() && !name.empty()) font.name = name;
  return font;
}

Palette PaletteOf(const std::vector<Record>& globals) {
  Palette palette;
  for (const Record& record : globals) {
    if (record.type == biff::kPalette) palette.Read(record);
  }
  return palette;
}

NumberFormats NumberFormatsOf(const std::vector<Record>& globals) {
  NumberFormats formats(kKnownFormats.begin(), kKnownFormats.end());
  for (const Record& record : globals) {
    if (record.type != biff::kFormat) continue;
    RecordReader reader(record);
    const unsigned number = reader.U16();
    formats[number] = reader.Text();
  }
  return formats;
}

std::vector<CellFont> FontsOf(const std::vector<Record>& globals, const Palette& palette) {
  std::vector<CellFont> fonts;
  for (const Record& record : globals) {
    if (record.type == biff::kFont) fonts.push_back(ReadFont(record, palette));
  }
  return fonts;
}

// No font has the number 4 ([MS-XLS], FontIndex).
CellFont FontAt(const std::vector<CellFont>& fonts, unsigned number) {
  const std::size_t place = number > 4 ? number - 1 : number;
  return place < fonts.size() ? fonts[place] : CellFont();
}

// `count` bits of `bits` from `first` on.
constexpr unsigned BitsOf(std::uint32_t bits, unsigned first, unsigned count) {
  return (bits >> first) & ((1U << count) - 1U);
}

template <typename Choice>
Choice ChoiceOf(unsigned value, Choice last) {
  return static_cast<Choice>(std::min(value, static_cast<unsigned>(last)));
}

BorderLine LineOf(unsigned style, unsigned colour, const Palette& palette) {
  return {ChoiceOf(style, LineStyle::kSlantedDashDot), palette.At(colour, kBlack)};
}

// 0 to 90 counter-clockwise, 91 to 180 clockwise ([MS-XLS], XFPropTextRotation).
int RotationOf(unsigned value) {
  const auto angle = static_cast<int>(value);
  return value > 90 && value <= 180 ? 90 - angle : angle;
}

// Source: [MS-XLS] 2.4.353, XF, and 2.5.20, CellXF.
CellFormat ReadFormat(const Record& record, const std::vector<CellFont>& fonts,
                      const NumberFormats& numbers, const Palette& palette) {
  RecordReader reader(record);
  CellFormat format;
  format.font = FontAt(fonts, reader.U16());
  const auto number = numbers.find(reader.U16());
  if (number != numbers.end()) format.number_format = number->second;
  reader.Skip(2);
  const unsigned align = reader.U8();
  format.horizontal = ChoiceOf(BitsOf(align, 0, 3), HorizontalAlign::kDistributed);
  format.wrap = BitsOf(align, 3, 1) != 0;
  format.vertical = ChoiceOf(BitsOf(align, 4, 3), VerticalAlign::kDistributed);
  format.rotation = RotationOf(reader.U8());
  const unsigned text = reader.U8();
  format.indent = static_cast<int>(BitsOf(text, 0, 4));
  format.shrink = BitsOf(text, 4, 1) != 0;
  reader.Skip(1);
  const std::uint32_t lines = reader.U32();
  const std::uint32_t colours = reader.U32();
  format.left = LineOf(BitsOf(lines, 0, 4), BitsOf(lines, 16, 7), palette);
  format.right = LineOf(BitsOf(lines, 4, 4), BitsOf(lines, 23, 7), palette);
  format.top = LineOf(BitsOf(lines, 8, 4), BitsOf(colours, 0, 7), palette);
  format.bottom = LineOf(BitsOf(lines, 12, 4), BitsOf(colours, 7, 7), palette);
  format.fill_pattern = static_cast<int>(BitsOf(colours, 26, 6));
  const unsigned fill = reader.U16();
  format.fill_colour = palette.At(BitsOf(fill, 0, 7), kBlack);
  format.fill_background = palette.At(BitsOf(fill, 7, 7), kWhite);
  return format;
}

}  // namespace

WorkbookFormats ReadFormats(const std::vector<Record>& globals) {
  const Palette palette = PaletteOf(globals);
  const NumberFormats numbers = NumberFormatsOf(globals);
  const std::vector<CellFont> fonts = FontsOf(globals, palette);
  WorkbookFormats found;
  found.default_font = FontAt(fonts, 0);
  for (const Record& record : globals) {
    if (record.type == biff::kXf) {
      found.formats.push_back(ReadFormat(record, fonts, numbers, palette));
    }
  }
  return found;
}

}  // namespace kalvo
