#include "shell/frm_ff.h"

#include <utility>

#include "form/tell.h"
#include "shell/data_folder.h"
#include "study/path_text.h"

namespace kalvo {

namespace fs = std::filesystem;

FrmFF::FrmFF(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_NewFolder(*this, "Cmd_NewFolder", "Επιλέξτε ένα Folder", [this] { ShowTyped(); },
                    {Plain(KeyCode::kF4)}),
      Cmd_Exit(*this, "Cmd_Exit", "Επιστροφή",
               [this] { desk.navigator.Close(screen::kDataFolder); }, {Plain(KeyCode::kEscape)}),
      Cmd_Go(*this, "Cmd_Go", "Αποδοχή", [this] { Accept(); }, {Plain(KeyCode::kEnter)}),
      folders_(shared_desk.bench.workspace.outer_disk()) {
  title = " Αλλαγή του Folder Αποθήκευσης Αρχείων ";
  TxtFolder.on_enter = [this] { Accept(); };
  DirList.on_select = [this] {
    folders_.GoTo(DirList.selected);
    ListFolders();
    TxtFolder.Show(folders_.folder().string());
  };
}

void FrmFF::Load() {
  TxtFolder.Show(ShownDataFolder(desk.data_folder));
  folders_.ShowAt(TxtFolder.text);
  ListFolders();
  Focus(TxtFolder);
}

void FrmFF::ListFolders() {
  DirList.SetLines(folders_.Names(), folders_.Depths());
  DirList.selected = folders_.current();
}

void FrmFF::ShowTyped() {
  fs::path folder = IsFullPath(TxtFolder.text) ? PathFromText(TxtFolder.Trimmed()) : fs::path("/");
  const Disk& disk = bench.workspace.outer_disk();
  while (folder.has_relative_path() && !disk.Exists(folder)) {
    folder = folder.parent_path();
  }
  folders_.ShowAt(folder);
  ListFolders();
  TxtFolder.Show(folders_.folder().string());
  Focus(DirList);
}

void FrmFF::Accept() {
  const std::string typed = TxtFolder.Trimmed();
  if (!IsFullPath(typed)) {
    Refuse({"Το Folder πρέπει να δοθεί με ολόκληρη την διαδρομή του, που αρχίζει με < / >"});
    return;
  }
  const auto studies = SetDataFolder(bench.workspace, typed);
  if (studies) {
    desk.data_folder = *studies;
    desk.navigator.Close(screen::kDataFolder);
  } else if (studies.error().file == bench.workspace.Path(work_file::kDataFolder)) {
    TellError(bench, studies.error());
  } else {
    Refuse(
        {"Το Folder, που καταγράψατε, ΔΕΝ δημιουργήθηκε, διότι περιλαμβάνει μη αποδεκτούς "
         "χαρακτήρες",
         studies.error().Line()});
  }
}

void FrmFF::Refuse(std::vector<std::string> lines) {
  bench.Ask({"Π Ρ Ο Σ Ο Χ Η", std::move(lines), box_style::kExclamation});
  Focus(TxtFolder);
  TxtFolder.refused = true;
}

}  // namespace kalvo
