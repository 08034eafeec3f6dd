// What the question at Back shows.

#include <gtest/gtest.h>

#include "results/compare_with_first.h"
#include "tests/results/results_desk.h"

namespace kalvo {
namespace {

std::string ValueOf(const MessageFacts& facts, std::string_view caption) {
  for (const auto& line : facts.lines) {
    if (line.caption == caption) return line.value;
  }
  return "(none)";
}

TEST(ComparisonFacts, NameBothBranchesByTheirNodes) {
  ResultsDesk desk;
  ResultComparison comparison;
  comparison.critical_branch = {"1  -2  -4  -6  -", "1  -3  -5  -6  -"};
  const MessageFacts facts = FactsOf(comparison, desk.desk);
  EXPECT_EQ(ValueOf(facts, "Δυσμενέστερος κλάδος πριν"), "ANT – 1 – 2 – 4 – ANT");
  EXPECT_EQ(ValueOf(facts, "Δυσμενέστερος κλάδος μετά"), "ANT – 1 – 3 – 4 – ANT");
  comparison.critical_branch.after = comparison.critical_branch.before;
  EXPECT_EQ(ValueOf(FactsOf(comparison, desk.desk), "Δυσμενέστερος κλάδος"), "ο ίδιος κλάδος");
}

TEST(ComparisonFacts, WarnOfAPumpThatDoesNotReachAnOutlet) {
  ResultsDesk desk(SystemKind::kOpen);
  EXPECT_EQ(ValueOf(FactsOf({}, desk.desk), "ΠΡΟΣΟΧΗ"), "(none)");
  for (int number = 1; number <= 3; ++number) {
    desk.test.ChangeRow(number, [](SectionRow& row) { row.DP = 100; });
  }
  EXPECT_EQ(ValueOf(FactsOf({}, desk.desk), "ΠΡΟΣΟΧΗ"),
            "Υποδοχείς που χρειάζονται περισσότερο από όσο δίνει η αντλία : 2, 3");
}

TEST(ComparisonFacts, ListTheNewDiametersFirst) {
  ResultsDesk desk;
  ResultComparison comparison;
  for (int number = 1; number <= 3; ++number) {
    ChangedSection& section = comparison.sections.emplace_back();
    section.number = number;
    section.diameter = {"1", number == 3 ? "2" : "1"};
  }
  const MessageFacts facts = FactsOf(comparison, desk.desk);
  ASSERT_EQ(facts.rows.size(), 3U);
  EXPECT_EQ(facts.rows[0][0] + facts.rows[1][0] + facts.rows[2][0], "312");
}

}  // namespace
}  // namespace kalvo
