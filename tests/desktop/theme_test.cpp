#include "desktop/theme.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kalvo {
namespace {

// Relative luminance and contrast ratio as WCAG 2.1 defines them.
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double x = Luminance(a);
  const double y = Luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

using Color = QColor Theme::*;

// A colour of text and every ground it may stand on.
struct Pair {
  const char* name;
  Color text;
  std::vector<Color> grounds;
};

const Pair kTexts[] = {
    {"ink",
     &Theme::ink,
     {&Theme::window, &Theme::surface, &Theme::zebra, &Theme::header, &Theme::lock, &Theme::soft,
      &Theme::critbg}},
    {"ink2",
     &Theme::ink2,
     {&Theme::window, &Theme::surface, &Theme::zebra, &Theme::header, &Theme::lock, &Theme::soft}},
    {"ink3",
     &Theme::ink3,
     {&Theme::window, &Theme::surface, &Theme::zebra, &Theme::header, &Theme::soft}},
    {"primary", &Theme::primary, {&Theme::window, &Theme::surface, &Theme::zebra, &Theme::soft}},
    {"onprimary", &Theme::onprimary, {&Theme::primary, &Theme::hover, &Theme::press}},
    {"softink", &Theme::softink, {&Theme::soft}},
    {"ok", &Theme::ok, {&Theme::surface, &Theme::window, &Theme::okbg}},
    {"warn", &Theme::warn, {&Theme::surface, &Theme::window, &Theme::warnbg}},
    {"err", &Theme::err, {&Theme::surface, &Theme::window, &Theme::errbg}},
    {"info", &Theme::info, {&Theme::surface, &Theme::window, &Theme::infobg}},
    {"crit", &Theme::crit, {&Theme::surface, &Theme::window, &Theme::critbg}},
    {"ink on err", &Theme::ink, {&Theme::errbg}},
    {"calculated", &Theme::oncalculated, {&Theme::calculated}},
    {"imposed", &Theme::onimposed, {&Theme::imposed}},
    {"calculated field", &Theme::oncalculated_field, {&Theme::calculated_field}},
    {"imposed field", &Theme::onimposed_field, {&Theme::imposed_field}},
    {"waiting field", &Theme::onwait, {&Theme::wait}},
};

const Pair kEdges[] = {
    {"border", &Theme::border, {&Theme::window, &Theme::surface, &Theme::zebra}},
    {"focus", &Theme::primary, {&Theme::window, &Theme::surface, &Theme::soft}},
    {"refused", &Theme::err, {&Theme::surface, &Theme::errbg}},
    {"critical bar", &Theme::crit, {&Theme::header}},
};

class ThemeContrast : public ::testing::TestWithParam<const Theme*> {};

TEST_P(ThemeContrast, TextCanBeReadOnEveryGroundItStandsOn) {
  const Theme& theme = *GetParam();
  for (const Pair& pair : kTexts) {
    for (const Color ground : pair.grounds) {
      EXPECT_GE(Contrast(theme.*pair.text, theme.*ground), 4.5)
          << pair.name << " on " << (theme.*ground).name().toStdString();
    }
  }
}

TEST_P(ThemeContrast, EdgesOfWhatCanBeOperatedAreSeen) {
  const Theme& theme = *GetParam();
  for (const Pair& pair : kEdges) {
    for (const Color ground : pair.grounds) {
      EXPECT_GE(Contrast(theme.*pair.text, theme.*ground), 3.0)
          << pair.name << " on " << (theme.*ground).name().toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeContrast, ::testing::Values(&kLightTheme, &kDarkTheme),
                         [](const auto& theme) {
                           return theme.param == &kLightTheme ? "light" : "dark";
                         });

TEST(Theme, FollowsTheDesktopUnlessToldOtherwise) {
  const QPalette light(QColor(240, 240, 240));
  const QPalette dark(QColor(40, 40, 40));
  EXPECT_EQ(&ChooseTheme(light, ""), &kLightTheme);
  EXPECT_EQ(&ChooseTheme(dark, ""), &kDarkTheme);
  EXPECT_EQ(&ChooseTheme(light, "dark"), &kDarkTheme);
  EXPECT_EQ(&ChooseTheme(dark, "light"), &kLightTheme);
}

TEST(Theme, StyleSheetHasEveryNameReplaced) {
  const QString sheet = StyleSheetOf(kDarkTheme);
  EXPECT_FALSE(sheet.isEmpty());
  const qsizetype comment_end = sheet.indexOf("*/");
  EXPECT_EQ(sheet.indexOf('@', comment_end), -1) << sheet.toStdString();
  EXPECT_TRUE(sheet.contains(kDarkTheme.ink2.name()));
  EXPECT_FALSE(sheet.contains(kDarkTheme.ink.name() + "2"));
}

TEST(Theme, ActiveThemeIsTheOneApplied) {
  ApplyTheme(*qApp, kDarkTheme);
  EXPECT_EQ(&ActiveTheme(), &kDarkTheme);
  ApplyTheme(*qApp, kLightTheme);
  EXPECT_EQ(&ActiveTheme(), &kLightTheme);
}

}  // namespace
}  // namespace kalvo
