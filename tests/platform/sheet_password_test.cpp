#include "platform/xls/sheet_password.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

// The first two figures are the examples of the published descriptions.
TEST(SheetPassword, IsKeptAsItsHash) {
  EXPECT_EQ(SheetPasswordHash("abcdefghij"), 0xFEF1);
  EXPECT_EQ(SheetPasswordHash("test"), 0xCBEB);
  EXPECT_EQ(SheetPasswordHash(""), 0);
  EXPECT_NE(SheetPasswordHash("κωδικός"), SheetPasswordHash("κωδικόσ"));
  EXPECT_EQ(SheetPasswordHash("0123456789abcdef"), SheetPasswordHash("0123456789abcde"));
}

}  // namespace
}  // namespace kalvo
