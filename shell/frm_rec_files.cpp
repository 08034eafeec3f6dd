#include "shell/frm_rec_files.h"

#include <algorithm>
#include <utility>

#include "form/tell.h"
#include "shell/study_dialogs.h"
#include "study/codepage.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"

namespace kalvo {
namespace {

constexpr int kNameWidth = 24;    // digits, at least
constexpr int kFolderWidth = 79;  // digits, at least
constexpr std::string_view kNone = "... ΔΕΝ υπάρχουν πρόσφατα Αρχεία ...";

int Wider(int width, const std::string& text) {
  return std::max(width, static_cast<int>(CountCharacters(text)));
}

}  // namespace

FrmRecFiles_S::FrmRecFiles_S(Desk& shared_desk)
    : Form(shared_desk),
      CmdBack(*this, "CmdBack", "Επιστροφή", [this] { desk.navigator.Close(screen::kRecent); },
              {Plain(KeyCode::kEscape)}),
      CmdDelete(*this, "CmdDelete", "Διαγραφή", [this] { Remove(); }, {Ctrl(KeyCode::kDelete)}),
      CmdShow(*this, "CmdShow", "Στοιχεία Αρχείου", [this] { ShowWhole(); }, {Plain(KeyCode::kF2)}),
      CmdRecall(*this, "CmdRecall", "Ανάκληση Αρχείου", [this] { Recall(); },
                {Plain(KeyCode::kEnter)}) {
  title = "Πρόσφατα Αρχεία";
  fpSpread1.on_activate = [this] { Recall(); };
}

void FrmRecFiles_S::Load() {
  LblEmpty.text = "Δεν υπάρχουν πρόσφατα αρχεία *" +
                  std::string(ExtensionsOf(bench.study.system_kind).main) +
                  ". Ανακαλέστε μία μελέτη από τον φάκελό της.";
  if (const auto readable = bench.workspace.ReadIfThere(work_file::kRecentFiles); !readable) {
    LblEmpty.text = readable.error().Line();
  }
  ListLines();
  Focus(fpSpread1);
}

void FrmRecFiles_S::ListLines() {
  lines_ = RecentFilesOfKind(bench.workspace, bench.study.system_kind);
  int name_width = kNameWidth;
  int folder_width = kFolderWidth;
  for (const RecentLine& line : lines_) {
    name_width = Wider(name_width, line.file_name());
    folder_width = Wider(folder_width, line.folder());
  }
  const GridPlace stood = fpSpread1.current();
  fpSpread1.Reset({{.header = "ΟΝΟΜΑ ΑΡΧΕΙΟΥ", .width = name_width, .number = false},
                   {.header = "FOLDER", .width = folder_width, .number = false}},
                  static_cast<int>(lines_.size()));
  for (int row = 0; row < fpSpread1.row_count(); ++row) {
    const RecentLine& line = lines_[static_cast<std::size_t>(row)];
    fpSpread1.Set(row, 0, {.text = line.file_name(), .tip = line.path});
    fpSpread1.Set(row, 1, {.text = line.folder(), .tip = line.path});
  }
  fpSpread1.SetCurrent(stood);
  LblEmpty.visible = lines_.empty();
}

const RecentLine* FrmRecFiles_S::Picked() {
  if (!lines_.empty()) return &lines_[static_cast<std::size_t>(fpSpread1.current().row)];
  bench.Ask({title, {std::string(kNone)}, box_style::kInformation});
  return nullptr;
}

void FrmRecFiles_S::Recall() {
  const RecentLine* line = Picked();
  if (line == nullptr) return;
  const std::filesystem::path path = line->path;
  // Lines of other systems are no places here, not even relative ones.
  const auto found = line->IsFull() ? SettleAndFindStudy(bench.workspace.outer_disk(), path)
                                    : FileError{path, "Το αρχείο δεν υπάρχει"};
  if (!found) {
    TellError(bench, found.error());
    return;
  }
  if (!AskBeforeOpening(desk)) {
    ListLines();  // a save that was made stands on top now
    return;
  }
  desk.questions.file = ChosenFile{path, true};
  desk.navigator.Close(screen::kRecent);
}

void FrmRecFiles_S::Remove() {
  const RecentLine* line = Picked();
  if (line == nullptr) return;
  const Answer answer =
      bench.Ask({"!!  ΠΡΟΣΟΧΗ  !!",
                 {"                                ΤΟ ΑΡΧΕΙΟ :       " + line->file_name(),
                  "ΘΑ ΔΙΑΓΡΑΦΕΙ ΑΠΟ ΤΗΝ ΛΙΣΤΑ ΠΡΟΣΦΑΤΩΝ ΑΡΧΕΙΩΝ !!... ",
                  "      Θέλετε να συνεχίσω με την Διαγραφή ??        "},
                 box_style::kDefaultNo});
  if (answer != Answer::kYes) return;
  TellIfFailed(bench, RemoveRecentFile(bench.workspace, *line));
  ListLines();
}

void FrmRecFiles_S::ShowWhole() {
  const RecentLine* line = Picked();
  if (line == nullptr) return;
  bench.Ask({title,
             {"File's Name : < " + line->file_name() + " >", "Files' Folder < : " + line->folder()},
             box_style::kInformation});
}

}  // namespace kalvo
