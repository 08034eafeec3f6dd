#include "shell/unreadable_work.h"

#include <array>
#include <span>
#include <utility>

#include "study/safety_copies.h"

namespace kalvo {
namespace {

constexpr const char* kUnreadableTitle = " !!... ΠΡΟΣΟΧΗ ...!! ";

// Without one of these the study cannot come back as it was left.
constexpr std::array kRowsInWork = {work_file::kRows, work_file::kSummerRows,
                                    work_file::kRowsBeforeChange, work_file::kSheetInWork};
constexpr std::array kFilesBeside = {
    work_file::kRebuilt,      work_file::kFirstRows, work_file::kFluid,     work_file::kWinter,
    work_file::kWinterInWork, work_file::kSheet,     work_file::kSheetIntro};

struct UnreadableFile {
  std::string name;
  FileError error;
};
using UnreadableFiles = std::vector<UnreadableFile>;

void AddUnreadable(const Workspace& workspace, std::span<const char* const> names,
                   UnreadableFiles& found) {
  for (const char* const name : names) {
    if (const auto bytes = workspace.ReadIfThere(name); !bytes) {
      found.push_back({name, bytes.error()});
    }
  }
}

bool MayGoWithout(Workbench& bench, const UnreadableFiles& rows) {
  Box box{kUnreadableTitle,
          {"Δεν διαβάζονται τα Τμήματα που έμειναν από πριν :"},
          box_style::kDefaultNo};
  for (const UnreadableFile& file : rows) {
    box.lines.push_back(file.error.Line());
  }
  box.lines.emplace_back("Το αρχείο δεν χάνεται : μένει στον ίδιο φάκελο με άλλο όνομα");
  box.lines.emplace_back("Θέλετε να συνεχίσω χωρίς αυτό ??");
  return bench.Ask(box) == Answer::kYes;
}

// A name that no file has: nothing is replaced.
Result<std::string> NameAside(const Workspace& workspace, const std::string& name) {
  for (int number = 1;; ++number) {
    std::string aside = name + kAsideEnd + (number == 1 ? "" : std::to_string(number));
    const auto status = workspace.Status(aside);
    if (!status) return status.error();
    if (!*status) return aside;
  }
}

Result<std::string> MoveAside(Workspace& workspace, const std::string& name) {
  auto aside = NameAside(workspace, name);
  if (!aside) return FileError{workspace.Path(name), aside.error().reason};
  if (Outcome moved = workspace.MoveOver(name, *aside); !moved) {
    return FileError{workspace.Path(name), moved.error().reason};
  }
  return aside;
}

// False: one of them keeps its name, so nobody may go on.
bool MoveAllAside(Workbench& bench, const UnreadableFiles& files) {
  Box moved{kUnreadableTitle,
            {"Δεν διαβάζονται και παραμερίσθηκαν, χωρίς άλλη αλλαγή, ως :"},
            box_style::kExclamation};
  Box failed{kUnreadableTitle,
             {"Δεν διαβάζονται και ΔΕΝ μπορούν να πάρουν άλλο όνομα. Για να μην χαθούν, το "
              "Πρόγραμμα δεν συνεχίζει :"},
             box_style::kStop};
  for (const UnreadableFile& file : files) {
    const auto aside = MoveAside(bench.workspace, file.name);
    if (aside) {
      moved.lines.push_back(bench.workspace.Path(*aside).string());
    } else {
      failed.lines.push_back(aside.error().Line());
    }
  }
  const bool all = failed.lines.size() == 1;
  if (moved.lines.size() > 1) bench.Ask(moved);
  if (!all) bench.Ask(failed);
  return all;
}

}  // namespace

bool SetUnreadableAside(Desk& desk) {
  UnreadableFiles files;
  AddUnreadable(desk.bench.workspace, kRowsInWork, files);
  if (!files.empty() && (!MayGoWithout(desk.bench, files) ||
                         !KeepSafetyCopyAnyway(desk.bench, desk.safety_folders(), {},
                                               UnreadableEntries::kLeaveOut))) {
    return false;
  }
  AddUnreadable(desk.bench.workspace, kFilesBeside, files);
  return files.empty() || MoveAllAside(desk.bench, files);
}

}  // namespace kalvo
