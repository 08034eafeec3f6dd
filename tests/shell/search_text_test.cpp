#include "shell/search_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kalvo {
namespace {

TEST(SearchText, AccentsCaseAndFinalSigmaDoNotCount) {
  for (const char* same : {"ΘΕΡΜΑΝΣΗΣ ΑΫΛΗ", "θέρμανσης άϋλη", "ΘΈΡΜΑΝΣΗΣ αυλή",
                           "θε\u0301ρμανσησ αυ\u0308λη", "θ\u1F73ρμανσης ἀυλῆ"}) {
    EXPECT_EQ(SearchKey(same), "θερμανσησ αυλη") << same;
  }
  EXPECT_EQ(SearchKey("ΐΰ ÇÀ 12µ"), "ιυ ca 12μ");
}

TEST(SearchText, TypingFindsTheBeginningOfAWord) {
  const char* const title = "Πολυκατοικία (Άνω Πόλη) no 12";
  for (const char* typed : {"", "πολ", "ΠΌΛΗ", "ανω πο", "12", "No"}) {
    EXPECT_TRUE(MatchesTypeAhead(title, typed)) << typed;
  }
  for (const char* typed : {"κατ", "ολη", "2", "πολυκατοικιες"}) {
    EXPECT_FALSE(MatchesTypeAhead(title, typed)) << typed;
  }
}

TEST(SearchText, AStarStandsForAnyRunOfCharacters) {
  for (const char* mask : {"*", "**", "hotel.pck", "hot*", "*.pck", "h*.p*k", "*o*e*", "*hotel.pck",
                           "hotel*.*", "hotel.pck*"}) {
    EXPECT_TRUE(FitsMask("hotel.pck", mask)) << mask;
  }
  for (const char* mask : {"", "hotel", "hot*x", "*.pca", "otel*", "*hote", "h*t*t*", "h*hotel*"}) {
    EXPECT_FALSE(FitsMask("hotel.pck", mask)) << mask;
  }
  EXPECT_TRUE(FitsMask("aXbaXc", "*aXc"));  // the first "aX" is not the one
  EXPECT_TRUE(FitsMask("", ""));
  EXPECT_FALSE(FitsMask("", "a"));
}

TEST(SearchText, AMaskOfManyStarsIsAnsweredAtOnce) {
  const std::string name(200, 'a');
  std::string mask;
  for (int i = 0; i < 30; ++i) {
    mask += "*a";
  }
  EXPECT_FALSE(FitsMask(name, mask + "*b"));
  EXPECT_TRUE(FitsMask(name, mask + "*"));
}

TEST(SearchText, ListsStandInTheOrderOfTheAlphabet) {
  std::vector<std::string> names = {"Ω", "ύδρα", "Beta", "Αχ", "άβ", "10", "ΆΒ", "alpha"};
  std::sort(names.begin(), names.end(), StandsBefore);
  EXPECT_EQ(names,
            (std::vector<std::string>{"10", "alpha", "Beta", "ΆΒ", "άβ", "Αχ", "ύδρα", "Ω"}));
}

}  // namespace
}  // namespace kalvo
