#include "shell/frm_open_save.h"

#include "form/wait.h"
#include "shell/search_text.h"
#include "study/codepage.h"
#include "study/numeric_text.h"
#include "study/study_extensions.h"

namespace kalvo {

FrmOpenSave::FrmOpenSave(Desk& shared_desk)
    : Form(shared_desk),
      CmdCancel(*this, "CmdCancel", "Ακύρωση", [this] { desk.navigator.Close(screen::kStudies); },
                {Plain(KeyCode::kEscape)}),
      CmdClassic(*this, "CmdClassic", "Κλασικός διάλογος ...", [this] { GoClassic(); }),
      CmdOpenSave(*this, "CmdOpenSave", "Ανάκληση Αρχείου", [this] { Choose(); },
                  {Plain(KeyCode::kEnter)}),
      folders_(shared_desk.bench.workspace.outer_disk()) {
  title = "Ανάκληση Αρχείου";
  DirList.on_select = [this] {
    folders_.GoTo(DirList.selected);
    ListFolder();
  };
  TxtSearch.on_change = [this] { Search(); };
  LstStudies.on_select = [this] { Pick(LstStudies.selected); };
  FileList.on_select = [this] { Pick(FileList.selected); };
  LstStudies.on_activate = FileList.on_activate = [this] { Run(CmdOpenSave); };
  DirList.on_activate = [this] { Focus(LstStudies); };
}

void FrmOpenSave::Load() {
  LblPattern.text = "*" + std::string(ExtensionsOf(bench.study.system_kind).main);
  folders_.ShowAt(desk.data_folder);
  ListFolder();
  Focus(LstStudies);
}

void FrmOpenSave::ListFolder() {
  DirList.SetLines(folders_.Names(), folders_.Depths());
  DirList.selected = folders_.current();
  shown_.clear();
  LstStudies.selected = -1;
  {
    const WaitShown wait(desk.navigator);
    studies_ = ListStudies(bench.workspace, folders_.folder(), bench.study.system_kind);
  }
  LblCount.text = FormatPattern(static_cast<double>(studies_.size()), "##,###", desk.separators);
  LblCount.visible = !studies_.empty();
  TxtSearch.Show("");
  Search();
}

void FrmOpenSave::Search() {
  const ListedStudy* picked = Picked();
  const auto wanted = picked != nullptr ? picked->path() : bench.study.study_path;
  shown_.clear();
  std::vector<std::string> lines;
  std::vector<std::string> names;
  int selected = 0;
  for (std::size_t i = 0; i < studies_.size(); ++i) {
    const ListedStudy& study = studies_[i];
    if (!MatchesTypeAhead(study.title, TxtSearch.text) &&
        !MatchesTypeAhead(study.file_name, TxtSearch.text)) {
      continue;
    }
    if (study.path() == wanted) selected = static_cast<int>(shown_.size());
    shown_.push_back(i);
    lines.push_back(study.Line());
    names.push_back(study.file_name);
  }
  LstStudies.SetLines(std::move(lines));
  FileList.SetLines(std::move(names));
  LblEmpty.text = WhyEmpty();
  LblEmpty.visible = shown_.empty();
  Pick(shown_.empty() ? -1 : selected);
}

std::string FrmOpenSave::WhyEmpty() const {
  if (!shown_.empty()) return {};
  if (!studies_.empty()) return "Κανένας τίτλος δεν ταιριάζει με την αναζήτηση.";
  const auto names = bench.workspace.outer_disk().List(folders_.folder());
  return names ? "Ο φάκελος δεν έχει μελέτες." : names.error().reason + ".";
}

void FrmOpenSave::Pick(int line) {
  LstStudies.selected = FileList.selected = line;
  ShowPicked();
}

const ListedStudy* FrmOpenSave::Picked() const {
  return LstStudies.HasSelection() && LstStudies.count() == static_cast<int>(shown_.size())
             ? &studies_[shown_[static_cast<std::size_t>(LstStudies.selected)]]
             : nullptr;
}

void FrmOpenSave::ShowPicked() {
  const ListedStudy* study = Picked();
  const ListedStudy none;
  const ListedStudy& shown = study != nullptr ? *study : none;
  LblTitle.text = shown.title;
  LblFileName.text = shown.file_name;
  LblFolder.text = shown.folder.string();
  LblFileDate.text = study != nullptr ? " < " + shown.date + " > " : "";
  LblFileTime.text = study != nullptr ? " < " + shown.time + " > " : "";
}

void FrmOpenSave::Choose() {
  const ListedStudy* study = Picked();
  if (study == nullptr) {
    bench.Ask(
        {" !!... ΠΡΟΣΟΧΗ ...!! ", {"... Επιλέξτε πρώτα μία Μελέτη ..."}, box_style::kExclamation});
    return;
  }
  desk.questions.file = ChosenFile{study->path()};
  desk.navigator.Close(screen::kStudies);
}

void FrmOpenSave::GoClassic() {
  desk.navigator.Close(screen::kStudies);
  desk.navigator.ShowModal(screen::kFiles);
}

bool FrmOpenSave::OtherKey(const Key& key) {
  if (key == Plain(KeyCode::kDown) && focus() == &TxtSearch) {
    Focus(LstStudies);
    return true;
  }
  if (!key.IsText() || key.character <= U' ' || dynamic_cast<List*>(focus()) == nullptr) {
    return false;
  }
  Focus(TxtSearch);
  TxtSearch.whole_selected = false;
  std::string typed;
  AppendUtf8(typed, key.character);
  Type(TxtSearch, {TxtSearch.text, typed, {}});
  return true;
}

}  // namespace kalvo
