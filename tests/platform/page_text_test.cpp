#include "platform/xls/page_text.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

PageText Read(std::string_view codes, int page = 1, int pages = 1, std::string_view sheet = "") {
  return ReadPageText(codes, {page, pages, sheet, {.name = "Noto Sans", .height_points = 10}});
}

// The letters of a part, its lines parted by "/".
std::string Letters(const PageTextPart& part) {
  std::string letters;
  for (const PageTextLine& line : part) {
    if (&line != &part.front()) letters += '/';
    for (const PageTextRun& run : line) letters += run.text;
  }
  return letters;
}

std::string Parts(const PageText& text) {
  return Letters(text.left) + "|" + Letters(text.centre) + "|" + Letters(text.right);
}

TEST(PageText, HasThreePartsWithThePagesNumber) {
  EXPECT_EQ(Parts(Read("&Lκτίριο&RΣελίδα &P / &N", 3, 15)), "κτίριο||Σελίδα 3 / 15");
  EXPECT_EQ(Parts(Read("Α && Β")), "|Α & Β|");
  EXPECT_EQ(Parts(Read("&\"Arial,Bold\"&14&BΤ&C&A&D&R&8&P\nτέλος&K15202BΩ", 2, 2, "Φύλλο")),
            "|ΤΦύλλο|2/τέλοςΩ");
  for (const std::string_view odd : {"", "&", "&\"", "&\"Arial", "&99", "&L&", "&K", "&0&99999"}) {
    EXPECT_EQ(Parts(Read(odd)), "||") << odd;
  }
}

TEST(PageText, ChangesItsFontInThePart) {
  const PageText text = Read("&R&\"Arial,Bold Italic\"&8Σελίδα &BΑ&U&12 Β&LΓ&\"-,Bold\"Δ");
  const CellFont bold{.name = "Arial", .height_points = 8, .bold = true, .italic = true};
  CellFont light = bold;
  light.bold = false;
  CellFont large = light;
  large.underlined = true;
  large.height_points = 12;
  ASSERT_EQ(text.right.size(), 1U);
  EXPECT_EQ(text.right[0], (PageTextLine{{"Σελίδα ", bold}, {"Α", light}, {" Β", large}}));
  ASSERT_EQ(text.left.size(), 1U);
  EXPECT_EQ(text.left[0], (PageTextLine{{"Γ", {.name = "Noto Sans"}},
                                        {"Δ", {.name = "Noto Sans", .bold = true}}}));
}

}  // namespace
}  // namespace kalvo
