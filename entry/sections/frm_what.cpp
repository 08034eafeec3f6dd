#include "entry/sections/frm_what.h"

namespace kalvo {

FrmWhat::FrmWhat(Desk& shared_desk)
    : Form(shared_desk),
      CmdCancel(*this, "CmdCancel", "Ακύρωση-Επιστροφή",
                [this] { desk.navigator.Close(screen::kEntryChoice); }, {Plain(KeyCode::kEscape)}),
      SSCommand1(*this, "SSCommand1", "Αποδοχή των Δεδομένων", [this] { Accept(); },
                 {Plain(KeyCode::kEnter)}),
      mnuOption1(*this, "mnuOption1", SSOption1.caption, [this] { Choose(EntryChoice::kCorrect); }),
      mnuOption2(*this, "mnuOption2", SSOption2.caption, [this] { Choose(EntryChoice::kGoOn); }) {
  title = "ΕΠΙΛΟΓΗ ΕΝΕΡΓΕΙΑΣ";
  SSOption1.on_toggle = [this] { Choose(EntryChoice::kCorrect); };
  SSOption2.on_toggle = [this] { Choose(EntryChoice::kGoOn); };
  menus = {{"&Ενέργειες",
            {{"mnuOption1", SSOption1.caption, &mnuOption1},
             {"mnuOption2", SSOption2.caption, &mnuOption2},
             {},
             {"", "Αποδοχή των Δεδομένων", &SSCommand1},
             {"", "Ακύρωση-Επιστροφή", &CmdCancel}}}};
}

void FrmWhat::Load() { Choose(EntryChoice::kCorrect); }

void FrmWhat::Choose(EntryChoice choice) {
  SSOption1.on = choice == EntryChoice::kCorrect;
  SSOption2.on = !SSOption1.on;
  Focus(SSOption1.on ? SSOption1 : SSOption2);
}

void FrmWhat::Accept() {
  desk.questions.entry_choice = SSOption1.on ? EntryChoice::kCorrect : EntryChoice::kGoOn;
  desk.navigator.Close(screen::kEntryChoice);
}

}  // namespace kalvo
