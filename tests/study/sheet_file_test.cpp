#include "study/sheet_file.h"

#include <gtest/gtest.h>

#include <random>

#include "study/digest.h"

namespace kalvo {
namespace {

const std::filesystem::path kFile = "/program/Spread.@@@";

SheetRow RowOf(std::string left, std::string right, std::string length, int origin,
               std::string_view name) {
  SheetRow row{{}, origin, FixedText<7>::FromBytes(name)};
  row.texts[0] = std::move(left);
  row.texts[1] = "/";
  row.texts[2] = std::move(right);
  row.texts[3] = std::move(length);
  row.texts[15] = "0";
  return row;
}

SheetImage Sheet() {
  return {SystemKind::kOpen,
          2,
          {RowOf("1", "ANT", "12,5", 1, "  1/ANT"), RowOf("Α.β", "1", "", 0, ""),
           RowOf("3", "", "-0,75", 2, "  2/1")}};
}

std::string Reason(std::string_view bytes) {
  const auto sheet = DecodeSheet(bytes, kFile, ',');
  if (sheet) return "(decoded)";
  EXPECT_EQ(sheet.error().file, kFile);
  return sheet.error().reason;
}

TEST(SheetFile, GivesBackWhatTheUserSees) {
  EXPECT_EQ(*DecodeSheet(EncodeSheet(Sheet(), ','), kFile, ','), Sheet());
  EXPECT_EQ(*DecodeSheet(EncodeSheet({}, ','), kFile, ','), SheetImage{});
  EXPECT_EQ(EncodeSheet({SystemKind::kClosed, 7, {}}, '.'),
            "KALVOFLUME SHEET\t1\tCLOSED\t.\t7\t0\nTELOS 795f9078306ec243\n");
}

TEST(SheetFile, CarriesAnyText) {
  SheetImage sheet = Sheet();
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  sheet.rows[0].texts[0] = FromCodePage(all);
  sheet.rows[0].texts[14] = "\\t\\";
  sheet.rows[0].texts[15] = "\n";
  sheet.rows[1].origin_name = FixedText<7>::FromBytes("\xAA\n\t\\\xFF\0 ");
  EXPECT_EQ(*DecodeSheet(EncodeSheet(sheet, ','), kFile, ','), sheet);
}

TEST(SheetFile, CountsTheRowsWithMoreThanTheNamesTheyBeganWith) {
  SheetImage open{SystemKind::kOpen, 0, std::vector<SheetRow>(3)};
  for (int i = 0; i < 3; ++i)
    open.rows[static_cast<std::size_t>(i)].texts[0] = std::to_string(i + 1);
  open.rows[0].texts[2] = "ANT";
  EXPECT_EQ(CountSections(open), 0);
  open.rows[1].texts[2] = "ANT";
  EXPECT_EQ(CountSections(open), 2);
  SheetImage closed{SystemKind::kClosed, 0, std::vector<SheetRow>(2)};
  closed.rows[0].texts[0] = "ANT";
  closed.rows[0].texts[1] = closed.rows[1].texts[1] = "/";
  EXPECT_EQ(CountSections(closed), 0);
  closed.rows[1].texts[15] = "0";
  EXPECT_EQ(CountSections(closed), 2);
}

TEST(SheetFile, ReadsNumbersUnderAnotherDecimalSign) {
  SheetImage sheet = Sheet();
  sheet.rows[1].texts[3] = "1.234,5";  // as it may be pasted
  const auto read = *DecodeSheet(EncodeSheet(sheet, ','), kFile, '.');
  EXPECT_EQ(read.rows[0].texts[3], "12.5");
  EXPECT_EQ(read.rows[1].texts[3], "1234.5");
  EXPECT_EQ(read.rows[2].texts[3], "-0.75");
  EXPECT_EQ(read.rows[1].texts[0], "Α.β") << "a name is no number";
  EXPECT_EQ(DecodeSheet(EncodeSheet(read, '.'), kFile, ',')->rows[2].texts[3], "-0,75");
}

TEST(SheetFile, CutAnywhereOrChangedInOneByteIsRefused) {
  const std::string whole = EncodeSheet(Sheet(), ',');
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_NE(Reason(whole.substr(0, length)), "(decoded)") << length;
    std::string other = whole;
    other[length] = static_cast<char>(other[length] ^ 1);
    EXPECT_NE(Reason(other), "(decoded)") << length;
  }
  EXPECT_EQ(Reason(whole.substr(0, whole.size() - 1)),
            "Το φύλλο Τμημάτων είναι ελλιπές ή αλλοιωμένο");
  EXPECT_EQ(Reason(whole + "\n"), "Το φύλλο Τμημάτων είναι ελλιπές ή αλλοιωμένο");
}

TEST(SheetFile, OfNoiseIsRefused) {
  std::mt19937 random(7);
  for (int i = 0; i < 300; ++i) {
    std::string noise(random() % 400, ' ');
    for (char& byte : noise) byte = static_cast<char>(random());
    EXPECT_EQ(Reason(noise), "Δεν είναι αρχείο φύλλου Τμημάτων");
    EXPECT_NE(Reason("KALVOFLUME SHEET\t1\tOPEN\t,\t0\t1\n" + noise), "(decoded)");
  }
}

// A file whose foot is right, as somebody would have to make it on purpose.
TEST(SheetFile, HoldsNoMoreThanItsHeadTells) {
  const auto with_foot = [](std::string body) {
    char foot[32];
    std::snprintf(foot, sizeof foot, "TELOS %lx\n", Digest(body));
    return body + foot;
  };
  const std::string row = "0\t\t" + std::string(15, '\t') + "\n";
  const std::string head = "KALVOFLUME SHEET\t1\tOPEN\t,\t0\t";
  EXPECT_EQ(Reason(with_foot(head + "1\n" + row)), "(decoded)");
  for (const std::string& bad :
       {head + "2\n" + row, head + "0\n" + row, head + "1\n" + row.substr(1), head + "1\n0\t" + row,
        head + "1\n\t" + row, head + "-1\n", head + "99999\n", head + "1x\n" + row,
        std::string("KALVOFLUME SHEET\t1\tBOTH\t,\t0\t0\n"),
        std::string("KALVOFLUME SHEET\t1\tOPEN\t\t0\t0\n")}) {
    EXPECT_EQ(Reason(with_foot(bad)), "Το φύλλο Τμημάτων είναι ελλιπές ή αλλοιωμένο") << bad;
  }
  EXPECT_EQ(Reason(with_foot("KALVOFLUME SHEET\t2\tnew things\n")),
            "Το φύλλο Τμημάτων είναι άλλης έκδοσης του Προγράμματος");
}

}  // namespace
}  // namespace kalvo
