#include "shell/program_folder.h"

#include <gtest/gtest.h>

#include "shell/options.h"
#include "shell/program_log.h"
#include "study/memory_disk.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

void Put(Disk& disk, const std::string& path, std::string bytes = "x") {
  ASSERT_TRUE(disk.MakeFolder(std::filesystem::path(path).parent_path()).ok());
  ASSERT_TRUE(disk.Write(path, std::move(bytes)).ok());
}

TEST(ProgramFolder, IsFoundInTheOrderOfWhatWasSaid) {
  MemoryDisk disk;
  Put(disk, "/stick/0001.WPT");
  Put(disk, "/given/readme");
  Put(disk, "/home/eleni/a.PCA");
  Surroundings start{"", "/usr/bin", {{"HOME", "/home/eleni"}}};
  EXPECT_EQ(FindPlaces(disk, start).folder, "/home/eleni/.local/share/kalvoflume");
  EXPECT_EQ(FindPlaces(disk, start).state_folder, "/home/eleni/.local/state/kalvoflume");
  start.environment["XDG_DATA_HOME"] = "/data";
  EXPECT_EQ(FindPlaces(disk, start).folder, "/data/kalvoflume");
  start.executable_folder = "/stick";
  EXPECT_EQ(FindPlaces(disk, start).folder, "/stick");
  start.environment["KALVOFLUME_HOME"] = "/own";
  EXPECT_EQ(FindPlaces(disk, start).folder, "/own");
  start.argument = "/home/eleni/a.PCA";
  EXPECT_EQ(FindPlaces(disk, start).folder, "/own");
  EXPECT_EQ(FindPlaces(disk, start).study, "/home/eleni/a.PCA");
  start.argument = "/given";
  EXPECT_EQ(FindPlaces(disk, start).folder, "/given");
  EXPECT_TRUE(FindPlaces(disk, start).study.empty());
}

TEST(ProgramFolder, TakesAStudyByItsNameWhenOneKindHasIt) {
  MemoryDisk disk;
  for (const char* const name : {"hotel.PCK", "school.pca", "both.PCK", "both.PCA", "note.txt"}) {
    Put(disk, std::string("/s/") + name);
  }
  Put(disk, "/s/first.saving~", "KALVOFLUME 1\nfirst.PCA\nTELOS\n");
  Put(disk, "/s/first.PCA.new~");
  UnreadableDisk closed(disk);
  Surroundings start{"", "/usr/bin", {{"HOME", "/home/eleni"}}};
  const auto places = [&](const std::string& argument) {
    start.argument = argument;
    return FindPlaces(closed, start);
  };
  EXPECT_EQ(places("/s/hotel").study, "/s/hotel.PCK");
  EXPECT_EQ(places("/s/Σχόλια/../school").study, "/s/school.pca");
  EXPECT_EQ(places("/s/first").study, "/s/first.PCA") << "its save was broken off";
  EXPECT_EQ(places("/s/gone.PCK").study, "/s/gone.PCK") << "opening it gives the reason";
  EXPECT_FALSE(places("/s/hotel").refused || places("").refused || places("/s").refused);
  for (const auto& [argument, reason] :
       {std::pair("/s/both",
                  "Υπάρχουν δύο μελέτες με αυτό το όνομα, δώστε και την προέκταση "
                  "( .PCK ή .PCA )"),
        std::pair("/s/note.txt", "Δεν είναι μελέτη ούτε φάκελος του προγράμματος"),
        std::pair("/s/none", "Δεν υπάρχει τέτοιος φάκελος ή μελέτη"),
        std::pair("/s/closed", "Σφάλμα του δίσκου")}) {
    closed.Bar("closed");
    const ProgramPlaces refused = places(argument);
    EXPECT_TRUE(refused.study.empty());
    ASSERT_TRUE(refused.refused) << argument;
    EXPECT_EQ(refused.refused->Line(), std::string(reason) + " : " + argument);
  }
}

TEST(ProgramFolder, GetsWhatItLacksAndKeepsWhatItHas) {
  MemoryDisk disk;
  Put(disk, "/share/library/0001.WPT", "new one");
  Put(disk, "/share/library/Liquids.dat", "fluids");
  Put(disk, "/share/samples/hotel.PCK", "hotel");
  Put(disk, "/share/sound/echo.wav", "sound");
  Put(disk, "/share/templates/KALV_RS.xls", "results");
  Put(disk, "/share/templates/KALV_PR.xls", "quantities");
  Put(disk, "/share/shells/KALVMSTR.MDB", "shell");
  ASSERT_TRUE(FillProgramFolder(disk, "/home/k", "/share").ok());
  EXPECT_EQ(*disk.Read("/home/k/PFILES/hotel.PCK"), "hotel");

  Put(disk, "/home/k/0001.WPT", "my own");
  Put(disk, "/home/k/KALV_RS.xls", "with my logo");
  ASSERT_TRUE(disk.Rename("/home/k/KALV_PR.xls", "/home/k/kalv_pr.XLS").ok());
  Put(disk, "/share/library/0002.WPT", "added later");
  ASSERT_TRUE(disk.Remove("/home/k/PFILES/hotel.PCK").ok());
  ASSERT_TRUE(FillProgramFolder(disk, "/home/k", "/share").ok());
  EXPECT_EQ(*disk.Read("/home/k/0001.WPT"), "my own");
  EXPECT_EQ(*disk.Read("/home/k/0002.WPT"), "added later");
  EXPECT_EQ(*disk.Read("/home/k/KALV_RS.xls"), "with my logo");
  EXPECT_FALSE(disk.Exists("/home/k/KALV_PR.xls")) << "it is there in other letters";
  EXPECT_EQ(*disk.Read("/home/k/echo.wav"), "sound");
  EXPECT_EQ(*disk.Read("/home/k/KALVMSTR.MDB"), "shell");
  EXPECT_FALSE(disk.Exists("/home/k/PFILES/hotel.PCK")) << "a sample thrown away stays away";
}

TEST(ProgramLog, RewritesItsOwnRecordAndLeavesOthers) {
  MemoryDisk disk;
  const std::string other = "OTHER.EXE" + std::string(241, ' ');
  Put(disk, "/state/VamoProgs.log", other + "rest");
  RecordProgram(disk, "/state", "/program");
  RecordProgram(disk, "/state", "/elsewhere");
  const std::string log = *disk.Read("/state/VamoProgs.log");
  EXPECT_EQ(log.size(), 500U);
  EXPECT_EQ(log.substr(0, 250), other);
  const auto row = DecodeRecord<ProgramRow>(log.data() + 250);
  EXPECT_EQ(row.program.Utf8(), "KALVO.EXE");
  EXPECT_EQ(row.folder.Utf8(), "/elsewhere");
  EXPECT_EQ(row.display_name.Utf8(), "Kalvoflume");
}

TEST(RememberedOptions, ComeBackAndABrokenFileIsAsAtFirst) {
  TestBench bench;
  EXPECT_FALSE(ReadOptions(bench.workspace).SoundOn);
  EXPECT_TRUE(ReadOptions(bench.workspace).ChkDataKind);
  const Options options{true, false, false, "Ά. Ωμέγας = Υιός"};
  ASSERT_TRUE(WriteOptions(bench.workspace, options).ok());
  EXPECT_EQ(ReadOptions(bench.workspace), options);
  ASSERT_TRUE(bench.workspace.Write(work_file::kOptions, "\x01SoundOn=9\nChkDataKind=0").ok());
  EXPECT_FALSE(ReadOptions(bench.workspace).SoundOn);
  EXPECT_FALSE(ReadOptions(bench.workspace).ChkDataKind);
}

}  // namespace
}  // namespace kalvo
