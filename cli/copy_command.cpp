#include "cli/copy_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>

#include "cli/console_prompter.h"
#include "platform/drives/mounted_volumes.h"
#include "study/copying/copy_run.h"
#include "study/path_text.h"
#include "study/real_disk.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"

namespace kalvo {

namespace {

// What the command line agreed to beforehand.
class AgreedUser : public CopyUser {
 public:
  explicit AgreedUser(bool overwrite) : overwrite_(overwrite) {}

  Answer MayReplace(const CopyPlan& /*plan*/) override {
    return overwrite_ ? Answer::kYes : Answer::kNo;
  }

 private:
  bool overwrite_;
};

int CodeOf(const CopyEntry& entry) {
  if (entry.Arrived()) return exit_code::kDone;
  return entry.unreadable ? exit_code::kUnreadable : exit_code::kUnwritable;
}

int Tell(const Console& console, const CopyRun& run) {
  int worst = exit_code::kDone;
  for (const CopyEntry& entry : run.entries()) {
    worst = std::max(worst, CodeOf(entry));
    const std::string hint =
        entry.fate == CopyFate::kKept ? " (--overwrite την αντικαθιστά)" : std::string();
    if (!entry.Arrived()) {
      console.out.flush();
      console.err << console.Alarm(entry.name) << " : " << entry.Text() << hint << '\n';
    } else if (!console.quiet) {
      console.out << entry.name << " : " << entry.Text() << '\n';
    }
  }
  return worst;
}

// The studies' main files; what is none is left out, after a line that says so.
std::vector<std::filesystem::path> MainFiles(const Console& console, Disk& disk,
                                             const std::vector<std::string>& given) {
  std::vector<std::filesystem::path> studies;
  for (const std::string& name : given) {
    const auto path = AbsolutePath(PathFromText(name));
    const auto found = path ? SettleAndFindStudy(disk, *path) : path;
    if (!found || KindOfName(found->filename().string()) == SystemKind::kNone) {
      console.err << (found ? "Δεν είναι κύριο αρχείο μελέτης (.PCK, .PCA) : " + name
                            : found.error().Line())
                  << '\n';
      continue;
    }
    studies.push_back(*found);
  }
  return studies;
}

}  // namespace

void CopyCommand::AddArguments(CLI::App& app) {
  app.add_option("ΜΕΛΕΤΗ", studies_, "Αρχεία μελετών (.PCK, .PCA)")->required()->type_name("");
  app.add_option("--to", folder_, "Ο φάκελος όπου πηγαίνουν τα αντίγραφα")
      ->required()
      ->type_name("ΦΑΚΕΛΟΣ");
  app.add_flag("--overwrite", overwrite_, "Αντικαθιστά μελέτες που υπάρχουν ήδη εκεί");
}

int CopyCommand::Run(const Console& console) {
  RealDisk disk;
  const auto studies = MainFiles(console, disk, studies_);
  if (studies.empty()) {
    return exit_code::kUnreadable;
  }
  const auto folder = AbsolutePath(PathFromText(folder_));
  if (!folder) {
    console.err << folder.error().Line() << '\n';
    return exit_code::kUnwritable;
  }
  const MountedVolumes volumes;
  CopyRun run(disk, volumes, studies, *folder);
  if (const Outcome may = run.Prove(); !may) {
    console.err << may.error().Line() << '\n';
    return exit_code::kUnwritable;
  }
  if (const RoomEnd end = run.LookForRoom(); end != RoomEnd::kEnough) {
    ConsolePrompter(console).Ask(RoomBox(run, end, console.separators));
    return exit_code::kUnwritable;
  }
  AgreedUser user(overwrite_);
  run.Make(user);
  const int told = Tell(console, run);
  return studies.size() < studies_.size() ? std::max(told, exit_code::kUnreadable) : told;
}

}  // namespace kalvo
