#include "entry/tees/tee_cases.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

constexpr Separators kCommaDecimals{',', '.'};

TeeTexts After(char letter, TeeTable table, TeeTexts counts = {}) {
  const auto after = ApplyTeeCase(*FindTeeCase(static_cast<char32_t>(letter)), table,
                                  std::move(counts), kCommaDecimals);
  EXPECT_TRUE(after) << letter;
  return after.value_or(TeeTexts{});
}

bool Refuses(char letter, const TeeTexts& counts) {
  return !ApplyTeeCase(*FindTeeCase(static_cast<char32_t>(letter)), TeeTable::kSheet, counts,
                       kCommaDecimals);
}

// From empty counters: DiaTee, DieTee, AntiTee, SymboTee.
struct Expected {
  char letter;
  const char* told;  // picture and flow
  TeeTexts form;
  TeeTexts sheet;
};

const Expected kExpected[] = {
    {'A', "T1 left in", {"", "1", "", ""}, {"", "1", "", ""}},
    {'B', "T1 right out", {}, {}},
    {'C', "T1 down out", {"1", "", "", ""}, {"1", "", "", ""}},
    {'D', "T3 left in", {"", "", "", "0"}, {"", "", "", "1"}},
    {'E', "T3 right out", {"", "", "", "1"}, {"", "", "", "1"}},
    {'F', "T3 down in", {}, {}},
    {'G', "T2 left out", {"", "", "1", ""}, {"", "", "1", ""}},
    {'H', "T2 right out", {"", "", "1", ""}, {"", "", "1", ""}},
    {'I', "T2 down in", {}, {}},
    {'J', "T4 left in", {"", "1", "", ""}, {"", "1", "", ""}},
    {'K', "T4 right in", {"", "1", "", ""}, {"", "1", "", ""}},
    {'L', "T4 down out", {"1", "", "", ""}, {"1", "", "", ""}},
    {'M', "X1 left in", {"", "2", "", ""}, {"", "2", "", ""}},
    {'N', "X1 up out", {"1", "", "", ""}, {"1", "", "", ""}},
    {'O', "X1 right out", {}, {}},
    {'P', "X1 down out", {"1", "", "", ""}, {"1", "", "", ""}},
    {'Q', "X2 left in", {"1", "", "", "1"}, {"1", "", "", "1"}},
    {'R', "X2 up in", {"", "2", "", ""}, {"", "1", "", ""}},
    {'S', "X2 right in", {"1", "", "", "1"}, {"1", "", "", "1"}},
    {'T', "X2 down out", {}, {}},
};

std::string Told(const TeeCase& tee) {
  const char* legs[] = {" left", " right", " down", " up"};
  return std::string(NameOf(tee.picture)) + legs[static_cast<std::size_t>(tee.leg)] +
         (tee.in ? " in" : " out");
}

TEST(TeeCases, CountAsTheirLegsDoInTheFormAndInTheSheet) {
  ASSERT_EQ(TeeCases().size(), std::size(kExpected));
  for (const Expected& expected : kExpected) {
    EXPECT_EQ(Told(*FindTeeCase(static_cast<char32_t>(expected.letter))), expected.told);
    EXPECT_EQ(After(expected.letter, TeeTable::kForm), expected.form) << expected.letter;
    EXPECT_EQ(After(expected.letter, TeeTable::kSheet), expected.sheet) << expected.letter;
  }
  EXPECT_EQ(FindTeeCase(U'U'), nullptr);
  EXPECT_EQ(FindTeeCase(U'Α'), nullptr) << "a Greek letter";
}

TEST(TeeCases, AddUp) {
  TeeTexts counts;
  for (const char letter : {'C', 'C', 'C', 'M', 'Q'}) {
    counts = After(letter, TeeTable::kSheet, counts);
  }
  EXPECT_EQ(counts, (TeeTexts{"4", "2", "", "1"}));
}

TEST(TeeCases, RoundWhatTheyFindHalvesToEven) {
  const auto symbo = [](char letter, TeeTable table, const char* before) {
    return After(letter, table, {"", "", "", before})[3];
  };
  EXPECT_EQ(symbo('D', TeeTable::kForm, "2,6"), "3");
  EXPECT_EQ(symbo('D', TeeTable::kForm, "2,5"), "2");
  EXPECT_EQ(symbo('E', TeeTable::kForm, "2,5"), "4");
  EXPECT_EQ(symbo('E', TeeTable::kSheet, "abc"), "1");
  EXPECT_EQ(symbo('E', TeeTable::kSheet, "1.234"), "1235") << "no thousands in the answer";
  EXPECT_EQ(symbo('E', TeeTable::kSheet, "-1"), "0");
}

TEST(TeeCases, LeaveTheTextsOfOtherCountersAsTheyAre) {
  const TeeTexts odd = {"2,6", "x", " 7 ", "40000"};
  EXPECT_EQ(After('B', TeeTable::kSheet, odd), odd);
  EXPECT_EQ(After('C', TeeTable::kSheet, odd), (TeeTexts{"4", "x", " 7 ", "40000"}));
}

TEST(TeeCases, AreRefusedWhereACountWouldPassItsRange) {
  EXPECT_EQ(After('C', TeeTable::kSheet, {"32766", "", "", ""})[0], "32767");
  EXPECT_TRUE(Refuses('C', {"32767", "", "", ""}));
  EXPECT_TRUE(Refuses('M', {"", "32766", "", ""}));
  EXPECT_TRUE(Refuses('A', {"", "99999999999999999999", "", ""}));
  EXPECT_TRUE(Refuses('C', {"-40000", "", "", ""}));
  EXPECT_TRUE(Refuses('Q', {"1", "", "", "32767"})) << "neither of the two counts then";
  EXPECT_FALSE(Refuses('T', {"32767", "32767", "32767", "32767"}));
}

TEST(TeeCases, SayWhatTheyDo) {
  const auto spoken = [](char32_t letter, TeeTable table) {
    return SpokenText(*FindTeeCase(letter), table);
  };
  EXPECT_EQ(spoken(U'A', TeeTable::kSheet), "A: αριστερό σκέλος, ροή προς τον κόμβο, Διέλευση +1");
  EXPECT_EQ(spoken(U'I', TeeTable::kSheet), "I: κάτω σκέλος, ροή προς τον κόμβο, χωρίς μεταβολή");
  EXPECT_EQ(spoken(U'R', TeeTable::kForm), "R: άνω σκέλος, ροή προς τον κόμβο, Διέλευση +2");
  EXPECT_EQ(EffectText(*FindTeeCase(U'S'), TeeTable::kSheet), "Διακλάδωση +1, Συμβολή +1");
  EXPECT_EQ(EffectText(*FindTeeCase(U'D'), TeeTable::kForm), "Συμβολή +0");
  EXPECT_EQ(HelpLine(TeeCases().front()),
            "  ... < Shift+A > -------> Καταχώρηση < ΤΑΥ > περίπτωσης <A> ...");
  EXPECT_EQ(HelpLine(TeeCases().back()),
            "  ... < Shift+T > -------> Καταχώρηση < ΤΑΥ > περίπτωσης <T> ...");
}

TEST(TeeCases, DrawEachJunctionWithAllItsLegs) {
  for (const TeePicture picture : kTeePictures) {
    const JunctionContent content = ContentOf(picture);
    EXPECT_EQ(content.legs.size(), IsCross(picture) ? 4U : 3U);
    EXPECT_EQ(content.caption, IsCross(picture) ? "Σταυρός" : "Ταυ");
  }
  EXPECT_EQ(ContentOf(TeePicture::kT4).told,
            "αριστερό σκέλος, ροή προς τον κόμβο; δεξιό σκέλος, ροή προς τον κόμβο; "
            "κάτω σκέλος, ροή από τον κόμβο");
}

}  // namespace
}  // namespace kalvo
