#include "study/section_entry.h"

#include <gtest/gtest.h>

#include "tests/support/faults.h"
#include "tests/support/same_row.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

constexpr Separators kUserSeparators{',', '.'};

// An entry on the second row of a chain, with every number different.
SectionEntry SampleEntry() {
  return {"1", "2", "1.012,5", "1,5", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "0,25"};
}

// The row of SampleEntry(), not calculated.
SectionRow SampleRow(const NetworkHeader& header = {}) {
  return Network({"1/2 1012.5m 1.5elbows 2bends 3valves 4straight 5angled 6branch 7through "
                  "8counter 9joins 10checks 11mm 0.25eqm"},
                 header)
      .front();
}

void Store(TestBench& bench, int number, const SectionEntry& entry) {
  bench.study.CurrentRow = static_cast<std::int16_t>(number);
  ASSERT_TRUE(StoreSectionRow(bench.bench, entry, kUserSeparators).ok());
}

// A closed study of two calculated rows, the second with an emitter and a height of its own.
class StoredRow : public testing::Test {
 protected:
  StoredRow() {
    std::vector<SectionRow> rows = Network({"ANT/1 5m 2elbows", "1/2 4m soma 300l/h 500mm 2up"});
    for (SectionRow& row : rows) {
      Sign(row);
      row.NomiDiam = FixedText<15>::FromUtf8("3/4");
      row.Velocity = row.Area = row.InDiameter = row.Reynolds = row.Lamda = 1;
      row.FrictionRate = row.TotalDrop = row.AvaiPres = 2;
      row.PAR = 0.3F;
      row.DP = 700;
    }
    bench.PutRows(rows);
  }

  // What the form does not edit.
  static void Sign(SectionRow& row) {
    row.Client = FixedText<51>::FromUtf8("Μελετητής");
    row.Units = FixedText<8>::FromUtf8("units");
    row.INILAMDA = 2;
  }

  TestBench bench;
};

TEST_F(StoredRow, TakesWhatIsTypedAndTheStudysHeaderLosesItsResultsAndKeepsTheRest) {
  SectionRow expected =
      SampleRow({.title = "Νέο Θέμα", .MeanTemp = 45, .MeanVel = 0.75F, .material = "COPPER"});
  Sign(expected);
  expected.RecordNumber = expected.SectionNo = 2;
  expected.TOT = 3;
  expected.Outlets = 1;
  expected.PAR = 9;
  expected.WaterFlow = 300;
  expected.SomaDrop = 500;  // the height is none in a closed system
  bench.study.study_title = " Νέο Θέμα ";
  bench.study.pipe_material = "COPPER";
  bench.study.MeanTemp = 45;
  bench.study.MeanVel = 0.75F;
  bench.study.TotalFlowM3h = 9;
  Store(bench, 2, SampleEntry());
  ExpectSameRow(bench.Row(2), expected);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_FALSE(bench.study.results_valid);
}

TEST_F(StoredRow, UntouchedKeepsItsResultsUnlessSomethingElseIsUnsaved) {
  bench.study.EmitterCount = 7;  // a header value
  for (const bool unsaved : {false, true}) {
    bench.study.unsaved_changes = unsaved;
    Store(bench, 1, EntryOf(bench.Row(1), kUserSeparators));
    EXPECT_EQ(bench.study.unsaved_changes, unsaved);
    EXPECT_EQ(bench.study.results_valid, !unsaved);
    EXPECT_EQ(bench.Row(1).DP, unsaved ? 0.0F : 700.0F);
    EXPECT_EQ(bench.Row(1).NomiDiam.Utf8(), unsaved ? "" : "3/4");
  }
}

TEST_F(StoredRow, NewTakesTheHeaderOfTheFirstAndNoEmitter) {
  SectionRow expected = SampleRow();
  Sign(expected);
  expected.RecordNumber = expected.SectionNo = expected.TOT = 3;
  expected.Outlets = 1;
  expected.PAR = 0.3F;
  expected.DP = 700;
  Store(bench, 3, SampleEntry());
  ExpectSameRow(bench.Row(3), expected);
  EXPECT_EQ(bench.study.SectionCount, 3);
  EXPECT_EQ(bench.study.SectionTable.back().name.bytes(), "  1/2  ");
  EXPECT_TRUE(bench.study.unsaved_changes);
  bench.study.CurrentRow = 5;
  EXPECT_FALSE(StoreSectionRow(bench.bench, SampleEntry(), kUserSeparators).ok());
}

TEST_F(StoredRow, PlantSectionIsMarkedByItsPlaceAndOthersKeepTheirMark) {
  bench.study.plant_section = 2;
  Store(bench, 2, SampleEntry());
  EXPECT_EQ(bench.Row(2).Auxi, 2);
  EXPECT_EQ(bench.Row(2).BurChil, 2);
  bench.study.plant_section = 1;
  Store(bench, 1, EntryOf(bench.Row(1), kUserSeparators));
  Store(bench, 2, SampleEntry());
  EXPECT_EQ(bench.Row(1).Auxi, 1);
  EXPECT_EQ(bench.Row(2).Auxi, 2);
}

TEST_F(StoredRow, CountsRoundHalvesToEvenAndOddTextsAreZero) {
  SectionEntry entry = SampleEntry();
  entry.GateValve = "2,5";
  entry.StrSwitch = "3,5";
  entry.AngSwitch = "";
  entry.DiaTee = "abc";
  entry.DieTee = "12a";
  Store(bench, 2, entry);
  const SectionRow row = bench.Row(2);
  EXPECT_EQ((std::vector<int>{row.GateValve, row.StrSwitch, row.AngSwitch, row.DiaTee, row.DieTee}),
            (std::vector<int>{2, 4, 0, 0, 12}));
}

TEST_F(StoredRow, OverflowIsAFaultAndNothingIsChanged) {
  const auto fault_of = [this](std::string SectionEntry::*field, const std::string& text) {
    SectionEntry entry = SampleEntry();
    entry.*field = text;
    return FaultOf([&] { return StoreSectionRow(bench.bench, entry, kUserSeparators); });
  };
  const std::string before = bench.Bytes();
  EXPECT_EQ(fault_of(&SectionEntry::CheckValve, "40000"), 6);
  EXPECT_EQ(fault_of(&SectionEntry::Length, "1" + std::string(39, '0')), 6);
  EXPECT_EQ(fault_of(&SectionEntry::left, "1000"), 5);
  EXPECT_EQ(fault_of(&SectionEntry::right, "1000"), 5);
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_TRUE(bench.study.results_valid);
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST(StoreOpenRow, KeepsItsHeightAndSaysItIsOpen) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 5m", "2/1 4m 2.5up outlet 300l/h 10mwg"});
  Store(bench, 2, EntryOf(bench.Row(2), kUserSeparators));
  EXPECT_EQ(bench.Row(2).HeightDiff, 2.5F);
  EXPECT_EQ(bench.Row(2).ANOIK, -1);
  EXPECT_EQ(bench.Row(2).KLEIS, 0);
  EXPECT_FALSE(bench.study.NameErrors);
  SectionEntry other = EntryOf(bench.Row(2), kUserSeparators);
  other.right = "7";
  Store(bench, 2, other);
  EXPECT_TRUE(bench.study.NameErrors);  // another feeder: which sections are outlets may change
}

TEST(SectionEntry, WithoutAChosenKindCountsAsClosed) {
  SectionRow row;
  TakeHeader(row, Study{});
  EXPECT_EQ(row.KLEIS, -1);
  EXPECT_EQ(row.ANOIK, 0);
  EXPECT_EQ(EntryForNewRow(1, SystemKind::kNone, nullptr, kUserSeparators).left, "ANT");
}

TEST(SectionEntry, ShowsARowAndStoresItBackUnchanged) {
  SectionEntry entry = SampleEntry();
  SectionRow row;
  TakeEntry(row, entry, kUserSeparators);
  entry.Length = "1012,5";
  EXPECT_EQ(EntryOf(row, kUserSeparators), entry);
}

TEST(SectionEntry, GreekNodeNamesFitAndTheTypedSourceBecomesLatin) {
  SectionRow row;
  SectionEntry entry = SampleEntry();
  entry.left = "Ώρα";
  entry.right = " ΑΝΤ ";
  TakeEntry(row, entry, kUserSeparators);
  EXPECT_EQ(row.Name.bytes(), "\xBF\xF1\xE1/ANT");
  EXPECT_EQ(EntryOf(row, kUserSeparators).left, "Ώρα");
}

TEST(SectionEntry, WhatIsNotEditedKeepsItsWholeValue) {
  SectionRow row;
  row.Name = FixedText<7>::FromUtf8("  1/ΑΝΤ");
  row.Length = 10.0F / 3;
  const SectionRow before = row;
  SectionEntry entry = EntryOf(row, kUserSeparators);
  entry.GateValve = "2";
  TakeEntry(row, entry, kUserSeparators);
  EXPECT_EQ(row.Length, before.Length);
  EXPECT_EQ(row.Name, before.Name);
  EXPECT_EQ(row.GateValve, 2);
}

TEST(NewEntry, GoesOnFromTheRowBeforeOrBeginsAtTheSource) {
  SectionRow previous;
  TakeEntry(previous, SampleEntry(), kUserSeparators);
  EXPECT_EQ(EntryForNewRow(3, SystemKind::kClosed, &previous, kUserSeparators),
            (SectionEntry{"2", "3", "1012,5", "1,5", "2", "3", "4", "5", "0", "0", "0", "0", "0",
                          "0", "0"}));
  EXPECT_EQ(EntryForNewRow(1, SystemKind::kClosed, nullptr, kUserSeparators),
            (SectionEntry{"ANT", "1", "", "", "", "", "", "", "0", "0", "0", "0", "0", "0", "0"}));
  const SectionEntry open = EntryForNewRow(3, SystemKind::kOpen, &previous, kUserSeparators);
  EXPECT_EQ(open.left + "/" + open.right, "3/2");
  EXPECT_EQ(EntryForNewRow(1, SystemKind::kOpen, nullptr, kUserSeparators).right, "ANT");
}

TEST(FirstRow, IsStoredIntoAnEmptyStudy) {
  TestBench bench;
  Store(bench, 1, EntryForNewRow(1, SystemKind::kClosed, nullptr, kUserSeparators));
  EXPECT_EQ(bench.Names(), std::vector<std::string>{"ANT/1  "});
  EXPECT_EQ(bench.Row(1).Units, FixedText<8>{});
  EXPECT_EQ(bench.Row(1).TOT, 1);
}

}  // namespace
}  // namespace kalvo
