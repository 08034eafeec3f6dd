#include "shell/frm_file_os.h"

#include <algorithm>

#include "form/tell.h"
#include "shell/folder_tree.h"
#include "shell/proposed_name.h"
#include "shell/search_text.h"
#include "shell/studies_index.h"
#include "shell/study_dialogs.h"
#include "study/path_text.h"
#include "study/settled_disk.h"
#include "study/study_file_names.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNoFolder = "Ο φάκελος δεν υπάρχει";

// "..", "a/.." or "a/" cannot be a file's name.
bool NamesFolder(const fs::path& path) {
  const fs::path name = path.filename();
  return name.empty() || name == "." || name == "..";
}

}  // namespace

FrmFileOS::FrmFileOS(Desk& shared_desk)
    : Form(shared_desk),
      CmdPrePath(*this, "CmdPrePath", "Προηγούμενος Κατάλογος",
                 [this] { ShowFolder(folder_.parent_path()); }, {Alt(KeyCode::kUp)}),
      Cmd_DefaultPath(*this, "Cmd_DefaultPath", "Κατάλογος των Μελετών",
                      [this] { ShowFolder(desk.data_folder); }, {Alt(KeyCode::kHome)}),
      CmdNewFolder(*this, "CmdNewFolder", "Νέος Φάκελος", [this] { NewFolder(); },
                   {CtrlShift('N')}),
      CmdExit(*this, "CmdExit", "Ακύρωση", [this] { Leave(); }, {Plain(KeyCode::kEscape)}),
      CmdOK(*this, "CmdOK", "", [this] { Confirm(); }) {
  TxtFileName.on_enter = [this] { Confirm(); };
  TxtNewFolder.on_enter = [this] { NewFolder(); };
  DirList.on_activate = [this] { EnterSelectedFolder(); };
  FileList.on_select = [this] {
    TxtFileName.Show(FileList.lines()[static_cast<std::size_t>(FileList.selected)]);
  };
  FileList.on_activate = [this] { Confirm(); };
}

bool FrmFileOS::Saving() const { return desk.questions.file_mode == FileDialogMode::kSave; }

void FrmFileOS::Load() {
  const Study& study = bench.study;
  title = Saving() ? "Δημιουργία Αρχείου" : "Ανάκληση Αρχείου";
  CmdOK.caption = title;
  CmdOK.icon = Saving() ? "save" : "open";
  LblExtension.text = "Προέκταση Αρχείων : *" + std::string(ExtensionsOf(study.system_kind).main);
  const fs::path target = Saving() ? ProposedTarget() : fs::path();
  ShowFolder(target.empty() ? desk.data_folder : target.parent_path());
  TxtFileName.Show(target.filename().string());
  ShowNewFolder(false);
  CmdNewFolder.visible = Saving();
  Focus(TxtFileName);
}

// The study's own file, else that of a study brought back, else one named by the title.
fs::path FrmFileOS::ProposedTarget() const {
  const Study& study = bench.study;
  if (!study.study_path.empty()) return study.study_path;
  if (!study.origin_path.empty()) return study.origin_path;
  const std::string name = ProposedName(study.study_title);
  return name.empty() ? fs::path() : desk.data_folder / WithExtension(name, study.system_kind);
}

void FrmFileOS::ShowNewFolder(bool visible) {
  TxtNewFolder.Show("");
  TxtNewFolder.visible = LblNewFolder.visible = visible;
  Focus(visible ? TxtNewFolder : TxtFileName);
}

void FrmFileOS::NewFolder() {
  const std::string typed = TxtNewFolder.Trimmed();
  if (!TxtNewFolder.visible || typed.empty()) {
    ShowNewFolder(!TxtNewFolder.visible);
    return;
  }
  Disk& disk = bench.workspace.outer_disk();
  const fs::path name = PathFromText(typed);
  const fs::path made = folder_ / name;
  Outcome outcome = Done{};
  if (name != name.filename() || NamesFolder(name)) {
    outcome = FileError{made, "Δεν μπορεί να είναι όνομα φακέλου"};
  } else {
    outcome = disk.Exists(made) ? FileError{made, "Υπάρχει ήδη"} : disk.MakeFolder(made);
  }
  if (!TellIfFailed(bench, outcome)) {
    Focus(TxtNewFolder);
    return;
  }
  ShowFolder(made);
  ShowNewFolder(false);
}

void FrmFileOS::Leave() {
  if (TxtNewFolder.visible) {
    ShowNewFolder(false);
  } else {
    desk.navigator.Close(screen::kFiles);
  }
}

void FrmFileOS::ShowFolder(fs::path folder) {
  const Disk& disk = bench.workspace.outer_disk();
  folder_ = std::move(folder);
  LblFolder.text = folder_.string();
  folders_ = SubfolderNames(disk, folder_);
  if (folder_.has_relative_path()) folders_.insert(folders_.begin(), "..");
  DirList.selected = -1;
  DirList.SetLines(folders_);
  ShowFiles();
}

void FrmFileOS::ShowFiles() {
  std::vector<std::string> names = StudyNames(SettleFolder(bench.workspace.outer_disk(), folder_),
                                              folder_, bench.study.system_kind);
  if (!mask_.empty()) {
    std::erase_if(names, [this](const std::string& name) {
      return !FitsMask(SearchKey(name), SearchKey(mask_));
    });
  }
  const auto readable = bench.workspace.outer_disk().List(folder_);
  LblEmpty.text = readable ? "Ο φάκελος δεν έχει μελέτες." : readable.error().reason + ".";
  LblEmpty.visible = names.empty();
  FileList.selected = -1;
  FileList.SetLines(std::move(names));
}

void FrmFileOS::EnterSelectedFolder() {
  const std::string name = folders_[static_cast<std::size_t>(DirList.selected)];
  ShowFolder(name == ".." ? folder_.parent_path() : folder_ / name);
}

void FrmFileOS::Confirm() {
  const std::string typed = TxtFileName.Trimmed();
  if (typed.empty()) {
    Focus(TxtFileName);
    return;
  }
  if (typed.find('*') != std::string::npos) {
    mask_ = typed;
    ShowFiles();
    return;
  }
  fs::path path = PathFromText(typed);
  if (!path.is_absolute()) path = folder_ / path;
  if (NamesFolder(path)) {
    GoTo((path / "").lexically_normal().parent_path());
    return;
  }
  if (Saving()) {
    ConfirmSave(WithExtension(path, bench.study.system_kind));
  } else {
    const bool whole = KindOfName(path.filename().string()) != SystemKind::kNone;
    ConfirmOpen(whole ? path : WithExtension(path, bench.study.system_kind));
  }
}

void FrmFileOS::GoTo(const fs::path& folder) {
  const auto status = bench.workspace.outer_disk().Status(folder);
  if (status && *status && (*status)->is_folder) {
    ShowFolder(folder);
    TxtFileName.Show("");
  } else {
    TellError(bench, status ? FileError{folder, std::string(kNoFolder)} : status.error());
  }
  Focus(TxtFileName);
}

void FrmFileOS::ConfirmOpen(const fs::path& path) {
  const auto found = SettleAndFindStudy(bench.workspace.outer_disk(), path);
  if (!found) {
    TellError(bench, found.error());
    Focus(TxtFileName);
    return;
  }
  Choose(*found);
}

void FrmFileOS::ConfirmSave(const fs::path& path) {
  const auto disk = SettleStudy(bench.workspace.outer_disk(), path);
  if (!disk) {
    TellError(bench, disk.error());
    Focus(TxtFileName);
    return;
  }
  const fs::path entry = AsInFolder(*disk, path);
  if (!disk->Exists(entry.parent_path())) {
    TellError(bench, {entry.parent_path(), std::string(kNoFolder)});
  } else if (disk->IsFolder(entry)) {
    TellError(bench, {entry, "Υπάρχει φάκελος με αυτό το όνομα"});
  } else if (AskBeforeSaving(desk, entry, Overwriting::kAsked)) {
    Choose(entry);
    return;
  }
  Focus(TxtFileName);
}

void FrmFileOS::Choose(const fs::path& path) {
  desk.questions.file = ChosenFile{path};
  desk.navigator.Close(screen::kFiles);
}

}  // namespace kalvo
