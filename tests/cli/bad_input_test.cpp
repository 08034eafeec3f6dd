// Studies and libraries that cannot be used: a clear message, the exit code, every file as it was.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "study/real_disk.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string Noise(std::size_t length) {
  std::string bytes;
  for (std::uint32_t state = 7; bytes.size() < length;) {
    state = state * 1664525U + 1013904223U;
    bytes += static_cast<char>(state >> 24U);
  }
  return bytes;
}

struct BadFile {
  std::string bytes;
  std::string reason;
};

std::vector<BadFile> BadFiles() {
  using Rows = std::vector<SectionRow>;
  using Limits = std::numeric_limits<float>;
  const Rows rows = Network(SoundNetwork());
  const std::string sound = EncodeRows<SectionRow>(rows);
  const auto with = [&rows](auto&& change) {
    Rows changed = rows;
    change(changed);
    return EncodeRows<SectionRow>(changed);
  };
  const std::string odd_length = "Το μήκος του αρχείου δεν είναι ακέραιο πλήθος εγγραφών";
  return {
      {sound + "x", odd_length},
      {sound.substr(0, 400), odd_length},
      {"", "Το αρχείο είναι κενό"},
      {Noise(5 * 355), ""},
      {with([](Rows& bad) { bad[1].Length = Limits::quiet_NaN(); }),
       "Άκυρος αριθμός στην εγγραφή 2, πεδίο Length"},
      {with([](Rows& bad) { bad[4].SomaDrop = -Limits::infinity(); }),
       "Άκυρος αριθμός στην εγγραφή 5, πεδίο SomaDrop"},
      {with([](Rows& bad) { std::swap(bad[0].KLEIS, bad[0].ANOIK); }),
       "Η μελέτη είναι άλλου είδους Συστήματος Σωλήνων"},
      {with([](Rows& bad) { bad[0].FileNumber = 2; }), "Δεν υπάρχει το Σύστημα Σωλήνων Νο 2"},
  };
}

TEST(BadInput, StudyThatCannotBeReadIsToldAndLeftAsItIs) {
  for (const BadFile& bad : BadFiles()) {
    const CliBench bench;
    const std::string study = bench.Put("Κτίριο Α.PCK", bad.bytes);
    const FolderImage before = bench.Studies();
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"calc", study, "--save", bench.Path("new.PCK")},
          {"calc", study, "--fixed"},
          {"check", study},
          {"show", study},
          {"explain", study, "1"},
          {"quantities", study}}) {
      const Told told = bench.Run(arguments);
      EXPECT_EQ(told.code, 3) << bad.reason << " " << arguments.front();
      EXPECT_EQ(told.out, "") << bad.reason;
      EXPECT_THAT(told.err, StartsWith(" !!... ΠΡΟΣΟΧΗ ...!! \n"
                                       "... Ελλιπές Σύνολο Αρχείων Μελέτης ...\n" +
                                       bad.reason));
      EXPECT_THAT(told.err, HasSubstr(" : " + study)) << bad.reason;
    }
    EXPECT_TRUE(bench.Studies() == before) << bad.reason;
  }
}

TEST(BadInput, NodeNamesOfAnyBytesDoNoHarm) {
  const std::string noise = Noise(7 * 6 * 20);
  for (std::size_t round = 0; round < 20; ++round) {
    const CliBench bench;
    std::vector<SectionRow> rows = Network(SoundNetwork());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      rows[i].Name = FixedText<7>::FromBytes(noise.substr((round * 6 + i) * 7, 7));
    }
    const std::string study = bench.Put("study.PCK", rows);
    EXPECT_EQ(bench.Run({"calc", study}).code, 4);
    EXPECT_EQ(bench.Run({"check", study}).code, 4);
    const Told told = bench.Run({"show", study});
    EXPECT_EQ(told.code, 0);
    EXPECT_TRUE(IsUtf8(told.out));
    EXPECT_EQ(told.out.find_first_of("\x1b\x07\r\b"), std::string::npos);
  }
}

TEST(BadInput, MissingAndUnsuitableLibraries) {
  const CliBench bench;
  const std::string study = bench.Put("study.PCK", SoundNetwork());
  const Told missing = Kalvo({"calc", study, "--library", bench.Path("none")});
  EXPECT_EQ(missing.code, 3);
  EXPECT_EQ(missing.err,
            "! ΠΡΟΣΟΧΗ !\nΑκατάλληλες Βιβλιοθήκες Σωλήνων\n"
            "Δεν βρέθηκαν Βιβλιοθήκες Σωλήνων : " +
                bench.Path("none") + "\n");
  const Told fluids = bench.Run({"fluids"});
  EXPECT_EQ(fluids.code, 3);
  EXPECT_THAT(fluids.err, StartsWith("Δεν βρέθηκαν Ρέοντα Μέσα : "));

  RealDisk disk;
  ASSERT_TRUE(disk.Write(bench.library() / "0000.WPT", "").ok());
  FolderImage before = bench.Libraries();
  EXPECT_EQ(bench.Run({"calc", study}).code, 0);
  EXPECT_TRUE(bench.Libraries() == before);  // an empty one just takes no place
  ASSERT_TRUE(disk.Write(bench.library() / "0002.WPT", std::string(147, ' ')).ok());
  before = bench.Libraries();
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"calc", study}, {"pipes"}, {"show", study}}) {
    const Told told = bench.Run(arguments);
    EXPECT_EQ(told.code, 3);
    EXPECT_THAT(told.err, StartsWith("! ΠΡΟΣΟΧΗ !\nΑκατάλληλες Βιβλιοθήκες Σωλήνων\n"));
    EXPECT_THAT(told.err, HasSubstr("0002.WPT"));
  }
  EXPECT_TRUE(bench.Libraries() == before);
}

}  // namespace
}  // namespace kalvo
