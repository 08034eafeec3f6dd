#include "results/designer/frm_client.h"

#include <algorithm>

#include "form/tell.h"
#include "results/designer/designer_boxes.h"
#include "results/designer/designer_name.h"

namespace kalvo {

FrmCLient::FrmCLient(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Copy(*this, "Cmd_Copy", " Αντιγραφή του Ονόματος, στη Λίστα ", [this] { CopyCurrent(); },
               {Plain(KeyCode::kF5)}),
      Cmd_New(*this, "Cmd_New", "Νέο Όνομα",
              [this] {
                if (IsReady()) ShowEntry(Entry::kNew);
              },
              {Ctrl('N')}),
      Cmd_COR(*this, "Cmd_COR", "Διόρθωση",
              [this] {
                if (HasName()) ShowEntry(Entry::kCorrection, SelectedName());
              },
              {Plain(KeyCode::kF2)}),
      Cmd_Del(*this, "Cmd_Del", "Διαγραφή", [this] { Delete(); }, {Ctrl(KeyCode::kDelete)}),
      Cmd_Lock(*this, "Cmd_Lock", "Αλλαγή Password", [this] { ChangePassword(); }, {Ctrl('K')}),
      Cmd_Cancel(*this, "Cmd_Cancel", "Ακύρωση", [this] { SettleEntry(); },
                 {Plain(KeyCode::kEscape)}),
      Cmd_Store(*this, "Cmd_Store", "Καταχώρηση", [this] { StoreEntry(); }),
      Cmd_Exit(*this, "Cmd_Exit", "Έξοδος", [this] { Leave(); }, {Plain(KeyCode::kEscape)}),
      Cmd_OK(*this, "Cmd_OK", "Επιλογή του Ονόματος", [this] { Choose(); },
             {Plain(KeyCode::kEnter)}) {
  title = "ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ";
  Lst_Names.on_activate = [this] { Choose(); };
  Txt_Client.max_bytes = kDesignerNameSize;
  Txt_Client.on_enter = [this] { StoreEntry(); };
  Txt_Client.on_change = [this] { ShowCount(); };
  Txt_Pass.max_bytes = kDesignerPasswordSize;
}

void FrmCLient::Load() {
  const auto read = ReadDesigners(bench.workspace);
  if (read) {
    list_ = kept_ = *read;
  } else {
    unread_ = read.error();
    TellError(bench, *unread_);
  }
  desk.screens.AccessPassword = list_.password;
  ShowCurrent();
  const auto current = std::ranges::find(list_.names, current_);
  const bool listed = current != list_.names.end();
  ShowList(listed ? static_cast<int>(current - list_.names.begin()) : 0);
  ShowPassword();
  ShowEntry(Entry::kNone);
}

bool FrmCLient::MayClose() { return SettleEntry() && KeepList(); }

void FrmCLient::Leave() {
  if (MayClose()) desk.navigator.Close(screen::kDesigners);
}

void FrmCLient::ShowCurrent() {
  const auto name = DesignerName(desk);
  if (!name) TellError(bench, name.error());
  current_ = name ? *name : std::string();
  SSPanel1.text = current_.empty() ? "—" : current_;
  const auto of_study = StudysDesigner(desk);
  LblStudy.visible = of_study && !of_study->empty() && *of_study != current_;
  LblStudy.text =
      LblStudy.visible
          ? "Έως το κλείσιμο του Προγράμματος · η Μελέτη κρατά το Όνομα < " + *of_study + " >"
          : "";
}

void FrmCLient::ShowList(int selected) {
  Lst_Names.SetLines(list_.names);
  Lst_Names.selected = std::min(selected, Lst_Names.count() - 1);
}

void FrmCLient::ShowPassword() {
  LblPass.visible = Txt_Pass.visible = !desk.screens.AccessPassword.empty();
  Txt_Pass.Show("");
}

void FrmCLient::Tell(std::vector<std::string> lines) { bench.Ask(DesignerBox(std::move(lines))); }

bool FrmCLient::IsReady() {
  if (!SettleEntry()) return false;
  if (unread_) TellError(bench, *unread_);
  return !unread_;
}

bool FrmCLient::HasName() {
  if (!IsReady()) return false;
  if (!Lst_Names.HasSelection()) Tell({"... Πρέπει - πρώτα - να επιλέξετε ένα Όνομα ..."});
  return Lst_Names.HasSelection();
}

const std::string& FrmCLient::SelectedName() const {
  return list_.names[static_cast<std::size_t>(Lst_Names.selected)];
}

void FrmCLient::Delete() {
  if (!HasName()) return;
  if (list_.names.size() == 1) {
    Tell({"... ΔΕΝ μπορώ να διαγράψω τη μοναδική Καταχώρηση ..."});
    return;
  }
  const Box question =
      DesignerQuestion("... ΔΙΑΓΡΑΦΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΑΠΟ ΤΗ ΛΙΣΤΑ ...",
                       {"... Θέλετε να Διαγραφεί το < Φωτισμένο > Όνομα από τη Λίστα ?? ...",
                        "< " + SelectedName() + " >"},
                       box_style::kDefaultNo);
  if (bench.Ask(question) != Answer::kYes) return;
  list_.names.erase(list_.names.begin() + Lst_Names.selected);
  ShowList(Lst_Names.selected);
}

void FrmCLient::CopyCurrent() {
  if (!IsReady()) return;
  const std::string name = ListedDesigner(current_);
  if (name.empty()) {
    Tell({"... ΔΕΝ υπάρχει Όνομα, για να αντιγραφεί ..."});
    return;
  }
  const auto place = std::ranges::find(list_.names, name) - list_.names.begin();
  if (list_.Has(name)) {
    Tell({"... Το Όνομα < " + name + " >, υπάρχει - ήδη - στη Λίστα ..."});
  } else {
    list_.names.push_back(name);
  }
  ShowList(static_cast<int>(place));
}

void FrmCLient::ChangePassword() {
  if (!IsReady()) return;
  if (list_.names.empty()) {
    Tell({"... Η Λίστα ΔΕΝ έχει Ονόματα, και ΔΕΝ κρατά Password ..."});
    return;
  }
  const auto password = AskForNewPassword(desk);
  if (!password) return;
  DesignerList changed = list_;
  changed.password = *password;
  if (!TellIfFailed(bench, WriteDesigners(bench.workspace, changed))) return;
  list_ = kept_ = changed;
  desk.screens.AccessPassword = changed.password;
  ShowPassword();
}

void FrmCLient::Choose() {
  if (!HasName()) return;
  if (!HasPassword(bench, Txt_Pass, desk.screens.AccessPassword)) {
    Txt_Pass.Show("");
    Focus(Txt_Pass);
    return;
  }
  const std::string name = SelectedName();
  if (desk.questions.designer_for_program && !FitsProgramPrint(name)) {
    bench.Ask(TooLongForProgramPrint());
    return;
  }
  const Box question = DesignerQuestion(
      "... ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ...",
      {"... Μελετητής : " + name + " ...", "... ΣΥΜΦΩΝΕΙΤΕ ??? ..."}, box_style::kYesNo);
  if (bench.Ask(question) != Answer::kYes) return;
  desk.screens.CurrentDesigner = desk.options.designer = name;
  ShowCurrent();
  Leave();
}

bool FrmCLient::KeepList() {
  if (list_ == kept_) return true;
  const Outcome written = WriteDesigners(bench.workspace, list_);
  if (written) {
    kept_ = list_;
    return true;
  }
  const Answer answer = bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                                   {written.error().Line(), "... Η Λίστα ΔΕΝ γράφτηκε ...",
                                    "... Θέλετε να κλείσει, χωρίς τις αλλαγές της ?? ..."},
                                   box_style::kStopDefaultNo});
  return answer == Answer::kYes;
}

}  // namespace kalvo
