// What the section form shows beside its fields.

#include <algorithm>

#include "entry/section_form/frm_data.h"
#include "entry/section_form/section_fields.h"
#include "entry/section_form/section_sketch.h"
#include "entry/sections/sheet_checks.h"

namespace kalvo {

void FrmData::Derive() {
  if (!begun_) return;
  if (CboSame.visible && focus() != &CboSame) CloseSame();
  DeriveHead();
  DeriveChecks();
  DeriveHint();
  LblSketch.text = SectionText();
  static_cast<SectionSketchContent&>(PicSection) = SketchOf(sitting_.draft, row(), Texts());
}

void FrmData::DeriveHead() {
  const Study& study = bench.study;
  TxtProgram.text = study.study_title;
  LblCount.text = std::to_string(count()) + (count() == 1 ? " τμήμα" : " τμήματα");
  LblUnsaved.visible = study.unsaved_changes || lags_ || IsChanged();
  Txt_aa.text = std::to_string(study.CurrentRow);
  LblOf.text = is_new_ ? "νέο" : "από " + std::to_string(count());
  ChkSoundD.on = desk.options.SoundOn;
  Cmd_Ins.caption = insert_mode_ ? kCancelCaption : kInsertCaption;
  Cmd_Ins.icon = insert_mode_ ? "exclamation" : "insert";
  const DraftHistory& history = sitting_.draft.history();
  Cmd_Undo.caption = "Αναίρεση" + (history.CanUndo() ? " : " + history.ToUndo().name : "");
  Cmd_Redo.caption = "Επανάληψη" + (history.CanRedo() ? " : " + history.ToRedo().name : "");
}

void FrmData::DeriveChecks() {
  const SheetRow texts = Texts();
  const auto check = [](Label& label, bool wrong, const char* fine, const char* fault) {
    label.text = wrong ? fault : fine;
    label.tone = wrong ? Tone::kAlarm : Tone::kCalculated;
  };
  check(LblCheckName, IsNameWrong(texts, row(), desk.separators), "όνομα", "όνομα λάθος");
  check(LblCheckLength, IsLengthWrong(texts, desk.separators), "μήκος", "μήκος μηδενικό");
  check(LblCheckPoints, SeparatorFault(texts, desk.separators).has_value(), "υποδιαστολές",
        "πάνω από μία υποδιαστολή");
  const RowRemarks remarks = RemarksOf(sitting_.draft, row(), texts);
  LblRemarks.text = remarks.text;
  LblRemarks.tone = remarks.fault ? Tone::kAlarm : Tone::kQuiet;
  LblChanged.text.clear();
  for (std::size_t i = 1; i <= fields_.size(); ++i) {
    const Field& field = *fields_[i % fields_.size()];  // the first half of the name comes last
    const std::string& before = Before().texts.at(static_cast<std::size_t>(ColumnOf(&field)));
    if (field.Trimmed() == before || is_new_) continue;
    LblChanged.text = "άλλαξε : " + std::string(FieldWords()[i % fields_.size()].word) + ", ήταν " +
                      (before.empty() ? "κενό" : before);
    break;
  }
}

void FrmData::DeriveHint() {
  const int column = ColumnOf(focus());
  LblHintHead.text.clear();
  LblHint.text.clear();
  if (column < 0) return;
  const auto place =
      static_cast<std::size_t>(std::ranges::find(fields_, focus()) - fields_.begin());
  LblHintHead.text = FieldWords()[place].caption;
  LblHint.text = HintOf(column, IsOpen());
}

}  // namespace kalvo
