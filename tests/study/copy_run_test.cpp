#include "study/copying/copy_run.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "study/real_disk.h"
#include "study/settled_disk.h"
#include "tests/support/copying.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

const fs::path kMedium = "/stick";

const FolderImage kNewOnes = {
    {"A.LQD", "new"}, {"A.PCK", "newA"}, {"A.STC", "new"}, {"B.LQD", "new"}, {"B.PCK", "newB"}};
const FolderImage kOldOnes = {
    {"A.LQD", "old"}, {"A.PCK", "oldA"}, {"A.WNT", "old"}, {"B.PCK", "oldB"}};

// The files of one study among those of a folder, without those of a copy that went no further.
FolderImage StudyOf(const FolderImage& all, char base) {
  FolderImage files;
  for (const auto& [name, bytes] : all) {
    if (name.front() == base && !name.ends_with("~")) files[name] = bytes;
  }
  return files;
}

// Whether each study is the one of before or the one that is copied, whole, once what was broken
// off is settled.
void ExpectWhole(Disk& disk, const fs::path& folder) {
  static_cast<void>(SettleFolder(disk, folder).journal());
  const FolderImage image = ImageOf(disk, folder);
  for (const char base : {'A', 'B'}) {
    const FolderImage study = StudyOf(image, base);
    EXPECT_TRUE(study == StudyOf(kNewOnes, base) || study == StudyOf(kOldOnes, base))
        << testing::PrintToString(image);
  }
}

class CopyingRun : public testing::Test {
 protected:
  CopyingRun() {
    PutFolder(disk, kStudies, kNewOnes);
    PutFolder(disk, kMedium, kOldOnes);
  }
  CopyRun Run(Disk& of, std::vector<fs::path> studies = {kStudies / "A.PCK", kStudies / "B.PCK"}) {
    return {of, volumes, std::move(studies), kMedium};
  }
  [[nodiscard]] FolderImage Medium() const { return ImageOf(disk, kMedium); }

  MemoryDisk disk;
  SetVolumes volumes;
  NotedCopyUser user;
};

TEST_F(CopyingRun, RefusesWhatCannotBeACopyingBeforeAnythingElse) {
  volumes.refusal = FileError{kMedium, "Σφάλμα του δίσκου"};
  CopyRun own(disk, volumes, {kMedium / "A.PCK"}, "/stick/../stick/");
  EXPECT_NE(own.Prove().error().reason.find("άλλον φάκελο"), std::string::npos);
  EXPECT_EQ(Run(disk, {}).Prove().error().reason, "Δεν έχετε επιλέξει αρχεία μελετών");
  EXPECT_EQ(CopyRun(disk, volumes, {kStudies / "A.PCK"}, "/gone").Prove().error().reason,
            "Ο φάκελος δεν υπάρχει");
  EXPECT_EQ(Run(disk).Prove().error().reason, "Σφάλμα του δίσκου");
  volumes.refusal.reset();
  volumes.room.writable = false;
  EXPECT_FALSE(Run(disk).Prove().ok());
  volumes.room.writable = true;
  EXPECT_TRUE(Run(disk).Prove().ok());
}

TEST_F(CopyingRun, TellsOnePlaceByTwoPaths) {
  const DiskBench place;
  RealDisk real;
  ASSERT_TRUE(real.Write(place.studies() / "A.PCK", "m").ok());
  fs::create_directory_symlink(place.studies(), place.folder() / "link");
  CopyRun run(real, volumes, {place.studies() / "A.PCK"}, place.folder() / "link");
  EXPECT_FALSE(run.Prove().ok());
}

TEST_F(CopyingRun, CopiesOneAfterTheOtherAndTellsItByTheByte) {
  CopyRun run = Run(disk);
  ASSERT_TRUE(run.Prove().ok());
  EXPECT_EQ(run.LookForRoom(), RoomEnd::kEnough);
  EXPECT_EQ(run.total(), 17U);
  run.Make(user);
  EXPECT_EQ(Medium(), kNewOnes);
  EXPECT_TRUE(run.IsWhole());
  EXPECT_EQ(user.files, (std::vector<std::string>{"A.STC", "A.LQD", "A.PCK", "B.LQD", "B.PCK"}));
  EXPECT_EQ(user.done, (std::vector<std::uint64_t>{0, 0, 3, 6, 10, 10, 10, 13, 17}))
      << "before each question, too";
  EXPECT_EQ(run.entries()[0].Text(), "αντικατέστησε αυτήν που υπήρχε · 3 αρχεία");
  ASSERT_EQ(user.asked.size(), 2U);
  EXPECT_EQ(user.asked[0].style, box_style::kWarnCancelDefaultNo);

  CopyRun again = Run(disk);
  again.Make(user);
  EXPECT_EQ(user.asked.size(), 2U) << "what is the same is not asked for";
  EXPECT_EQ(again.entries()[1].Text(), "υπάρχει ήδη, ίδια · 2 αρχεία");
}

TEST_F(CopyingRun, GoesByTheAnswersAndEndsBetweenStudies) {
  user.answer = Answer::kNo;
  CopyRun kept = Run(disk);
  kept.Make(user);
  EXPECT_EQ(kept.entries()[0].fate, CopyFate::kKept);
  EXPECT_EQ(kept.entries()[1].fate, CopyFate::kKept);
  user.answer = Answer::kCancel;
  CopyRun cancelled = Run(disk);
  cancelled.Make(user);
  EXPECT_EQ(cancelled.entries()[0].fate, CopyFate::kNotReached);
  EXPECT_EQ(cancelled.entries()[1].fate, CopyFate::kNotReached);
  EXPECT_EQ(user.asked.size(), 3U);
  EXPECT_EQ(Medium(), kOldOnes);
  user = NotedCopyUser();
  user.studies_left = 1;
  CopyRun ended = Run(disk);
  ended.Make(user);
  EXPECT_EQ(ended.entries()[0].fate, CopyFate::kReplaced);
  EXPECT_EQ(ended.entries()[1].fate, CopyFate::kNotReached);
  EXPECT_FALSE(ended.IsWhole());
}

TEST_F(CopyingRun, LeavesOutNamesThatTheMediumDoesNotTakeOrTellApart) {
  PutFolder(disk, kStudies, {{"a.PCK", "small"}, {"C?.PCK", "c"}, {"D.PCK", "d"}});
  FatDisk fat(disk, kMedium);
  CopyRun run =
      Run(fat, {kStudies / "A.PCK", kStudies / "a.PCK", kStudies / "C?.PCK", kStudies / "D.PCK"});
  run.Make(user);
  EXPECT_EQ(run.entries()[0].fate, CopyFate::kReplaced);
  EXPECT_EQ(run.entries()[1].fate, CopyFate::kSameName);
  EXPECT_EQ(run.entries()[2].fate, CopyFate::kFailed);
  EXPECT_EQ(run.entries()[2].reason,
            "Το μέσο δεν δέχεται αυτό το όνομα αρχείου : /stick/C?.PCK.new~");
  EXPECT_EQ(run.entries()[3].Text(), "αντιγράφηκε · 1 αρχείο · χωρίς .LQD, λογίζεται μελέτη νερού");
  EXPECT_EQ(StudyOf(Medium(), 'A'), StudyOf(kNewOnes, 'A'));
  CopyRun apart = Run(disk, {kStudies / "A.PCK", kStudies / "a.PCK"});
  apart.Make(user);
  EXPECT_TRUE(apart.IsWhole()) << "a medium that knows case has both";
}

TEST_F(CopyingRun, TakesNoOtherStudysPlaceNorItsFiles) {
  PutFolder(disk, kStudies, {{"X.PCK", "upper"}, {"X.pck", "lower"}});
  CopyRun twins = Run(disk, {kStudies / "X.PCK", kStudies / "X.pck"});
  twins.Make(user);
  EXPECT_EQ(twins.entries()[1].fate, CopyFate::kSameName) << "whatever the user would answer";
  EXPECT_EQ(Medium().at("X.PCK"), "upper");

  PutFolder(disk, kStudies, {{"Ab.PCK", "Ab"}, {"AB.STC", "of Ab"}});
  PutFolder(disk, kMedium, {{"AB.PCK", "another"}, {"AB.STC", "of another"}});
  CopyRun third = Run(disk, {kStudies / "Ab.PCK"});
  third.Make(user);
  EXPECT_EQ(third.entries()[0].fate, CopyFate::kCopied);
  EXPECT_EQ(Medium().at("AB.STC"), "of another");
  EXPECT_EQ(Medium().at("Ab.STC"), "of Ab");
}

TEST_F(CopyingRun, EndsWhenTheMediumIsTakenOutThoughItsFolderStays) {
  struct Puller : NotedCopyUser {
    explicit Puller(SetVolumes& drives) : volumes(drives) {}
    bool GoesOn() override {
      if (!files.empty()) volumes.room.medium = 7;
      return true;
    }
    SetVolumes& volumes;
  };
  PutFolder(disk, kStudies, {{"C.PCK", "newC"}});
  CopyRun run = Run(disk, {kStudies / "A.PCK", kStudies / "B.PCK", kStudies / "C.PCK"});
  ASSERT_TRUE(run.Prove().ok());
  Puller puller(volumes);
  run.Make(puller);
  EXPECT_EQ(run.entries()[0].fate, CopyFate::kReplaced);
  EXPECT_EQ(run.entries()[1].reason, "Το μέσο δεν είναι πια εκεί : /stick");
  EXPECT_EQ(run.entries()[2].fate, CopyFate::kNotReached);
  EXPECT_EQ(StudyOf(Medium(), 'B'), StudyOf(kOldOnes, 'B'));
}

TEST_F(CopyingRun, WarnsOfANewerStudyThatWouldGo) {
  ASSERT_TRUE(disk.SetModified(kMedium / "B.PCK", 99 * 86'400).ok());
  user.answer = Answer::kNo;
  CopyRun run = Run(disk);
  run.Make(user);
  ASSERT_EQ(user.asked.size(), 2U);
  EXPECT_EQ(user.asked[0].lines.size(), 2U);
  ASSERT_EQ(user.asked[1].lines.size(), 3U);
  EXPECT_NE(user.asked[1].lines[1].find("ΝΕΟΤΕΡΟ"), std::string::npos);
}

TEST_F(CopyingRun, LooksAgainAtWhatOthersSaveDuringAQuestion) {
  struct Slow : NotedCopyUser {
    explicit Slow(Disk& shared) : disk(shared) {}
    Answer MayReplace(const CopyPlan& plan) override {
      if (asked.empty()) {
        EXPECT_TRUE(disk.Write(kStudies / "B.PCK", "newer B").ok());
        EXPECT_TRUE(disk.Write(kMedium / "B.DPC", "left over").ok());
      }
      return NotedCopyUser::MayReplace(plan);
    }
    Disk& disk;
  };
  Slow slow(disk);
  CopyRun run = Run(disk, {kStudies / "B.PCK"});
  run.Make(slow);
  EXPECT_EQ(slow.asked.size(), 2U) << "what would go is another now";
  EXPECT_EQ(run.entries()[0].fate, CopyFate::kReplaced);
  EXPECT_EQ(Medium().at("B.PCK"), "newer B");
  EXPECT_FALSE(Medium().contains("B.DPC"));
}

TEST_F(CopyingRun, NeedsTheNewSizeWhileTheOldOneIsThere) {
  EXPECT_EQ(InBlocks(0, 4096), 0U);
  EXPECT_EQ(InBlocks(1, 4096), 4096U);
  EXPECT_EQ(InBlocks(4096, 4096), 4096U);
  EXPECT_EQ(InBlocks(4097, 4096), 8192U);
  CopyRun run = Run(disk);
  ASSERT_TRUE(run.Prove().ok());
  EXPECT_EQ(run.LookForRoom(), RoomEnd::kEnough);
  EXPECT_EQ(run.need().total, 5U * 4096);
  EXPECT_EQ(run.need().peak, 3U * 4096) << "A's old files leave room for B";
  volumes.room.free = 3 * 4096;
  volumes.room.capacity = 5 * 4096;
  CopyRun exact = Run(disk);
  ASSERT_TRUE(exact.Prove().ok());
  EXPECT_EQ(exact.LookForRoom(), RoomEnd::kEnough);
  volumes.room.free = 3 * 4096 - 1;
  CopyRun full = Run(disk);
  ASSERT_TRUE(full.Prove().ok());
  EXPECT_EQ(full.LookForRoom(), RoomEnd::kTooFull);
  const Box too_full = RoomBox(full, RoomEnd::kTooFull, Separators{',', '.'});
  EXPECT_EQ(too_full.title, "  ! !   ΠΡΟΣΟΧΗ : Ανεπαρκής Χώρος  ! !  ");
  EXPECT_EQ(too_full.lines,
            (std::vector<std::string>{
                "!! Ο Ελεύθερος Χώρος του Drive ΔΕΝ ΕΠΑΡΚΕΙ : ΕΛΕΥΘΕΡΩΣΤΕ ΧΩΡΟ Ή ΑΛΛΑΞΤΕ Drive !!",
                "Χρειάζονται 12.288 Bytes, ελεύθερα είναι 12.287 Bytes"}));
  volumes.room.capacity = 5 * 4096 - 1;
  CopyRun small = Run(disk);
  ASSERT_TRUE(small.Prove().ok());
  EXPECT_EQ(small.LookForRoom(), RoomEnd::kTooSmall);
  const Box too_small = RoomBox(small, RoomEnd::kTooSmall, Separators{',', '.'});
  EXPECT_EQ(too_small.title, "  ! !   ΠΡΟΣΟΧΗ : Ανεπαρκής Συνολικός Χώρος Μέσου   ! !  ");
  EXPECT_EQ(too_small.lines, std::vector<std::string>{
                                 "!! Ο Χώρος του Drive, στο οποίο θα αντιγαφούν τα αρχεία ΕΙΝΑΙ "
                                 "ΜΙΚΡΟΣ : ΑΛΛΑΞΤΕ Drive !!"});
  EXPECT_EQ(Medium(), kOldOnes) << "no byte was written";
  EXPECT_EQ(Fits(small.need(), {}), RoomEnd::kEnough) << "a medium that says nothing is tried";
}

TEST_F(CopyingRun, NeedsNoRoomForWhatIsThereAlready) {
  PutFolder(disk, kMedium, kNewOnes);
  ASSERT_TRUE(disk.Remove(kMedium / "A.WNT").ok());
  volumes.room.free = 0;
  CopyRun run = Run(disk);
  ASSERT_TRUE(run.Prove().ok());
  EXPECT_EQ(run.LookForRoom(), RoomEnd::kEnough);
}

// A medium that runs full, is pulled out or refuses one call.
TEST_F(CopyingRun, LeavesEachStudyOldOrNewWhateverCallFails) {
  for (const auto lasting : {FailingDisk::Lasting::kOnce, FailingDisk::Lasting::kFromThenOn}) {
    bool reached = true;
    for (int call = 1; reached; ++call) {
      SCOPED_TRACE(call);
      ASSERT_LT(call, 100);
      MemoryDisk fresh;
      PutFolder(fresh, kStudies, kNewOnes);
      PutFolder(fresh, kMedium, kOldOnes);
      FailingDisk failing(fresh);
      failing.FailAtOperation(call, lasting);
      CopyRun run = Run(failing);
      run.Make(user);
      reached = failing.operations() >= call;
      for (const CopyEntry& entry : run.entries()) {
        EXPECT_TRUE(entry.Arrived() || (entry.fate == CopyFate::kFailed && !entry.reason.empty()));
      }
      if (run.IsWhole()) {
        EXPECT_EQ(ImageOf(fresh, kMedium), kNewOnes);
      }
      ExpectWhole(fresh, kMedium);
      EXPECT_EQ(ImageOf(fresh, kStudies), kNewOnes);
    }
  }
}

TEST_F(CopyingRun, LeavesEachStudyOldOrNewWhereverTheMediumRunsFull) {
  std::size_t arrived = 0;
  for (std::size_t bytes = 0; arrived < 2; ++bytes) {
    SCOPED_TRACE(bytes);
    ASSERT_LT(bytes, 500U);
    MemoryDisk fresh;
    PutFolder(fresh, kStudies, kNewOnes);
    PutFolder(fresh, kMedium, kOldOnes);
    FailingDisk failing(fresh);
    failing.FailAfterBytes(bytes);
    CopyRun run = Run(failing);
    run.Make(user);
    arrived = static_cast<std::size_t>(std::ranges::count_if(run.entries(), &CopyEntry::Arrived));
    ExpectWhole(fresh, kMedium);
    const FolderImage image = ImageOf(fresh, kMedium);
    EXPECT_FALSE(std::ranges::any_of(image, [](const auto& file) {
      return file.first.ends_with("~");
    })) << "a failed copy leaves nothing of itself";
  }
}

TEST_F(CopyingRun, TellsASourceThatVanishesOrCannotBeReadAndGoesOn) {
  ASSERT_TRUE(disk.Remove(kStudies / "A.PCK").ok());
  CopyRun run = Run(disk);
  run.Make(user);
  EXPECT_EQ(run.entries()[0].fate, CopyFate::kFailed);
  EXPECT_TRUE(run.entries()[0].unreadable);
  EXPECT_EQ(run.entries()[1].fate, CopyFate::kReplaced);
  EXPECT_EQ(StudyOf(Medium(), 'A'), StudyOf(kOldOnes, 'A'));
  bool reached = true;
  for (int read = 1; reached; ++read) {
    ASSERT_LT(read, 60);
    MemoryDisk fresh;
    PutFolder(fresh, kStudies, kNewOnes);
    PutFolder(fresh, kMedium, kOldOnes);
    FailingDisk failing(fresh);
    failing.FailAtRead(read);
    CopyRun other = Run(failing);
    other.Make(user);
    reached = failing.reads() >= read;
    ExpectWhole(fresh, kMedium);
  }
}

// A disk that knows neither modes nor the flushing of folders.
class PoorDisk : public RealDisk {
 public:
  Outcome Flush(const fs::path& path) override {
    return IsFolder(path) ? Outcome(Done{}) : RealDisk::Flush(path);
  }
  Outcome SetModified(const fs::path& path, std::int64_t /*moment*/) override {
    return FileError{path, "Δεν επιτρέπεται η πρόσβαση"};
  }

 protected:
  bool SetMode(const fs::path& /*path*/, unsigned /*mode*/) override { return false; }
};

TEST_F(CopyingRun, NeedsNeitherModesNorDatesOfTheMedium) {
  const DiskBench place;
  PoorDisk poor;
  RealDisk real;
  PutFolder(real, place.studies(), kNewOnes);
  PutFolder(real, place.folder() / "stick", kOldOnes);
  CopyRun run(poor, volumes, {place.studies() / "A.PCK", place.studies() / "B.PCK"},
              place.folder() / "stick");
  run.Make(user);
  EXPECT_TRUE(run.IsWhole());
  EXPECT_EQ(ImageOf(real, place.folder() / "stick"), kNewOnes);
}

TEST_F(CopyingRun, KilledAfterAnyStepLeavesEachStudyOldOrNew) {
  const DiskBench place;
  RealDisk real;
  const fs::path stick = place.folder() / "stick";
  PutFolder(real, place.studies(), kNewOnes);
  bool ended = false;
  for (int step = 1; !ended; ++step) {
    SCOPED_TRACE(step);
    ASSERT_LT(step, 120);
    fs::remove_all(stick);
    PutFolder(real, stick, kOldOnes);
    const pid_t child = fork();
    if (child == 0) {
      KillingDisk killing(real, step);
      CopyRun run(killing, volumes, {place.studies() / "A.PCK", place.studies() / "B.PCK"}, stick);
      run.Make(user);
      _exit(run.IsWhole() ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ended = WIFEXITED(status);
    EXPECT_TRUE(!ended || WEXITSTATUS(status) == 0);
    ExpectWhole(real, stick);
    CopyRun again(real, volumes, {place.studies() / "A.PCK", place.studies() / "B.PCK"}, stick);
    again.Make(user);
    EXPECT_TRUE(again.IsWhole());
    FolderImage image = ImageOf(real, stick);
    image.erase("A.saving~.lock~");  // bars nobody
    image.erase("B.saving~.lock~");
    EXPECT_EQ(image, kNewOnes);
  }
}

}  // namespace
}  // namespace kalvo
