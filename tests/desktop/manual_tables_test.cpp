// The tables of the manual that are made from the program's own.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tools/tables/key_index.h"
#include "tools/tables/message_text.h"
#include "tools/tables/table_files.h"

namespace kalvo {
namespace {

std::string Renewed(std::string_view chapter) {
  return WithTables(chapter, [](std::string_view name) {
    return name == "a" ? "new\n" : name == "b" ? "other\n" : "";
  });
}

TEST(ManualTables, AreMadeAnewBetweenTheirMarksAlone) {
  EXPECT_EQ(Renewed("x\n<!-- table: a -->\nold\nolder\n<!-- end -->\ny\n<!-- table: b -->\n"
                    "<!-- end -->\n"),
            "x\n<!-- table: a -->\nnew\n<!-- end -->\ny\n<!-- table: b -->\nother\n"
            "<!-- end -->\n");
  EXPECT_EQ(Renewed("no table"), "no table");
  for (const char* const broken :
       {"<!-- table: a -->\nold", "<!-- table: c -->\n<!-- end -->",
        "<!-- table:  -->\n<!-- end -->", "<!-- table: a\n<!-- end -->"}) {
    EXPECT_THROW(Renewed(broken), std::runtime_error) << broken;
  }
}

TEST(ManualTables, HaveWhatTheProgramSays) {
  EXPECT_EQ(MessageText(142),
            "> *! ! ΠΡΟΣΟΧΗ ! !*\n>\n> !! ΔΕΝ υπάρχουν Δεδομένα Σωμάτων !!  \n"
            "> ... Πατήστε το πλήκτρο < Δεδομένα Σωμάτων > ...\n");
  const std::string of_both = MessageText(407);
  EXPECT_NE(of_both.find("Κλειστό σύστημα"), std::string::npos);
  EXPECT_LT(of_both.find("Σώματα"), of_both.find("Υποδοχείς"));
  EXPECT_EQ(MessageText(9), "");
  const std::string keys = KeyIndex();
  EXPECT_NE(keys.find("| `F9` | **Υπολογισμοί** | [Το βασικό μενού]"), std::string::npos);
  EXPECT_EQ(keys.find('\0'), std::string::npos);
}

}  // namespace
}  // namespace kalvo
