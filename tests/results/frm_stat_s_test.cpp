#include "results/frm_stat_s.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "engine/rerun.h"
#include "results/frm_res.h"
#include "results/frm_res_sheet.h"
#include "tests/results/results_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

// Pipes of 3/8 and 1/2 with every kind of fitting that is counted.
const std::vector<std::string_view> kNetwork = {"ANT/1 12.5m 4 elbows 2 valves 1 checks",
                                                "1/2 10.25m 3 elbows 1 straight soma 300l/h 500mm",
                                                "1/3 5m 2 bends 1 angled soma 200l/h 400mm",
                                                "2/4 7m",
                                                "3/4 5m",
                                                "4/ANT 6.5m 1 valves"};

struct Bill : ResultsDesk, ::testing::Test {
  Bill() { Calculate(kNetwork); }

  [[nodiscard]] std::string Line(int row) const {
    std::vector<std::string> texts;
    for (int column = 0; column < form.fpSpread1.column_count(); ++column) {
      texts.push_back(form.fpSpread1.At(row, column).text);
    }
    return Joined(texts);
  }
  [[nodiscard]] std::string LastBox() const {
    return test.prompter.boxes().empty() ? "(none)" : Joined(test.prompter.boxes().back().lines);
  }
  FrmStatS form{desk};
};

TEST_F(Bill, CountsPipesAndFittingsOfEverySize) {
  form.Load();
  EXPECT_EQ(form.title, "Προμέτρηση Σωλήνων και Εξαρτημάτων");
  EXPECT_EQ(form.focus(), &form.Cmd_Close);
  EXPECT_EQ(Line(0), "3/8|27,25|3|2|---|1|1|---");
  EXPECT_EQ(Line(1), "1/2|19|4|---|3|---|---|1");
  EXPECT_EQ(Line(2), "3/4|---|---|---|---|---|---|---");
  EXPECT_EQ(Line(9), "4|---|---|---|---|---|---|---");
  EXPECT_EQ(Line(10), "");
  EXPECT_EQ(form.fpSpread1.row_count(), 27);
  EXPECT_EQ(form.LblThema.text, "Δίκτυο Δοκιμής");
  EXPECT_EQ(form.LblPipes.text, "Χαλυβδοσωλήνες");
  EXPECT_EQ(form.LblMaterial.text, "Υλικό Σωλήνων : ΧΑΛΥΒΑΣ");
  EXPECT_EQ(form.LblUsed.text + " " + form.LblSizes.text, "2 από 10");
  EXPECT_EQ(form.LblLength.text + "|" + form.LblValves.text, "46,3|3");
  EXPECT_FALSE(form.LblRecount.visible);
  EXPECT_FALSE(form.LblEmpty.visible);
  EXPECT_EQ(form.fpSpread1.At(0, 0).tone, Tone::kPlain);
  EXPECT_EQ(form.fpSpread1.At(2, 0).tone, Tone::kQuiet);
  EXPECT_EQ(form.fpSpread1.At(0, 1).share, 1.0);
  EXPECT_NEAR(form.fpSpread1.At(1, 1).share.value(), 19 / 27.25, 1e-6);
  EXPECT_FALSE(form.fpSpread1.At(2, 1).share);
}

TEST_F(Bill, AgreesWithTheRowsAfterDiametersWereImposed) {
  Impose(2);
  desk.screens.results_begin = true;
  ASSERT_EQ(Rerun(test.bench), RunEnd::kCalculated);
  form.Load();
  std::map<std::string, float> lengths;
  for (const SectionRow& row : test.Rows()) lengths[row.NomiDiam.Utf8()] += row.Length;
  ASSERT_EQ(lengths.size(), 3U);
  for (int row = 0; row < 10; ++row) {
    const std::string& size = form.fpSpread1.At(row, 0).text;
    const auto found = lengths.find(size);
    EXPECT_EQ(form.fpSpread1.At(row, 1).text,
              found == lengths.end() ? "---" : FormatNumber(found->second, desk.separators))
        << size;
  }
}

TEST_F(Bill, ReachesAndSortsNoEmptyRow) {
  form.Load();
  form.fpSpread1.MoveTo({26, 7});
  EXPECT_EQ(form.fpSpread1.current(), (GridPlace{9, 7}));
  form.fpSpread1.CycleSort(1);
  EXPECT_EQ(form.fpSpread1.order()[8], 1) << "1/2 before 3/8, unused sizes first";
  EXPECT_EQ(form.fpSpread1.order()[9], 0);
  EXPECT_EQ(form.fpSpread1.order()[10], 10);
  form.fpSpread1.CycleSort(1);
  EXPECT_EQ(form.fpSpread1.order()[0], 0);
  EXPECT_EQ(form.fpSpread1.order()[26], 26);
}

TEST_F(Bill, CopiesTheSelectionUnderItsHeads) {
  form.Load();
  const std::vector<GridPlace> places = {{0, 1}, {0, 2}, {1, 1}, {1, 2}};
  EXPECT_EQ(form.fpSpread1.Copy(places), "ΣΥΝΟΛΙΚΟ ΜΗΚΟΣ, [m]\tΓΩΝΙΕΣ 90°\n27,25\t3\n19\t4");
}

// 27,25 m of 12,6 mm and 19 m of 16,1 mm: 3,3978 + 3,8681 litres.
TEST_F(Bill, TellsTheWaterAndKeepsItInSight) {
  form.Load();
  EXPECT_FALSE(form.LblWater.visible);
  Click(form, form.CmdWater);
  EXPECT_EQ(test.prompter.boxes().back().title, " ... ΠΕΡΙΕΚΤΙΚΟΤΗΤΑ ΣΩΛΗΝΟΔΙΚΤΥΟΥ ΣΕ ΝΕΡΟ ...");
  EXPECT_EQ(LastBox(), "... Το Σωληνοδίκτυο, περιέχει : 7,3 [Lit] Νερού ...");
  EXPECT_TRUE(form.LblWater.visible);
  EXPECT_EQ(form.LblWater.text, LastBox());
}

TEST(WaterLine, IsRoundedToADecimalAndNotGrouped) {
  const auto number = [](double litres) {
    const std::string line = WaterLine(litres, {',', '.'});
    return line.substr(line.find(": ") + 2, line.find(" [") - line.find(": ") - 2);
  };
  EXPECT_EQ(number(12345.678), "12345,7");
  EXPECT_EQ(number(312.04), "312");
  EXPECT_EQ(number(0), "0");
  StatRow pipe;
  pipe.InDiameter = 1000;
  pipe.Length = 4;
  EXPECT_DOUBLE_EQ(WaterContent({&pipe, 1}), 3141.59) << "five decimals of π";
}

TEST_F(Bill, LeavesByItsCommandAndByEsc) {
  form.Load();
  navigator.Show(screen::kQuantities);
  TakeLog();
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"close FrmStatS"});
}

TEST_F(Bill, ComesFromTheFileWhereMemoryHasNone) {
  test.study.PipeStats.clear();
  form.Load();
  EXPECT_EQ(Line(1), "1/2|19|4|---|3|---|---|1");
  EXPECT_TRUE(test.prompter.boxes().empty());
}

TEST_F(Bill, WithoutAnyListSaysWhatFillsIt) {
  test.study.PipeStats.clear();
  test.workspace.Delete(work_file::kStatistics);
  form.Load();
  EXPECT_TRUE(form.LblEmpty.visible);
  EXPECT_EQ(form.LblEmpty.text, "Η προμέτρηση συμπληρώνεται με τον υπολογισμό.");
  EXPECT_FALSE(form.fpSpread1.visible);
  EXPECT_EQ(form.LblUsed.text, "—");
  EXPECT_TRUE(test.prompter.boxes().empty());
  Click(form, form.CmdWater);
  EXPECT_EQ(LastBox(), form.LblEmpty.text) << "no water is no answer";
  EXPECT_FALSE(form.LblWater.visible);
  EXPECT_FALSE(test.workspace.Exists(work_file::kStatistics));
}

TEST_F(Bill, OfOtherPipesIsCountedAnewFromTheRows) {
  test.study.PipeStats.pop_back();
  const std::string file = test.Bytes(work_file::kStatistics);
  form.Load();
  EXPECT_EQ(Line(0), "3/8|27,25|3|2|---|1|1|---");
  EXPECT_TRUE(form.LblRecount.visible);
  EXPECT_EQ(form.LblRecount.text,
            "Η προμέτρηση που έχει η Μελέτη ανήκει σε άλλους Σωλήνες : οι ποσότητες μετρήθηκαν εκ "
            "νέου από τα Τμήματα.");
  EXPECT_EQ(test.Bytes(work_file::kStatistics), file) << "nothing is written";
  EXPECT_EQ(test.study.PipeStats.size(), 9U);
}

TEST_F(Bill, OfACutOrSenselessFileIsToldAndCountedAnew) {
  test.study.PipeStats.clear();
  std::string bytes = test.Bytes(work_file::kStatistics);
  StatRow senseless;
  senseless.Length = NAN;
  for (const std::string& bad :
       {bytes.substr(0, 300), EncodeRows<StatRow>(std::vector<StatRow>{senseless})}) {
    ASSERT_TRUE(test.workspace.Write(work_file::kStatistics, bad).ok());
    FrmStatS other(desk);
    other.Load();
    EXPECT_NE(LastBox().find("STATIST.TMP"), std::string::npos) << LastBox();
    EXPECT_EQ(other.fpSpread1.At(1, 1).text, "19");
    EXPECT_TRUE(other.LblRecount.visible);
    EXPECT_EQ(test.Bytes(work_file::kStatistics), bad) << "left as it is";
  }
  EXPECT_EQ(test.prompter.boxes().size(), 2U);
}

TEST_F(Bill, ThatCannotBeReadIsNoMissingOne) {
  UnreadableDisk disk(test.work_disk);
  Workspace barred(disk, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                   test.clock);
  disk.Bar(work_file::kStatistics);
  test.study.PipeStats.clear();
  const auto quantities = ReadQuantities(barred, test.study);
  ASSERT_TRUE(quantities.ok());
  EXPECT_EQ(quantities->recount, Recount::kUnread);
  EXPECT_EQ(quantities->lines.at(1).Length, 19.0F);
  disk.Bar(work_file::kRows);
  test.study.PipeStats.assign(1, StatRow());
  EXPECT_FALSE(ReadQuantities(barred, test.study).ok());
}

TEST_F(Bill, WithoutItsPipeSystemIsToldAndEmpty) {
  test.study.pipe_system_number = 9;
  form.Load();
  EXPECT_NE(LastBox().find("0009.WPT"), std::string::npos);
  EXPECT_TRUE(form.LblEmpty.visible);
}

// Lengths of the winter are its own and no other pipes are bought for it.
TEST_F(Bill, OfAWinterSessionIsThatOfSummer) {
  ASSERT_TRUE(test.workspace.Copy(work_file::kRows, work_file::kSummerRows).ok());
  test.ChangeRow(1, [](SectionRow& row) { row.Length = 99; });
  desk.screens.WinterPump = true;
  form.Load();
  EXPECT_EQ(Line(1), "1/2|19|4|---|3|---|---|1");
  test.study.PipeStats.pop_back();
  FrmStatS recounted(desk);
  recounted.Load();
  EXPECT_EQ(recounted.fpSpread1.At(1, 1).text, "19");
}

TEST_F(Bill, OfALoneSectionIsItsPipe) {
  Calculate({"ANT/ANT 5m 2 elbows soma 300l/h 500mm"});
  form.Load();
  EXPECT_EQ(Line(0), "3/8|5|2|---|---|---|---|---");
  EXPECT_EQ(form.LblUsed.text, "1");
}

TEST(OpenBill, HasNoContentOfWater) {
  ResultsDesk desk(SystemKind::kOpen);
  FrmStatS form(desk.desk);
  form.Load();
  EXPECT_EQ(form.LblLength.text, "20,0");
  Click(form, form.CmdWater);
  const Box& box = desk.test.prompter.boxes().back();
  EXPECT_EQ(box.title, "...!! ΠΡΟΣΟΧΗ !!...");
  EXPECT_EQ(Joined(box.lines), "Αυτή η Επιλογή έχει νόημα μΟΝΟΝ για < Κλειστό > Σύστημα Σωλήνων");
  EXPECT_FALSE(form.LblWater.visible);
}

TEST_F(Bill, OpensOverEitherView) {
  FrmRes one(desk);
  one.Load();
  FrmRes_Sheet sheet(desk);
  sheet.Load();
  TakeLog();
  navigator.Expect(screen::kQuantities, [] {});
  Click(one, one.CmdExar);
  navigator.Expect(screen::kQuantities, [] {});
  Click(sheet, sheet.CmdExar);
  EXPECT_EQ(TakeLog(), (std::vector<std::string>{"modal FrmStatS", "modal FrmStatS"}));
  std::vector<std::string> names;
  for (const Menu& menu : {one.menus.at(0), one.popup}) {
    for (const MenuEntry& entry : menu.entries) {
      if (entry.command == &one.CmdExar) names.push_back(entry.name);
    }
  }
  EXPECT_EQ(Joined(names), "mnuResPres_Prom|mnuPUForm_Prom");
}

TEST_F(Bill, OfAWaitingChangeComesAfterItsQuestion) {
  FrmRes one(desk);
  one.Load();
  ImposeFromMenu(2);
  TakeLog();
  test.prompter.Expect(304, Answer::kCancel);
  Click(one, one.CmdExar);
  EXPECT_TRUE(TakeLog().empty());
}

}  // namespace
}  // namespace kalvo
