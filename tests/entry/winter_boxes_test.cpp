#include "entry/winter/winter_boxes.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

TEST(WinterBoxes, NameTheSectionAndWhatIsWrongThere) {
  EXPECT_EQ(WinterZeroBox(3, WinterValue::kLength).lines,
            (std::vector<std::string>{
                "ΠΡΟΣΟΧΗ : Παρατήρηση για το Τμήμα, με α/α < 3 > ...",
                "... Το Μήκος του Τμήματος Σωλήνος, ΔΕΝ μπορεί να είναι μηδενικό ..."}));
  EXPECT_NE(WinterZeroBox(3, WinterValue::kFlow).lines[1].find("Παροχή"), std::string::npos);
  EXPECT_NE(WinterZeroBox(3, WinterValue::kDrop).lines[1].find("Πτώση"), std::string::npos);
  EXPECT_NE(WinterFlowBox({2, 5, 300, 9}, 300).lines[1].find("ίση"), std::string::npos);
  EXPECT_NE(WinterFlowBox({2, 5, 301, 9}, 300).lines[1].find("μεγαλύτερη"), std::string::npos);
  EXPECT_EQ(WinterFlowBox({2, 5, 301, 9}, 300).style, box_style::kYesNo);
}

TEST(WinterBoxes, AskAtTheCloseWithoutThrowingDataAwayUnasked) {
  EXPECT_EQ(KeepWinterBox(false).style, box_style::kYesNoCancel);  // yes is the default
  EXPECT_EQ(KeepWinterBox(false).lines.size(), 2U);
  EXPECT_NE(KeepWinterBox(true).lines[1].find("Τμημάτων"), std::string::npos);
}

TEST(WinterBoxes, TellThePump) {
  SectionRow row;
  row.PAR = 1234.56F;
  row.DP = 3350;
  EXPECT_EQ(WinterPumpBox(row, {',', '.'}).lines,
            (std::vector<std::string>{"Παροχή Νερού..................1.234,6  [m3/h]",
                                      "Μανομετρικό Ύψος..........3,4  [m w.g.]"}));
  row.PAR = 0.35F;  // by its decimal text, below a half in binary
  EXPECT_EQ(WinterPumpBox(row, {',', '.'}).lines[0], "Παροχή Νερού..................0,4  [m3/h]");
}

}  // namespace
}  // namespace kalvo
