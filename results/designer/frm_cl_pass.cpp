#include "results/designer/frm_cl_pass.h"

#include "results/designer/designer_boxes.h"
#include "study/designer_names.h"

namespace kalvo {

FrmCLPass::FrmCLPass(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Exit(*this, "Cmd_Exit", "Επιστροφή",
               [this] { desk.navigator.Close(screen::kListPassword); }, {Plain(KeyCode::kEscape)}),
      Cmd_OK(*this, "Cmd_OK", "Αποδοχή", [this] { Accept(); }, {Plain(KeyCode::kEnter)}) {
  title = "ΕΞΟΥΣΙΟΔΟΤΗΣΗ";
  for (Field* field : {&TxtOld, &TxtPass, &TxtPassOK}) field->max_bytes = kDesignerPasswordSize;
  TxtPass.enter_to = &TxtPassOK;
  TxtPassOK.enter_to = &Cmd_OK;
}

void FrmCLPass::Load() {
  const bool change = desk.questions.password_use == PasswordUse::kChange;
  LblOld.visible = TxtOld.visible = !desk.screens.AccessPassword.empty();
  LblNew.visible = TxtPass.visible = LblAgain.visible = TxtPassOK.visible = change;
  LblHint.text = change ? "Έως " + std::to_string(kDesignerPasswordSize) +
                              " χαρακτήρες · χωρίς νέο Password η λίστα δεν προστατεύεται"
                        : "Η εκτύπωση μέσω του Προγράμματος ζητά το Password της λίστας";
  TxtOld.enter_to = change ? &TxtPass : nullptr;
  Focus(TxtOld.visible ? TxtOld : TxtPass);
}

void FrmCLPass::Accept() {
  if (!HasPassword(bench, TxtOld, desk.screens.AccessPassword)) {
    TxtOld.Show("");
    Focus(TxtOld);
    return;
  }
  if (desk.questions.password_use == PasswordUse::kAsk) {
    desk.questions.password_given = true;
  } else {
    if (!NewIsMeant()) return;
    desk.questions.new_password = TxtPass.Trimmed();
  }
  desk.navigator.Close(screen::kListPassword);
}

bool FrmCLPass::NewIsMeant() {
  bool meant = TxtPass.Trimmed() == TxtPassOK.Trimmed();
  if (!meant) {
    bench.Ask(DesignerBox({"... Τα δυο Passwords, που εδώσατε ΔΕΝ συμπίπτουν ..."}));
  } else if (TxtPass.Trimmed().empty()) {
    const Box question = DesignerQuestion(
        "  ! !   ΠΡΟΣΟΧΗ   ! ! ",
        {"... Η πρόσβαση στο Αρχείο Ονομάτων μελετητών, ΔΕΝ θα προστατεύεται με Password ...",
         "                                     ... Σίγουρα θέλετε κάτι τέτοιο ?? ...        "},
        box_style::kDefaultNo);
    meant = bench.Ask(question) == Answer::kYes;
  }
  if (meant) return true;
  TxtPass.Show("");
  TxtPassOK.Show("");
  Focus(TxtPass);
  return false;
}

}  // namespace kalvo
