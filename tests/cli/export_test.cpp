// What `kalvo export` writes, and where it refuses.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/jet/print_shell.h"
#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string_view>;

class ExportOf : public testing::Test {
 protected:
  [[nodiscard]] Told Export(const std::string& kind, std::vector<std::string> words = {}) const {
    std::vector<std::string> arguments = {"export", study_, "--kind", kind, "--out", out_};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return bench_.Run(arguments);
  }
  [[nodiscard]] PrintTable Written(const std::vector<PrintColumn>& columns) const {
    const auto table = ReadPrintShell(RealDisk().Read(out_).value(), columns);
    EXPECT_TRUE(table) << (table ? "" : table.error().Line());
    return table ? *table : PrintTable();
  }

  const CliBench bench_;
  const std::string study_ = bench_.Put("study.PCK", SoundNetwork());
  const std::string out_ = bench_.Path("Βάση.MDB");
};

TEST_F(ExportOf, ResultsAreALineForEverySection) {
  const Told told = Export("results");
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_EQ(told.out, "");
  EXPECT_THAT(told.err, HasSubstr("Γράφηκε : " + out_));
  const PrintTable table = Written(SectionPrintColumns());
  ASSERT_EQ(table.lines.size(), SoundNetwork().size());
  EXPECT_EQ(table.lines.front().at(0), PrintValue(1));
  EXPECT_EQ(table.lines.front().at(5), PrintValue("Υλικό Σωλήνων : ΧΑΛΥΒΑΣ"));
  EXPECT_GT(std::get<float>(table.lines.front().at(33)), 0.0F);
}

TEST_F(ExportOf, QuantitiesAreALineForEverySize) {
  ASSERT_EQ(Export("quantities", {"--quiet"}).err, "");
  const PrintTable table = Written(QuantityPrintColumns());
  EXPECT_EQ(table.lines.size(), 10U);
  EXPECT_EQ(table.lines.front().at(5), PrintValue("3/8         "));
}

TEST_F(ExportOf, AStudyLeavesAnotherFileAlone) {
  ASSERT_TRUE(RealDisk().Write(out_, "mine").ok());
  const Told kept = Export("results");
  EXPECT_EQ(kept.code, 6);
  EXPECT_THAT(kept.err, HasSubstr("υπάρχει ήδη"));
  EXPECT_EQ(RealDisk().Read(out_).value(), "mine");
  EXPECT_EQ(Export("results", {"--overwrite"}).code, 0);
  EXPECT_EQ(Written(SectionPrintColumns()).lines.size(), SoundNetwork().size());
}

TEST_F(ExportOf, WhatCannotBeDoneHasItsExitCode) {
  EXPECT_EQ(Export("data").code, 2);
  EXPECT_EQ(bench_.Run({"export", study_, "--kind", "results"}).code, 2);
  EXPECT_EQ(
      bench_.Run({"export", bench_.Path("none.PCK"), "--kind", "results", "--out", out_}).code, 3);
  EXPECT_EQ(
      bench_.Run({"export", study_, "--kind", "results", "--out", bench_.Path("no/a.MDB")}).code,
      6);
  EXPECT_EQ(
      bench_.Run({"export", study_, "--kind", "results", "--out", bench_.studies().string()}).code,
      2)
      << "no name of a database";
  ASSERT_TRUE(RealDisk().MakeFolder(bench_.Path("b.mdb")).ok());
  EXPECT_EQ(bench_.Run({"export", study_, "--kind", "results", "--out", bench_.Path("b.mdb")}).code,
            6);
  const std::string lost = bench_.Put("lost.PCK", Words{"ANT/1 1m", "1/2 1m 9 l/h soma 1mm"});
  EXPECT_EQ(bench_.Run({"export", lost, "--kind", "results", "--out", out_}).code,
            bench_.Run({"calc", lost}).code);
  EXPECT_FALSE(RealDisk().Exists(out_));
}

}  // namespace
}  // namespace kalvo
