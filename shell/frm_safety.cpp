#include "shell/frm_safety.h"

#include "shell/study_dialogs.h"
#include "study/study_extensions.h"

namespace kalvo {

FrmSafety::FrmSafety(Desk& shared_desk)
    : Form(shared_desk),
      CmdBack(*this, "CmdBack", "Επιστροφή",
              [this] { desk.navigator.Close(screen::kSafetyCopies); }, {Plain(KeyCode::kEscape)}),
      CmdRecall(*this, "CmdRecall", "Ανάκληση Αντιγράφου", [this] { Recall(); },
                {Plain(KeyCode::kEnter)}) {
  title = "Αντίγραφα Ασφαλείας";
  fpSpread1.on_activate = [this] { Recall(); };
}

void FrmSafety::Load() {
  const SystemKind kind = bench.study.SystemOpen() ? SystemKind::kOpen : SystemKind::kClosed;
  copies_ = ListSafetyCopies(bench.workspace.outer_disk(), desk.safety_folders(), kind);
  LblEmpty.text = "Δεν υπάρχουν αντίγραφα ασφαλείας *" + std::string(ExtensionsOf(kind).main) +
                  ". Το πρόγραμμα κρατά αντίγραφο όταν μία Μελέτη που δεν έχει σωθεί δίνει την "
                  "θέση της σε άλλη.";
  const auto readable =
      bench.workspace.outer_disk().List(desk.data_folder / std::string(kSafetyFolder));
  if (!readable && !readable.error().IsMissing()) LblEmpty.text = readable.error().Line();
  LblEmpty.visible = copies_.empty();
  fpSpread1.Reset({{.header = "ΤΙΤΛΟΣ", .width = 40, .number = false},
                   {.header = "ΕΓΙΝΕ", .width = 20, .number = false},
                   {.header = "ΤΜΗΜΑΤΑ", .width = 9},
                   {.header = "ΑΡΧΕΙΟ", .width = 24, .number = false}},
                  static_cast<int>(copies_.size()));
  for (int row = 0; row < fpSpread1.row_count(); ++row) {
    const SafetyCopy& copy = copies_[static_cast<std::size_t>(row)];
    fpSpread1.Set(row, 0, {.text = copy.title});
    fpSpread1.Set(row, 1, {.text = copy.moment});
    fpSpread1.Set(row, 2, {.text = std::to_string(copy.rows)});
    fpSpread1.Set(row, 3, {.text = copy.origin.string(), .tip = copy.origin.string()});
  }
  Focus(fpSpread1);
}

void FrmSafety::Derive() {
  const SafetyCopy* copy = Picked();
  LblPlace.text = copy == nullptr ? "" : copy->file.parent_path().string();
}

const SafetyCopy* FrmSafety::Picked() const {
  return copies_.empty() ? nullptr : &copies_[static_cast<std::size_t>(fpSpread1.current().row)];
}

void FrmSafety::Recall() {
  const SafetyCopy* copy = Picked();
  if (copy == nullptr) {
    bench.Ask({title, {LblEmpty.text}, box_style::kInformation});
    return;
  }
  if (!AskBeforeOpening(desk)) return;
  desk.questions.file = ChosenFile{copy->file};
  desk.navigator.Close(screen::kSafetyCopies);
}

}  // namespace kalvo
