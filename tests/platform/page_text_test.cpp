#include "platform/xls/page_text.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

TEST(PageText, HasThreePartsWithThePagesNumber) {
  EXPECT_EQ(ReadPageText("&Lκτίριο&RΣελίδα &P / &N", 3, 15, "Φ"),
            (PageText{"κτίριο", "", "Σελίδα 3 / 15"}));
  EXPECT_EQ(ReadPageText("Α && Β", 1, 1, ""), (PageText{"", "Α & Β", ""}));
  EXPECT_EQ(ReadPageText("&\"Arial,Bold\"&14&BΤ&C&A&D&R&8&P", 2, 2, "Φύλλο"),
            (PageText{"", "ΤΦύλλο", "2"}));
  for (const std::string_view odd : {"", "&", "&\"", "&\"Arial", "&99", "&L&"}) {
    EXPECT_LE(ReadPageText(odd, 1, 1, "").left.size(), 1U);
  }
}

}  // namespace
}  // namespace kalvo
