#include "study/family_save.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <random>
#include <set>

#include "study/load_study.h"
#include "study/real_disk.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"
#include "study/write_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// A folder with a journal and staged files as a save that was broken off leaves them.
MemoryDisk BrokenOff(const std::string& journal) {
  MemoryDisk disk;
  for (const char* name : {"b.PCK", "b.LQD", "other.PCK", "b.txt", "b2.PCK"}) {
    EXPECT_TRUE(disk.Write(kStudies / name, "old").ok());
    EXPECT_TRUE(disk.Write(kStudies / (std::string(name) + ".new~"), "new").ok());
  }
  EXPECT_TRUE(disk.Write(kStudies / "b.saving~", journal).ok());
  return disk;
}

TEST(FinishSave, EndsWhatAWholeJournalTells) {
  MemoryDisk disk = BrokenOff("KALVOFLUME 1\nb.LQD\nb.PCK\nTELOS\n");
  ASSERT_TRUE(FinishSave(disk, kStudies, "b").ok());
  FolderImage wanted = ImageOf(BrokenOff(""), kStudies);
  wanted["b.PCK"] = wanted["b.LQD"] = "new";
  for (const char* name : {"b.saving~", "b.PCK.new~", "b.LQD.new~"}) {
    wanted.erase(name);
  }
  EXPECT_EQ(ImageOf(disk, kStudies), wanted);
}

TEST(FinishSave, DiscardsWhatABrokenOrForeignJournalTells) {
  for (const char* journal :
       {"", "KALVOFLUME 1\n", "KALVOFLUME 1\nb.PCK\n", "KALVOFLUME 2\nb.PCK\nTELOS\n",
        "KALVOFLUME 1\nb.PCKTELOS\n", "KALVOFLUME 1\nb.PCK\nother.PCK\nTELOS\n",
        "KALVOFLUME 1\nb.txt\nb.PCK\nTELOS\n", "KALVOFLUME 1\n../studies/b.PCK\nTELOS\n"}) {
    SCOPED_TRACE(journal);
    MemoryDisk disk = BrokenOff(journal);
    ASSERT_TRUE(FinishSave(disk, kStudies, "b").ok());
    FolderImage wanted = ImageOf(BrokenOff(""), kStudies);
    for (const char* name : {"b.saving~", "b.PCK.new~", "b.LQD.new~"}) {
      wanted.erase(name);
    }
    EXPECT_EQ(ImageOf(disk, kStudies), wanted);
  }
}

TEST(FinishSave, WithoutAJournalLeavesStagedFilesToTheNextSave) {
  MemoryDisk disk = BrokenOff("");
  ASSERT_TRUE(disk.Remove(kStudies / "b.saving~").ok());
  FailingDisk counting(disk);
  counting.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  EXPECT_TRUE(FinishSave(counting, kStudies, "b").ok()) << "a disk that cannot be written will do";
  EXPECT_EQ(counting.operations(), 0);
  ASSERT_TRUE(SaveFamily(disk, kStudies, "b", {{"b.PCK", "newest"}}).ok());
  EXPECT_EQ(*disk.Read(kStudies / "b.PCK"), "newest");
  EXPECT_EQ(*disk.Read(kStudies / "b.LQD"), "old");
  EXPECT_FALSE(disk.Exists(kStudies / "b.LQD.new~"));
}

// Another process opens the study at each step of a save.
class ReadMeanwhile : public ForwardingDisk {
 public:
  using ForwardingDisk::ForwardingDisk;
  Outcome Flush(const fs::path& path) override {
    EXPECT_TRUE(FinishSave(inner_, kStudies, "b").ok());
    return inner_.Flush(path);
  }
};

TEST(SaveFamily, EndsWellWhileOthersOpenTheStudy) {
  MemoryDisk disk;
  ReadMeanwhile watched(disk);
  ASSERT_TRUE(SaveFamily(watched, kStudies, "b", {{"b.LQD", "new"}, {"b.PCK", "new"}}).ok());
  EXPECT_EQ(ImageOf(disk, kStudies), (FolderImage{{"b.LQD", "new"}, {"b.PCK", "new"}}));
}

// A disk that gives no file the name `to`.
class RefusingDisk : public ForwardingDisk {
 public:
  RefusingDisk(Disk& inner, std::string to) : ForwardingDisk(inner), to_(std::move(to)) {}
  Outcome Rename(const fs::path& from, const fs::path& to) override {
    return to.filename() == to_ ? FileError{to, "Σφάλμα του δίσκου"} : inner_.Rename(from, to);
  }

 private:
  std::string to_;
};

TEST(SaveFamily, IsTakenBackUntilTheFirstFileHasItsNameAndFinishedLaterFromThenOn) {
  const FolderImage old = {{"b.LQD", "old"}, {"b.PCK", "old"}};
  const std::vector<FamilyFile> files = {{"b.LQD", "new"}, {"b.PCK", "new"}};
  MemoryDisk disk;
  for (const auto& [name, bytes] : old) {
    ASSERT_TRUE(disk.Write(kStudies / name, bytes).ok());
  }
  RefusingDisk first(disk, "b.LQD");
  const Outcome refused = SaveFamily(first, kStudies, "b", files);
  ASSERT_FALSE(refused.ok());
  EXPECT_EQ(refused.error().file, kStudies / "b.LQD");
  EXPECT_EQ(ImageOf(disk, kStudies), old) << "not saved, and nothing left of it";

  RefusingDisk second(disk, "b.PCK");
  const Outcome halfway = SaveFamily(second, kStudies, "b", files);
  ASSERT_FALSE(halfway.ok());
  EXPECT_EQ(halfway.error().file, kStudies / "b.saving~");
  EXPECT_NE(halfway.error().reason.find("/studies/b.PCK"), std::string::npos);
  const Outcome again = SaveFamily(second, kStudies, "b", {{"b.PCK", "newest"}});
  ASSERT_FALSE(again.ok());
  EXPECT_EQ(again.error().file, kStudies / "b.saving~") << "a later save first finishes it";
  ASSERT_TRUE(FinishSave(disk, kStudies, "b").ok());
  EXPECT_EQ(ImageOf(disk, kStudies), (FolderImage{{"b.LQD", "new"}, {"b.PCK", "new"}}));
}

TEST(SaveFamily, RefusesNamesThatItsJournalCouldNotTell) {
  MemoryDisk disk;
  for (const auto& [base, name] :
       {std::pair("a\nb", "a\nb.PCK"), std::pair("a", "b.PCK"), std::pair("a", "a.txt")}) {
    EXPECT_FALSE(SaveFamily(disk, kStudies, base, {{name, "x"}}).ok());
    EXPECT_TRUE(NamesIn(disk, kStudies).empty());
  }
}

TEST(SaveFamily, RefusesANameThatLeavesNoRoomForItsOwnFilesBeforeItWrites) {
  constexpr std::size_t kMostBytes = 255;  // of a name in this folder
  const std::size_t longest = kMostBytes - std::string_view(".saving~.lock~").size();
  for (const std::size_t bytes : {longest, longest + 1, longest + 2, longest + 5, longest + 7,
                                  kMostBytes - kStudyExtensionLength, kMostBytes}) {
    SCOPED_TRACE(bytes);
    const DiskBench place;
    RealDisk disk;
    const std::string base(bytes, 'x');
    const fs::path main = place.studies() / (base + ".PCK");
    const bool can_be_there = disk.Write(main, "old").ok();
    const FolderImage before = ImageOf(disk, place.studies());
    const Outcome saved =
        SaveFamily(disk, place.studies(), base, {{base + ".LQD", "new"}, {base + ".PCK", "new"}});
    if (bytes <= longest) {
      EXPECT_TRUE(saved.ok());
      EXPECT_EQ(*disk.Read(main), "new");
      continue;
    }
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.error().Line(),
              "Το όνομα της Μελέτης είναι πολύ μακρύ, δώστε ένα συντομότερο : " + main.string());
    EXPECT_EQ(ImageOf(disk, place.studies()), before);
    const auto settled = SettleStudy(disk, main);
    ASSERT_TRUE(settled.ok());
    EXPECT_TRUE(settled->journal().empty()) << "no save was broken off";
    EXPECT_EQ(settled->Exists(main), can_be_there);
  }
}

// One study on the machine's own disk with the work files in memory.
class DiskStudy {
 public:
  explicit DiskStudy(const DiskBench& place) : DiskStudy(place, real_) {}
  DiskStudy(const DiskBench& place, Disk& disk)
      : path_(place.studies() / "b.PCK"),
        workspace_(work_, "/program", disk, place.library(), clock_),
        pipes_{{1, "0001.WPT", "", "STEEL", 10}},
        bench_(study_, workspace_, pipes_, prompter_) {
    study_.system_kind = SystemKind::kClosed;
  }

  Outcome Save(std::string_view title) {
    PutSampleStudy(bench_, title);
    study_.study_path = path_;
    return WriteStudy(bench_);
  }

  // Why the last load failed.
  [[nodiscard]] const std::string& refusal() const { return refusal_; }

  // The title that a load finds in every file of the family, "torn" when they differ.
  std::string LoadedTitle() {
    study_ = {};
    study_.system_kind = SystemKind::kClosed;
    study_.study_path = path_;
    const Result<bool> loaded = LoadStudy(bench_, RecentList::kLeave);
    if (!loaded) {
      refusal_ = loaded.error().Line();
      return "not loaded";
    }
    if (study_.PipeStats.size() != 2) {
      return "without quantities";
    }
    const auto winter = workspace_.Rows(work_file::kWinter).ReadAll();
    bool whole = winter && winter->size() == 3 && study_.fluid_name == study_.study_title;
    whole = whole && study_.PipeStats[1].Thema.Utf8() == study_.study_title;
    return whole && (*winter)[2].Thema.Utf8() == study_.study_title ? study_.study_title : "torn";
  }

 private:
  fs::path path_;
  RealDisk real_;
  MemoryDisk work_;
  NoWait clock_;
  Workspace workspace_;
  PipeList pipes_;
  Study study_;
  ScriptedPrompter prompter_;
  Workbench bench_;
  std::string refusal_;
};

template <typename Act>
pid_t InChild(Act act) {
  const pid_t child = fork();
  if (child == 0) {
    _exit(act());
  }
  return child;
}

// True when the child came to its own end, with status 0.
bool EndedWell(pid_t child) {
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  if (WIFEXITED(status)) {
    EXPECT_EQ(WEXITSTATUS(status), 0);
    return true;
  }
  EXPECT_EQ(WTERMSIG(status), SIGKILL);
  return false;
}

void ExpectFourFiles(const DiskBench& place) {
  EXPECT_EQ(*RealDisk().List(place.studies()),
            (std::vector<std::string>{"b.LQD", "b.PCK", "b.STC", "b.WNT"}));
}

TEST(SaveKilled, AfterAnyStepLeavesTheOldStudyOrTheNewOne) {
  const DiskBench place;
  bool ended = false;
  bool seen_new = false;
  for (int step = 1; !ended; ++step) {
    SCOPED_TRACE(step);
    ASSERT_LT(step, 60);
    ASSERT_TRUE(DiskStudy(place).Save("Παλιά").ok());
    ended = EndedWell(InChild([&] {
      RealDisk real;
      KillingDisk disk(real, step);
      return DiskStudy(place, disk).Save("Νέα").ok() ? 0 : 1;
    }));
    const std::string title = DiskStudy(place).LoadedTitle();
    EXPECT_TRUE(title == "Νέα" || (title == "Παλιά" && !seen_new)) << title;
    seen_new = title == "Νέα";
    ASSERT_TRUE(DiskStudy(place).Save(title).ok());
    ExpectFourFiles(place);
  }
  EXPECT_TRUE(seen_new);
}

TEST(SaveKilled, AtAnyMomentLeavesAWholeStudy) {
  const DiskBench place;
  ASSERT_TRUE(DiskStudy(place).Save("Α").ok());
  std::mt19937 random(7);
  for (int round = 0; round < 100; ++round) {
    const pid_t child = InChild([&] {
      for (bool saved = true; saved;) {
        saved = DiskStudy(place).Save("Β").ok() && DiskStudy(place).Save("Α").ok();
      }
      return 1;
    });
    usleep(static_cast<useconds_t>(random() % 3000));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    EXPECT_FALSE(EndedWell(child));
    const std::string title = DiskStudy(place).LoadedTitle();
    ASSERT_TRUE(title == "Α" || title == "Β") << title;
    ASSERT_TRUE(DiskStudy(place).Save(title).ok());
    ExpectFourFiles(place);
  }
}

TEST(SavesAtOneTime, NeverMixThoughOneIsKilledAndAnotherReads) {
  const DiskBench place;
  ASSERT_TRUE(DiskStudy(place).Save("Α").ok());
  const auto save_often = [&](const char* title) {
    return InChild([&, title] {
      bool saved = true;
      for (int i = 0; saved && i < 60; ++i) {
        saved = DiskStudy(place).Save(title).ok();
      }
      return saved ? 0 : 1;
    });
  };
  const std::array savers = {save_often("Α"), save_often("Β"), save_often("Γ")};
  std::set<std::string> seen;
  for (int i = 0; i < 40; ++i) {
    seen.insert(DiskStudy(place).LoadedTitle());
  }
  ASSERT_EQ(kill(savers[2], SIGKILL), 0);
  EXPECT_TRUE(EndedWell(savers[0]) && EndedWell(savers[1])) << "the lock of a killed one is free";
  static_cast<void>(EndedWell(savers[2]));
  seen.insert(DiskStudy(place).LoadedTitle());
  for (const std::string& title : seen) {
    EXPECT_TRUE(title == "Α" || title == "Β" || title == "Γ") << title;
  }
  ASSERT_TRUE(DiskStudy(place).Save("Δ").ok());
  ExpectFourFiles(place);
}

// A disk on which another program saves the study right after its main file was read, and is held
// up before that one, the last, has its new name.
struct SavedWhileRead : ForwardingDisk {
  SavedWhileRead(Disk& inner, std::filesystem::path place, FolderImage family)
      : ForwardingDisk(inner), folder(std::move(place)), newer(std::move(family)) {}

  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override {
    auto bytes = inner_.Read(path);
    if (path.filename() == "b.PCK" && !std::exchange(saved, true)) {
      std::string journal = "KALVOFLUME 1\n";
      for (const auto& [name, text] : newer) {
        EXPECT_TRUE(inner_.Write(folder / (name == "b.PCK" ? "b.PCK.new~" : name), text).ok());
        if (name != "b.PCK") journal += name + "\n";
      }
      EXPECT_TRUE(inner_.Write(folder / "b.saving~", journal + "b.PCK\nTELOS\n").ok());
    }
    return bytes;
  }

  std::filesystem::path folder;
  FolderImage newer;
  mutable bool saved = false;
};

TEST(SavesAtOneTime, OneThatIsHeldUpWhileTheStudyIsReadTearsNothing) {
  const DiskBench place;
  RealDisk disk;
  ASSERT_TRUE(DiskStudy(place).Save("Νέα").ok());
  FolderImage newer = ImageOf(disk, place.studies());
  ASSERT_TRUE(DiskStudy(place).Save("Παλιά").ok());
  SavedWhileRead saved(disk, place.studies(), std::move(newer));
  EXPECT_EQ(DiskStudy(place, saved).LoadedTitle(), "Νέα");
  EXPECT_TRUE(saved.saved);
}

TEST(SavesAtOneTime, OneThatWaitedLongEnoughIsRefusedAndSettlesNothing) {
  const DiskBench place;
  RealDisk disk;
  for (const auto& [name, bytes] : {std::pair("b.PCK", "old"), std::pair("b.PCK.new~", "new"),
                                    std::pair("b.saving~", "KALVOFLUME 1\nb.PCK\nTELOS\n")}) {
    ASSERT_TRUE(disk.Write(place.studies() / name, bytes).ok());
  }
  {
    const auto held = disk.Lock(place.studies() / "b.saving~.lock~", {});
    ASSERT_TRUE(held.ok());
    const FolderImage before = ImageOf(disk, place.studies());
    const Outcome refused = FinishSave(disk, place.studies(), "b", {});
    ASSERT_FALSE(refused.ok());
    EXPECT_EQ(refused.error().kind, FileErrorKind::kBusy);
    EXPECT_EQ(ImageOf(disk, place.studies()), before);
  }
  EXPECT_TRUE(FinishSave(disk, place.studies(), "b", {}).ok());
  EXPECT_EQ(ImageOf(disk, place.studies()), (FolderImage{{"b.PCK", "new"}}));
}

// Whatever part of a first or a later save was renamed, on a medium where nothing can be changed.
TEST(UnfinishedSave, IsReadWholeWhereItCannotBeFinished) {
  const DiskBench place;
  ASSERT_TRUE(DiskStudy(place).Save("Νέα").ok());
  RealDisk real;
  const FolderImage fresh = ImageOf(real, place.studies());
  const std::vector<std::string> names = {"b.STC", "b.WNT", "b.LQD", "b.PCK"};
  std::string journal = "KALVOFLUME 1\n";
  for (const std::string& name : names) {
    journal += name + "\n";
  }
  ASSERT_TRUE(DiskStudy(place).Save("Παλιά").ok());
  const FolderImage old = ImageOf(real, place.studies());
  const auto put = [&](const std::string& name, const std::string& bytes) {
    ASSERT_TRUE(real.Write(place.studies() / name, bytes).ok());
  };
  FailingDisk only_read(real);
  only_read.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  UnreadableDisk barred(only_read);
  for (const bool first_save : {false, true}) {
    for (std::size_t renamed = 0; renamed <= names.size(); ++renamed) {
      SCOPED_TRACE(renamed);
      for (std::size_t i = 0; i < names.size(); ++i) {
        static_cast<void>(real.Remove(place.studies() / names[i]).ok());
        static_cast<void>(real.Remove(place.studies() / (names[i] + ".new~")).ok());
        if (i >= renamed && !first_save) put(names[i], old.at(names[i]));
        put(names[i] + (i < renamed ? "" : ".new~"), fresh.at(names[i]));
      }
      put("b.saving~", journal + "TELOS\n");
      EXPECT_EQ(DiskStudy(place, barred).LoadedTitle(), "Νέα");
      barred.Bar("b.saving~");
      EXPECT_EQ(DiskStudy(place, barred).LoadedTitle(), "Νέα") << "not even the journal is read";
      barred.Mend();
      EXPECT_EQ(SettleFolder(only_read, place.studies()).Exists(place.studies() / "b.PCK"), true);
    }
  }
  put("b.PCK.new~", "torn");
  DiskStudy study(place, only_read);
  EXPECT_EQ(study.LoadedTitle(), "not loaded");
  EXPECT_NE(study.refusal().find("b.saving~"), std::string::npos);
  EXPECT_FALSE(study.Save("Νεότερη").ok());
}

TEST(SaveBehindALink, GoesWhereItLeads) {
  const DiskBench place;
  const fs::path home = place.folder() / "share";
  ASSERT_TRUE(RealDisk().MakeFolder(home).ok());
  fs::create_symlink("../share/real.PCK", place.studies() / "b.PCK");
  ASSERT_TRUE(DiskStudy(place).Save("Πρώτη").ok()) << "it leads to nothing yet";
  ASSERT_TRUE(DiskStudy(place).Save("Δεύτερη").ok());
  EXPECT_EQ(*RealDisk().List(place.studies()), std::vector<std::string>{"b.PCK"});
  EXPECT_TRUE(fs::is_symlink(place.studies() / "b.PCK"));
  EXPECT_EQ(*RealDisk().List(home),
            (std::vector<std::string>{"real.LQD", "real.PCK", "real.STC", "real.WNT"}));
  EXPECT_EQ(DiskStudy(place).LoadedTitle(), "Δεύτερη");
}

TEST(SaveOnAFullDisk, FailsByNameAndLeavesTheOldStudy) {
  const DiskBench place;
  ASSERT_TRUE(DiskStudy(place).Save("Παλιά").ok());
  const FolderImage before = ImageOf(RealDisk(), place.studies());
  // Room in one file for less than the fluid, less than the statistics, less than the rows.
  for (const rlim_t room : {0U, 71U, 500U, 1000U}) {
    const pid_t child = InChild([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{room, room};
      setrlimit(RLIMIT_FSIZE, &limit);
      const Outcome saved = DiskStudy(place).Save("Νέα");
      const bool named = !saved && saved.error().file.parent_path() == place.studies() &&
                         !saved.error().file.string().ends_with(kBesideEnd) &&
                         saved.error().reason == "Το αρχείο ξεπερνά το επιτρεπτό μέγεθος";
      return named ? 0 : 1;
    });
    EXPECT_TRUE(EndedWell(child));
    EXPECT_EQ(ImageOf(RealDisk(), place.studies()), before) << room << " bytes";
  }
  ASSERT_TRUE(DiskStudy(place).Save("Νέα").ok());
  EXPECT_EQ(DiskStudy(place).LoadedTitle(), "Νέα");
}

TEST(OnTheDisk, AFolderThatCannotBeForcedIsNoErrorAndAFileIs) {
  EXPECT_TRUE(RealDisk().Flush("/proc").ok());
  EXPECT_FALSE(RealDisk().Flush("/dev/null").ok());
  EXPECT_FALSE(RealDisk().Flush("/proc/none").ok());
}

// A medium, or another owner's file, where nobody may change who reads and writes a file.
class FixedModeDisk : public RealDisk {
 public:
  int refused = 0;

 protected:
  bool SetMode(const fs::path& /*path*/, unsigned /*mode*/) override {
    ++refused;
    return false;
  }
};

TEST(OnTheDisk, AModeThatCannotBeSetIsNoReasonNotToSave) {
  const DiskBench place;
  FixedModeDisk disk;
  ASSERT_TRUE(DiskStudy(place, disk).Save("Παλιά").ok());
  EXPECT_EQ(disk.refused, 0) << "nothing was replaced";
  ASSERT_TRUE(DiskStudy(place, disk).Save("Νέα").ok());
  EXPECT_EQ(disk.refused, 4);
  EXPECT_EQ(DiskStudy(place).LoadedTitle(), "Νέα");
  ExpectFourFiles(place);
}

TEST(OnTheDisk, AMissingFolderIsNamedAndAPipeIsNoFile) {
  const DiskBench place;
  RealDisk disk;
  const Outcome written = ReplaceFile(disk, place.studies() / "gone/a.PCK", "x");
  ASSERT_FALSE(written.ok());
  EXPECT_EQ(written.error().file, place.studies() / "gone");
  EXPECT_EQ(written.error().reason, "Ο φάκελος δεν υπάρχει");
  const fs::path pipe = place.studies() / "pipe.PCK";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(disk.Read(pipe).error().reason, "Δεν είναι κανονικό αρχείο");
}

}  // namespace
}  // namespace kalvo
