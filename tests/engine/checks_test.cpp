#include "engine/checks.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

struct Outcomes {
  std::string findings;  // "(missing)" without a file
  CheckEnd end = CheckEnd::kNothing;
  bool name_errors = false;
};

// The check on a network of that kind that starts with the name flag set.
Outcomes Check(CheckEnd (*check)(Workbench&), SystemKind kind,
               const std::vector<std::string_view>& lines, const char* old_file = nullptr) {
  TestBench bench(kind);
  bench.PutNetwork(lines);
  bench.study.NameErrors = true;
  if (old_file != nullptr) {
    EXPECT_TRUE(bench.workspace.Write(work_file::kErrors, old_file).ok());
  }
  const CheckEnd end = check(bench.bench);
  return {bench.Bytes(work_file::kErrors), end, bench.study.NameErrors};
}

Outcomes Nodes(const std::vector<std::string_view>& lines, const char* old_file = nullptr) {
  return Check(CheckNodes, SystemKind::kClosed, lines, old_file);
}

Outcomes FeederNames(const std::vector<std::string_view>& lines, const char* old_file = nullptr) {
  return Check(CheckFeedersByName, SystemKind::kOpen, lines, old_file);
}

TEST(NameChecks, WithoutFindingsClearTheFlag) {
  for (const Outcomes& good :
       {Nodes({"ANT/1", "1/ANT"}), FeederNames({"1/ANT", "2/1", "3/1"}),
        Check(CheckFeederNumbers, SystemKind::kOpen, {"1/ANT", "2/1", "3/3"}, "old\n"),
        Check(CheckFeederUse, SystemKind::kOpen, {"1/1", "2/1", "3/1"}, "old\n")}) {
    EXPECT_EQ(good.findings, "(missing)");
    EXPECT_EQ(good.end, CheckEnd::kNothing);
  }
  EXPECT_FALSE(Nodes({"ANT/1", "1/ANT"}).name_errors);
  EXPECT_FALSE(FeederNames({"1/ANT", "2/1", "3/1"}).name_errors);
}

TEST(NodeCheck, TellsDeadEndsAndThenDeadStarts) {
  const Outcomes outcome = Nodes({"ANT/1", "8/ANT", "1/2", "9/1"}, "old\n");
  EXPECT_EQ(outcome.findings,
            "Το Τμήμα 3 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
            "Το Τμήμα 2 έχει ανύπαρκτο Αρχικό Κόμβο !!\n"
            "Το Τμήμα 4 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
  EXPECT_EQ(outcome.end, CheckEnd::kFindings);
  EXPECT_TRUE(outcome.name_errors);
}

TEST(NodeCheck, ASectionIsNoNeighbourOfItself) {
  EXPECT_EQ(Nodes({"ANT/1", "1/ANT", "3/3"}).findings,
            "Το Τμήμα 3 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
            "Το Τμήμα 3 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
  EXPECT_EQ(Nodes({"ANT/1", "1/ANT", "1/1"}).findings, "(missing)");
}

TEST(NodeCheck, DeadStartsAloneAreAppended) {
  EXPECT_EQ(Nodes({"ANT/1", "1/ANT", "5/1"}, "old\n").findings,
            "old\nΤο Τμήμα 3 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
}

TEST(NodeCheck, TellsASourceInGreekLetters) {
  EXPECT_EQ(Nodes({"ΑΝΤ/1", "1/ANT"}).findings,
            "Το Τμήμα 2 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
            "Το Τμήμα 1 έχει ανύπαρκτο Αρχικό Κόμβο !!\n"
            "Το Τμήμα 1 γράφει το ANT με Ελληνικά γράμματα !!\n");
}

TEST(NodeCheck, LeavesOneRowAlone) {
  const Outcomes outcome = Nodes({"5/6"}, "old\n");
  EXPECT_EQ(outcome.findings, "old\n");
  EXPECT_EQ(outcome.end, CheckEnd::kNothing);
  EXPECT_TRUE(outcome.name_errors);
}

TEST(FeederNames, ThreeEqualOwnNamesAreThreePairs) {
  EXPECT_EQ(FeederNames({"1/ANT", "2/1", "2/1", "3/2", "2/1"}, "old\n").findings,
            "Το Τμήμα 2 και το Τμήμα 3 έχουν το ίδιο όνομα !!\n"
            "Το Τμήμα 2 και το Τμήμα 5 έχουν το ίδιο όνομα !!\n"
            "Το Τμήμα 3 και το Τμήμα 5 έχουν το ίδιο όνομα !!\n");
}

TEST(FeederNames, MustBeThoseOfOtherRowsButForRowOne) {
  const Outcomes outcome = FeederNames({"1/XX", "2/1", "3/9", "4/4", "5/ANT"}, "old\n");
  EXPECT_EQ(outcome.findings,
            "old\n"
            "Το Τμήμα 3 τροφοδοτείται από ανύπαρκτο Τμήμα !!\n"
            "Το Τμήμα 4 τροφοδοτείται από ανύπαρκτο Τμήμα !!\n"
            "Το Τμήμα 5 τροφοδοτείται από ανύπαρκτο Τμήμα !!\n");
  EXPECT_EQ(outcome.end, CheckEnd::kFindings);
}

TEST(FeederNumbers, AreAtMostTheCountOfRows) {
  const Outcomes bad =
      Check(CheckFeederNumbers, SystemKind::kOpen, {"1/ANT", "2/4", "3/12"}, "old\n");
  EXPECT_EQ(bad.findings,
            "Το Τμήμα 2 τροφοδοτείται από ανύπαρκτο Τμήμα (Νο 4 )\n"
            "Το Τμήμα 3 τροφοδοτείται από ανύπαρκτο Τμήμα (Νο 12 )\n");
  EXPECT_EQ(bad.end, CheckEnd::kFindings);
}

TEST(FeederUse, OfOneSectionOnlyIsTold) {
  // 1 feeds 2 alone, 2 feeds two, 3 none, 4 feeds 5 alone; 6 hangs on no number.
  const Outcomes outcome = Check(CheckFeederUse, SystemKind::kOpen,
                                 {"1/ANT", "2/1", "3/2", "4/2", "5/4", "6/abc"}, "old\n");
  EXPECT_EQ(outcome.findings,
            "Τα Τμήματα 1 και 2 έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n"
            "Τα Τμήματα 4 και 5 έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n");
  EXPECT_EQ(outcome.end, CheckEnd::kFindings);
}

}  // namespace
}  // namespace kalvo
