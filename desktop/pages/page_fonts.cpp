#include "desktop/pages/page_fonts.h"

#include <QFontDatabase>
#include <algorithm>
#include <tuple>

#include "desktop/pages/paper.h"
#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

QFont FontOf(const CellFont& wanted) {
  QFont font = ThemeFont(wanted.height_points, wanted.bold);
  const QString name = ToQt(wanted.name);
  if (QFontDatabase::hasFamily(name)) font.setFamilies({name});
  font.setPixelSize(std::max(qRound(wanted.height_points * kTwipsOfPoint), 1));
  font.setItalic(wanted.italic);
  font.setUnderline(wanted.underlined);
  font.setStrikeOut(wanted.struck_out);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

auto KeyOfFont(const CellFont& font) {
  return std::tie(font.name, font.height_points, font.bold, font.italic, font.underlined,
                  font.struck_out);
}

}  // namespace

bool PageFonts::Less::operator()(const CellFont& a, const CellFont& b) const {
  return KeyOfFont(a) < KeyOfFont(b);
}

const PageFont& PageFonts::Of(const CellFont& font) {
  const auto found = fonts_.find(font);
  if (found != fonts_.end()) return found->second;
  const QFont made = FontOf(font);
  return fonts_.emplace(font, PageFont{made, QFontMetricsF(made)}).first->second;
}

PageFont Smaller(const PageFont& font, double part) {
  QFont smaller = font.font;
  smaller.setPixelSize(std::max(static_cast<int>(font.font.pixelSize() * part), 1));
  return {smaller, QFontMetricsF(smaller)};
}

}  // namespace kalvo
