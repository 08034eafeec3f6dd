#include "platform/xls/palette.h"

#include <algorithm>

namespace kalvo {

namespace {

// Number 0 to 7 are the first eight of the palette, which itself begins at 8.
constexpr unsigned kFirstOfPalette = 8;

}  // namespace

Palette::Palette()
    : colours_{0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
               0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,
               0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,
               0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,
               0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
               0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,
               0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333} {}

void Palette::Read(const Record& record) {
  RecordReader reader(record);
  const std::size_t count = std::min<std::size_t>(reader.U16(), kColours);
  for (std::size_t i = 0; i < count && reader.left() >= 4; ++i) {
    const unsigned red = reader.U8();
    const unsigned green = reader.U8();
    const unsigned blue = reader.U8();
    reader.U8();
    colours_[i] = red << 16U | green << 8U | blue;
  }
}

PaperColour Palette::At(unsigned number, PaperColour automatic) const {
  if (number < kFirstOfPalette) return Palette().colours_[number];
  const std::size_t place = number - kFirstOfPalette;
  return place < kColours ? colours_[place] : automatic;
}

}  // namespace kalvo
