#include "cli/session.h"

#include "shell/open_study.h"
#include "study/path_text.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"
#include "study/study_file_names.h"

namespace kalvo {

namespace {

constexpr const char* kMainFile =
    "Δώστε το κύριο αρχείο μιας μελέτης, .PCK (κλειστό σύστημα) ή .PCA (ανοικτό)";

constexpr const char* kTitle = " !!... ΠΡΟΣΟΧΗ ...!! ";

Box NoStudyBox(std::string why) { return {kTitle, {std::move(why), kMainFile}, 16}; }

// Why `path` cannot be a study whatever is in it; empty when it may be one.
std::string NoStudyText(const Disk& disk, const std::filesystem::path& path) {
  if (path.empty()) {
    return "... Λείπει το όνομα του Αρχείου της Μελέτης ...";
  }
  if (disk.IsFolder(path)) {
    return "Είναι φάκελος και όχι μελέτη : " + path.string();
  }
  const std::string name = path.filename().string();
  if (KindOfName(name) == SystemKind::kNone &&
      IsStudyExtension(std::string_view(name).substr(BaseOf(name).size()))) {
    return "Είναι συνοδευτικό αρχείο μελέτης : " + path.string();
  }
  return {};
}

// The kind that the extension tells, or without one that of the study of this name which is there.
SystemKind KindAt(Disk& disk, const std::filesystem::path& path) {
  if (const SystemKind kind = KindOfName(path.string()); kind != SystemKind::kNone) {
    return kind;
  }
  const auto is_there = [&](SystemKind kind) {
    return SettleAndFindStudy(disk, WithExtension(path, kind)).ok();
  };
  return !is_there(SystemKind::kClosed) && is_there(SystemKind::kOpen) ? SystemKind::kOpen
                                                                       : SystemKind::kClosed;
}

}  // namespace

Session::Session(const Console& console, const std::filesystem::path& library)
    : workspace_(library), prompter_(console) {
  auto pipes = BuildPipeList(*workspace_, EmptyLibraries::kSkip);
  if (!pipes) {
    prompter_.Ask(UnsuitableLibraryBox(pipes.error()));
    return;
  }
  pipes_ = std::move(pipes).value();
  if (pipes_.empty()) {
    prompter_.Ask(UnsuitableLibraryBox({library, "Δεν βρέθηκαν Βιβλιοθήκες Σωλήνων"}));
    return;
  }
  ok_ = true;
}

bool Session::Load(const std::filesystem::path& path) {
  if (std::string why = NoStudyText(outer_disk(), path); !why.empty()) {
    prompter_.Ask(NoStudyBox(std::move(why)));
    return false;
  }
  auto from_root = AbsolutePath(path);
  if (!from_root) {
    prompter_.Ask({kTitle, {from_root.error().Line()}, 16});
    return false;
  }
  study_ = Study();
  study_.system_kind = KindAt(workspace_->outer_disk(), path);
  study_.study_path = std::move(from_root).value();
  Workbench at = bench();
  return OpenStudyFile(at, RecentList::kLeave) != OpenEnd::kNotOpened;
}

std::vector<SectionRow> Session::Rows() const {
  auto rows = workspace_->Rows().ReadAll();
  return rows ? std::move(rows).value() : std::vector<SectionRow>{};
}

void TellAssumedFluid(const Console& console, const Session& session) {
  if (session.study().fluid_assumed && !console.quiet) {
    console.out.flush();
    console.err << "Δίπλα στη μελέτη δεν υπάρχει αρχείο υγρού (.LQD) : θεωρείται "
                << session.study().fluid_name << '\n';
  }
}

std::filesystem::path DeliveredLibrary() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  const auto folder = program.parent_path().parent_path();
  const auto installed = folder / "share/kalvoflume/library";
  return std::filesystem::exists(installed, error) ? installed : folder / "data/library";
}

}  // namespace kalvo
