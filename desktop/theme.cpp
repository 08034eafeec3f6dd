#include "desktop/theme.h"

#include <QFile>
#include <QFontDatabase>
#include <QIcon>
#include <QRegularExpression>
#include <QToolTip>

#include "desktop/theme_style.h"

namespace kalvo {
namespace {

// Without blue and red swapped: 0xRRGGBB as a designer writes it.
constexpr QColor Rgb(int value) {
  return {(value >> 16) & 0xFF, (value >> 8) & 0xFF, value & 0xFF};
}

constexpr int kDarkBelowLightness = 128;

}  // namespace

constexpr Theme kLightTheme = {
    .window = Rgb(0xF1F4F6),
    .surface = Rgb(0xFFFFFF),
    .zebra = Rgb(0xF7F9FA),
    .header = Rgb(0xE6ECF0),
    .lock = Rgb(0xEDF1F4),
    .ink = Rgb(0x15202B),
    .ink2 = Rgb(0x445361),
    .ink3 = Rgb(0x5A6875),
    .line = Rgb(0xD3DBE1),
    .border = Rgb(0x7F8D99),
    .primary = Rgb(0x0B6275),
    .hover = Rgb(0x094F5F),
    .press = Rgb(0x073E4A),
    .onprimary = Rgb(0xFFFFFF),
    .soft = Rgb(0xDCEEF2),
    .softink = Rgb(0x0A4B5A),
    .water = Rgb(0x5FB3C4),
    .ok = Rgb(0x176238),
    .okbg = Rgb(0xE2F3E8),
    .warn = Rgb(0x724600),
    .warnbg = Rgb(0xFFF2D2),
    .err = Rgb(0xA31919),
    .errbg = Rgb(0xFDE9E7),
    .info = Rgb(0x1A4B87),
    .infobg = Rgb(0xE5EFFA),
    .crit = Rgb(0x8F3610),
    .critbg = Rgb(0xFFF0E5),
    .calculated = Rgb(0x80FF80),
    .oncalculated = Rgb(0x0A2A10),
    .imposed = Rgb(0xFFFF00),
    .onimposed = Rgb(0x2A2200),
    .calculated_field = Rgb(0x000000),
    .oncalculated_field = Rgb(0x63F58A),
    .imposed_field = Rgb(0xA80F1C),
    .onimposed_field = Rgb(0xFFF04A),
    .wait = Rgb(0x80FF80),
    .onwait = Rgb(0x000000),
    .waitedge = Rgb(0x0A2A10),
};

constexpr Theme kDarkTheme = {
    .window = Rgb(0x11171C),
    .surface = Rgb(0x192127),
    .zebra = Rgb(0x1D262D),
    .header = Rgb(0x242F37),
    .lock = Rgb(0x1F2930),
    .ink = Rgb(0xE7EDF1),
    .ink2 = Rgb(0xAEBBC5),
    .ink3 = Rgb(0x93A2AE),
    .line = Rgb(0x313D47),
    .border = Rgb(0x6F808D),
    .primary = Rgb(0x63C5D8),
    .hover = Rgb(0x84D5E4),
    .press = Rgb(0x4BAFC3),
    .onprimary = Rgb(0x06232B),
    .soft = Rgb(0x173C46),
    .softink = Rgb(0xB9E6EF),
    .water = Rgb(0x2F8295),
    .ok = Rgb(0x7FD6A0),
    .okbg = Rgb(0x16331F),
    .warn = Rgb(0xF2C14E),
    .warnbg = Rgb(0x3A2C0B),
    .err = Rgb(0xFF9A92),
    .errbg = Rgb(0x42191A),
    .info = Rgb(0x9CC5F5),
    .infobg = Rgb(0x162C46),
    .crit = Rgb(0xFFB185),
    .critbg = Rgb(0x3A2317),
    .calculated = kLightTheme.calculated,
    .oncalculated = kLightTheme.oncalculated,
    .imposed = kLightTheme.imposed,
    .onimposed = kLightTheme.onimposed,
    .calculated_field = kLightTheme.calculated_field,
    .oncalculated_field = kLightTheme.oncalculated_field,
    .imposed_field = kLightTheme.imposed_field,
    .onimposed_field = kLightTheme.onimposed_field,
    .wait = kLightTheme.wait,
    .onwait = kLightTheme.onwait,
    .waitedge = kLightTheme.waitedge,
};

const Theme& ChooseTheme(const QPalette& desktop, const QString& wish) {
  if (wish == "light") return kLightTheme;
  if (wish == "dark") return kDarkTheme;
  const bool dark = desktop.color(QPalette::Window).lightness() < kDarkBelowLightness;
  return dark ? kDarkTheme : kLightTheme;
}

const Theme& ActiveTheme() { return ChooseTheme(QApplication::palette(), QString()); }

QPalette PaletteOf(const Theme& theme) {
  QPalette palette;
  palette.setColor(QPalette::Window, theme.window);
  palette.setColor(QPalette::WindowText, theme.ink);
  palette.setColor(QPalette::Base, theme.surface);
  palette.setColor(QPalette::AlternateBase, theme.zebra);
  palette.setColor(QPalette::Text, theme.ink);
  palette.setColor(QPalette::PlaceholderText, theme.ink3);
  palette.setColor(QPalette::Button, theme.surface);
  palette.setColor(QPalette::ButtonText, theme.ink);
  palette.setColor(QPalette::BrightText, theme.err);
  palette.setColor(QPalette::Highlight, theme.soft);
  palette.setColor(QPalette::HighlightedText, theme.ink);
  palette.setColor(QPalette::Link, theme.primary);
  palette.setColor(QPalette::LinkVisited, theme.primary);
  palette.setColor(QPalette::ToolTipBase, theme.surface);
  palette.setColor(QPalette::ToolTipText, theme.ink);
  palette.setColor(QPalette::Light, theme.surface);
  palette.setColor(QPalette::Midlight, theme.header);
  palette.setColor(QPalette::Mid, theme.line);
  palette.setColor(QPalette::Dark, theme.border);
  palette.setColor(QPalette::Shadow, theme.border);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, theme.ink3);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, theme.window);
  return palette;
}

QString StyleSheetOf(const Theme& theme) {
  QFile file(":/look.qss");
  if (!file.open(QIODevice::ReadOnly)) return {};
  QString sheet = QString::fromUtf8(file.readAll());
  for (const ThemeToken& token : kThemeTokens) {
    // The whole name only: @ink is also the beginning of @ink2.
    const QRegularExpression name(QString("@%1\\b").arg(token.name));
    sheet.replace(name, (theme.*token.color).name());
  }
  return sheet;
}

QFont ThemeFont(double points, bool bold) {
  static const bool has_noto = QFontDatabase::families().contains("Noto Sans");
  QFont font(has_noto ? "Noto Sans" : "DejaVu Sans");
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}

void ApplyTheme(QApplication& app, const Theme& theme) {
  app.setStyle(new ThemeStyle);  // which takes it over
  app.setPalette(PaletteOf(theme));
  QToolTip::setPalette(PaletteOf(theme));
  app.setFont(ThemeFont(kBodyPoints));
  QToolTip::setFont(ThemeFont(kHintPoints));
  app.setStyleSheet(StyleSheetOf(theme));
  app.setWindowIcon(QIcon(":/icons/kalvoflume.svg"));
}

}  // namespace kalvo
