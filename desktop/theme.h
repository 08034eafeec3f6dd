#pragma once

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

namespace kalvo {

/// The colours of the windows; no other place names a colour. `...bg` is the ground of a tone.
struct Theme {
  QColor window;   ///< behind everything
  QColor surface;  ///< cards, fields, tables
  QColor zebra;    ///< every second row
  QColor header;   ///< table headers, chips
  QColor lock;     ///< locked field
  QColor ink;      ///< text
  QColor ink2;     ///< units, secondary text, icons
  QColor ink3;     ///< hints, key names, greyed text
  QColor line;     ///< hairlines and card edges, decoration only
  QColor border;   ///< edges of what can be operated
  QColor primary;  ///< primary command, focus, flow arrows
  QColor hover;    ///< primary command under the mouse
  QColor press;    ///< primary command held down
  QColor onprimary;
  QColor soft;     ///< selection, pipe filling
  QColor softink;  ///< text on it
  QColor water;    ///< never text
  QColor ok, okbg;
  QColor warn, warnbg;
  QColor err, errbg;
  QColor info, infobg;
  QColor crit, critbg;  ///< critical branch

  // The same in both themes.
  QColor calculated, oncalculated;              ///< diameter cell of a sheet
  QColor imposed, onimposed;                    ///< likewise, when the user set the diameter
  QColor calculated_field, oncalculated_field;  ///< diameter of the one section shown
  QColor imposed_field, onimposed_field;
  QColor wait, onwait, waitedge;  ///< likewise, while the diameter waits for its calculation
};

extern const Theme kLightTheme;
extern const Theme kDarkTheme;

/// A colour's name in the style sheet (there after an @) and its place in a theme.
struct ThemeToken {
  const char* name;
  QColor Theme::*color;
};
inline constexpr ThemeToken kThemeTokens[] = {
    {"window", &Theme::window},
    {"surface", &Theme::surface},
    {"zebra", &Theme::zebra},
    {"header", &Theme::header},
    {"lock", &Theme::lock},
    {"ink", &Theme::ink},
    {"ink2", &Theme::ink2},
    {"ink3", &Theme::ink3},
    {"line", &Theme::line},
    {"border", &Theme::border},
    {"primary", &Theme::primary},
    {"hover", &Theme::hover},
    {"press", &Theme::press},
    {"onprimary", &Theme::onprimary},
    {"soft", &Theme::soft},
    {"softink", &Theme::softink},
    {"water", &Theme::water},
    {"ok", &Theme::ok},
    {"okbg", &Theme::okbg},
    {"warn", &Theme::warn},
    {"warnbg", &Theme::warnbg},
    {"err", &Theme::err},
    {"errbg", &Theme::errbg},
    {"info", &Theme::info},
    {"infobg", &Theme::infobg},
    {"crit", &Theme::crit},
    {"critbg", &Theme::critbg},
    {"calculated_field", &Theme::calculated_field},
    {"oncalculated_field", &Theme::oncalculated_field},
    {"imposed_field", &Theme::imposed_field},
    {"onimposed_field", &Theme::onimposed_field},
    {"wait", &Theme::wait},
    {"onwait", &Theme::onwait},
    {"waitedge", &Theme::waitedge},
};

/// `wish` is "light" or "dark"; anything else asks whether the desktop's windows are dark.
const Theme& ChooseTheme(const QPalette& desktop, const QString& wish);

/// The theme applied last.
const Theme& ActiveTheme();

QPalette PaletteOf(const Theme& theme);

/// The style sheet :/look.qss with its @names replaced by the theme's colours.
QString StyleSheetOf(const Theme& theme);

/// Noto Sans, or DejaVu Sans where it is missing. `points` as in the sizes of kBodyPoints.
QFont ThemeFont(double points, bool bold = false);

inline constexpr double kBodyPoints = 10;
inline constexpr double kHintPoints = 9;
inline constexpr double kKeyPoints = 8.5;  ///< key names and heads of tables
inline constexpr double kHeadPoints = 11;  ///< heads of sections, bold

/// Style, palette, font, style sheet and icon of the whole program.
void ApplyTheme(QApplication& app, const Theme& theme);

}  // namespace kalvo
