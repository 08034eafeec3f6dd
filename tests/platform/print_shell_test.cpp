#include "platform/jet/print_shell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/jet/jet_bytes.h"
#include "platform/jet/jet_file.h"
#include "platform/jet/jet_format.h"
#include "platform/jet/jet_reasons.h"
#include "platform/print_files.h"
#include "study/memory_disk.h"
#include "tests/platform/printed_rows.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

constexpr std::size_t kDefinition = 6 * jet::kPageSize;  // of the print table in a shell of ours

std::string Shell() { return MakePrintShell(SectionPrintColumns()); }

std::string RefusalOf(std::string shell) {
  static const PrintTable table = PrintedTable(2);
  const auto filled = FillPrintShell(std::move(shell), table);
  return filled ? "(filled)" : filled.error().Line();
}

std::string WithByte(std::size_t at, char byte) {
  std::string shell = Shell();
  shell[at] = byte;
  return shell;
}

// A shell whose first page, unscrambled, has other bytes at a place.
std::string WithHead(std::size_t at, std::string_view bytes) {
  using namespace jet;
  std::string shell = Shell();
  std::string head = Scrambled(shell.substr(kScrambledAt, kScrambledSize), kScramblingKey);
  head.replace(at - kScrambledAt, bytes.size(), bytes);
  return shell.replace(kScrambledAt, kScrambledSize, Scrambled(head, kScramblingKey));
}

TEST(PrintShell, IsTheOneDelivered) {
  for (const auto& [name, columns] : {std::pair{"KALVMSTR.MDB", SectionPrintColumns()},
                                      {"PISTMSTR.MDB", QuantityPrintColumns()}}) {
    std::ifstream file(std::filesystem::path(KALVO_SHELLS_DIR) / name, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(bytes == MakePrintShell(columns)) << name;
  }
}

TEST(PrintShell, GivesBackWhatIsPutIn) {
  for (const int count : {0, 1, 5, 6, 999}) {
    const PrintTable table = PrintedTable(count);
    const auto filled = FillPrintShell(Shell(), table);
    ASSERT_TRUE(filled) << filled.error().Line();
    const auto read = ReadPrintShell(*filled, table.columns);
    ASSERT_TRUE(read) << read.error().Line();
    EXPECT_EQ(read->lines, table.lines) << count;
  }
}

TEST(PrintShell, KeepsTheLinesThatItHasAlready) {
  const PrintTable table = PrintedTable(7);
  const auto twice = FillPrintShell(*FillPrintShell(Shell(), table), table);
  ASSERT_TRUE(twice) << twice.error().Line();
  const auto read = ReadPrintShell(*twice, table.columns);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->lines.size(), 14U);
  EXPECT_EQ(jet::U32At(*twice, kDefinition + jet::kLinesAt), 14U);
}

TEST(PrintShell, MayHaveFurtherColumnsInAnyOrderAndCase) {
  std::vector<PrintColumn> columns = SectionPrintColumns();
  std::ranges::reverse(columns);
  columns.insert(columns.begin() + 3, {"Notes", PrintType::kText, 50});
  columns.insert(columns.begin() + 9, {"Floor", PrintType::kInteger, 0});
  std::ranges::find(columns, "Thema", &PrintColumn::name)->name = "THEMA";
  const PrintTable table = PrintedTable(20);
  const auto filled = FillPrintShell(MakePrintShell(columns), table);
  ASSERT_TRUE(filled) << filled.error().Line();
  EXPECT_EQ(ReadPrintShell(*filled, table.columns)->lines, table.lines);
  EXPECT_EQ(ReadPrintShell(*filled, {{"Floor", PrintType::kInteger, 0}})->lines,
            std::vector<PrintLine>(20, PrintLine(1)));
}

TEST(PrintShell, TextsOfOtherProgramsMayBeCompressed) {
  EXPECT_EQ(jet::FromJetText(std::string("\xFF\xFEmm\0\xB1\x03\xC9\x03\0x", 12)), "mmαωx");
  EXPECT_EQ(jet::FromJetText("\xFF\xFE"), "");
  EXPECT_EQ(jet::FromJetText(jet::ToJetText("Ωμέγα", 3)), "Ωμέ");
  EXPECT_EQ(jet::FromJetText(std::string("\0\xD8", 2)), "\xEF\xBF\xBD");
}

TEST(PrintShell, ThatIsNoSuchDatabaseIsRefused) {
  using namespace jet;
  EXPECT_EQ(RefusalOf(""), jet_reason::kEmpty);
  EXPECT_EQ(RefusalOf(std::string(40960, '\x5A')), jet_reason::kOtherKind);
  EXPECT_EQ(RefusalOf(WithByte(kVersionAt, 0)), jet_reason::kOlder);
  EXPECT_EQ(RefusalOf(WithByte(kVersionAt, 2)), jet_reason::kNewer);
  EXPECT_EQ(RefusalOf(std::string(kNewSignature)), jet_reason::kNewer);
  EXPECT_EQ(RefusalOf(WithHead(kKeyAt, "\x12\x34\x56\x78")), jet_reason::kEncrypted);
  EXPECT_EQ(RefusalOf(Shell() + std::string(kMostJetBytes, '\0')), jet_reason::kTooLarge);
  EXPECT_EQ(RefusalOf(WithByte(kCatalogPage * kPageSize, kDataPage)), jet_reason::kDamaged);
}

TEST(PrintShell, WithoutTheTableOrAColumnIsRefusedByName) {
  std::string shell = Shell();
  const std::string name = jet::ToJetText(kPrintTable, 99);
  shell[shell.find(name)] = 'N';
  EXPECT_EQ(RefusalOf(shell), "Στη βάση δεδομένων λείπει ο πίνακας < My_Table Data >");

  const auto without = [](auto change) {
    std::vector<PrintColumn> columns = SectionPrintColumns();
    change(columns, std::ranges::find(columns, "Material", &PrintColumn::name));
    return RefusalOf(MakePrintShell(columns));
  };
  EXPECT_EQ(without([](auto& columns, auto at) { columns.erase(at); }),
            "Στον πίνακα < My_Table Data > λείπει η στήλη < Material >");
  const std::string other =
      "Στον πίνακα < My_Table Data > η στήλη < Material > έχει άλλον τύπο ή μικρότερο πλάτος";
  EXPECT_EQ(without([](auto&, auto at) { --at->width; }), other);
  EXPECT_EQ(without([](auto&, auto at) { at->type = PrintType::kSingle; }), other);
  EXPECT_EQ(RefusalOf(MakePrintShell(QuantityPrintColumns())),
            "Στον πίνακα < My_Table Data > λείπει η στήλη < SectionNo >");
}

TEST(PrintShell, WithAnIndexIsRefused) {
  EXPECT_EQ(RefusalOf(WithByte(kDefinition + jet::kIndexesAt, 1)),
            "Στον πίνακα < My_Table Data > υπάρχει ευρετήριο");
}

TEST(PrintShell, CutAnywhereIsRefused) {
  const std::string whole = Shell();
  // Nearly all lengths are refused at a look at them alone.
  for (std::size_t length = 0; length < whole.size(); length += length % 4096 == 0 ? 1 : 65) {
    const std::string reason = RefusalOf(whole.substr(0, length));
    ASSERT_TRUE(reason == jet_reason::kEmpty || reason == jet_reason::kCut ||
                reason == jet_reason::kDamaged ||
                reason == "Στη βάση δεδομένων λείπει ο πίνακας < My_Table Data >")
        << length << reason;
  }
}

TEST(PrintShell, WithAnyByteChangedIsFilledOrRefused) {
  const std::string whole = Shell();
  const PrintTable table = PrintedTable(1);
  for (std::size_t at = 0; at < whole.size(); at += whole[at] == 0 ? 211 : 5) {
    for (const char byte : {'\0', '\xFF'}) {
      std::string shell = whole;
      shell[at] = byte;
      const auto filled = FillPrintShell(std::move(shell), table);
      EXPECT_TRUE(!filled || filled->size() == whole.size() + jet::kPageSize) << at;
    }
  }
}

TEST(PrintShell, HoldsNoMoreLinesThanItsUsageMapPages) {
  const PrintTable row = PrintedTable(1);
  PrintTable table{row.columns, std::vector<PrintLine>(5000, row.lines.front())};
  const auto filled = FillPrintShell(Shell(), table);
  ASSERT_FALSE(filled);
  EXPECT_EQ(filled.error().reason, jet_reason::kDoesNotFit);
}

class PrintFilesTest : public testing::Test {
 protected:
  PrintFilesTest() { EXPECT_TRUE(memory_.Write(kShell, Shell())); }

  const std::filesystem::path kShell = "/program/KALVMSTR.MDB";
  const std::filesystem::path kFile = "/program/PRNFILE.MDB";
  MemoryDisk memory_;
  FailingDisk disk_{memory_};
  PrintFiles files_{disk_};
};

TEST_F(PrintFilesTest, ReplaceTheDatabaseWhole) {
  ASSERT_TRUE(files_.Export(kShell, PrintedTable(9), kFile));
  const std::string first = *memory_.Read(kFile);
  EXPECT_EQ(ReadPrintShell(first, SectionPrintColumns())->lines.size(), 9U);

  disk_.FailAfterBytes(9000);
  const Outcome full = files_.Export(kShell, PrintedTable(99), kFile);
  ASSERT_FALSE(full);
  EXPECT_TRUE(*memory_.Read(kFile) == first);
  EXPECT_EQ(memory_.List("/program")->size(), 2U);
  EXPECT_TRUE(*memory_.Read(kShell) == Shell());
}

TEST_F(PrintFilesTest, TellWhichShellIsAtFault) {
  ASSERT_TRUE(memory_.Write(kShell, "?"));
  const Outcome noise = files_.Export(kShell, PrintedTable(1), kFile);
  ASSERT_FALSE(noise);
  EXPECT_EQ(noise.error().Line(), std::string(jet_reason::kOtherKind) + " : " + kShell.string());
  ASSERT_TRUE(memory_.Remove(kShell));
  const Outcome missing = files_.Export(kShell, PrintedTable(1), kFile);
  ASSERT_FALSE(missing);
  EXPECT_TRUE(missing.error().IsMissing());
  EXPECT_EQ(missing.error().file, kShell);
  disk_.FailAtLook(1);
  EXPECT_FALSE(files_.Export(kShell, PrintedTable(1), kFile));
  EXPECT_FALSE(memory_.Exists(kFile));
}

}  // namespace
}  // namespace kalvo
