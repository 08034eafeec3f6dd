#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "study/copying/copy_plan.h"
#include "study/copying/copy_room.h"
#include "study/prompter.h"
#include "study/separators.h"

namespace kalvo {

/// What became of a study that is to be copied.
enum class CopyFate {
  kWaits,
  kUnderWay,
  kCopied,
  kReplaced,    ///< the copy took the place of an older one
  kSame,        ///< the target had it already, byte for byte
  kKept,        ///< the user kept what the target has
  kSameName,    ///< it would replace another one chosen, whose name is as good as its own
  kFailed,      ///< see the reason
  kNotReached,  ///< the copying was ended before
};

struct CopyEntry {
  std::string name;  ///< of the main file
  CopyFate fate = CopyFate::kWaits;
  std::size_t files = 0;
  bool lacks_fluid = false;
  std::string reason{};     ///< of kFailed; of kKept: what stays, where it is no study of that name
  bool unreadable = false;  ///< it failed at its source

  /// The entry in a line, without its name.
  [[nodiscard]] std::string Text() const;
  /// The study is in the target, whole.
  [[nodiscard]] bool Arrived() const;
};

class CopyRun;

/// Who orders a copying.
class CopyUser {
 public:
  virtual ~CopyUser() = default;

  /// Whether what is there may be replaced. kCancel ends the copying.
  virtual Answer MayReplace(const CopyPlan& plan) = 0;
  /// Something has moved on: a file is written next, or a study has come to its end.
  virtual void Follow(const CopyRun& /*run*/) {}
  /// Asked before each study. False: the copying ends.
  virtual bool GoesOn() { return true; }
};

/// The copying of studies into a folder, one after the other, each as one unit: those that are
/// copied stay when a later one fails.
class CopyRun {
 public:
  /// `studies`: main files. What is not to be copied into its own folder is refused by Prove().
  CopyRun(Disk& disk, const Volumes& volumes, std::vector<std::filesystem::path> studies,
          std::filesystem::path folder);

  /// Why there can be no copying at all; the first thing to ask. Writes nothing.
  Outcome Prove();
  /// What it takes and what there is, looked at study by study; writes nothing but what a
  /// broken-off save left to be finished.
  /// `on_study`: before each, with how many have been looked at.
  [[nodiscard]] RoomEnd LookForRoom(const std::function<void(int)>& on_study = {});
  /// Copies.
  void Make(CopyUser& user);

  [[nodiscard]] const std::vector<CopyEntry>& entries() const { return entries_; }
  [[nodiscard]] const CopyNeed& need() const { return need_; }
  [[nodiscard]] const MediumRoom& room() const { return room_; }
  /// Bytes of all files chosen, and of those that are done with.
  [[nodiscard]] std::uint64_t total() const { return total_; }
  [[nodiscard]] std::uint64_t done() const { return done_; }
  /// The study in hand, or dealt with last, as a place in entries().
  [[nodiscard]] std::size_t at() const { return at_; }
  /// The file that is written; empty between studies.
  [[nodiscard]] const std::string& file() const { return file_; }
  /// All studies have arrived.
  [[nodiscard]] bool IsWhole() const;

 private:
  /// The answer kCancel ends the copying.
  Answer CopyOne(CopyUser& user, std::size_t at);
  Answer CopyAsPlanned(CopyUser& user, const CopyPlan& planned, std::size_t at);
  /// The plan as both ends stand once the user has answered. `answer`: theirs, where one was asked.
  Result<CopyPlan> AgreedPlan(CopyUser& user, CopyPlan plan, std::size_t at, Answer& answer);
  /// The target is still on the medium that Prove() found.
  [[nodiscard]] bool HasMedium() const;
  void TakeFault(CopyEntry& entry, const FileError& error) const;
  [[nodiscard]] bool IsTaken(std::size_t at) const;

  Disk& disk_;
  CopyPlanner planner_;
  const Volumes& volumes_;
  std::vector<std::filesystem::path> studies_;
  std::filesystem::path folder_;
  std::vector<CopyEntry> entries_;
  std::vector<std::uint64_t> bytes_;  ///< by study
  CopyNeed need_;
  MediumRoom room_;
  std::size_t at_ = 0;
  std::uint64_t total_ = 0;
  std::uint64_t done_ = 0;
  std::string file_;
  std::set<std::filesystem::path> taken_;  ///< main files that came to the target in this run
};

/// The question whether a copy may replace what is there; no is its default.
Box ReplaceBox(const CopyPlan& plan);
/// Why the room does not do; `end` is not kEnough.
Box RoomBox(const CopyRun& run, RoomEnd end, Separators separators);

}  // namespace kalvo
