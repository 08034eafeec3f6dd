// A name that is typed, new or to be corrected.

#include <algorithm>
#include <initializer_list>

#include "results/designer/designer_boxes.h"
#include "results/designer/frm_client.h"
#include "study/codepage.h"

namespace kalvo {

void FrmCLient::ShowEntry(Entry entry, std::string_view text) {
  entry_ = entry;
  corrected_ = entry == Entry::kCorrection ? Lst_Names.selected : -1;
  const bool open = entry != Entry::kNone;
  for (Control* part : std::initializer_list<Control*>{&LblPrompt, &Txt_Client, &LblCount,
                                                       &Cmd_Cancel, &Cmd_Store}) {
    part->visible = open;
  }
  LblPrompt.text = entry == Entry::kCorrection ? "ΔΙΟΡΘΩΣΗ ΤΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ"
                                               : "ΔΩΣΕ ΤΟ ΟΝΟΜΑ ΤΟΥ ΝΕΟΥ ΜΕΛΕΤΗΤΗ";
  Txt_Client.Show(text);
  ShowCount();
  if (open) {
    Focus(Txt_Client);
  } else {
    Focus(Lst_Names);
  }
}

void FrmCLient::ShowCount() {
  LblCount.text = "< " + std::to_string(CountCharacters(Txt_Client.text)) + " > Χαρακτήρες";
}

bool FrmCLient::HasTyped() const {
  if (entry_ == Entry::kNone) return false;
  const std::string before =
      entry_ == Entry::kNew ? "" : list_.names[static_cast<std::size_t>(corrected_)];
  return Txt_Client.Trimmed() != before;
}

bool FrmCLient::EntryFits() {
  const std::string name = Txt_Client.Trimmed();
  if (name.empty()) {
    Tell({"... ΔΕΝ έχετε δώσει Όνομα ..."});
  } else if (list_.Has(name)) {
    Tell({"... Το Όνομα < " + name + " >, υπάρχει - ήδη - στη Λίστα ..."});
  } else {
    return true;
  }
  Focus(Txt_Client);
  return false;
}

void FrmCLient::StoreEntry() {
  if (entry_ == Entry::kCorrection && !HasTyped()) {
    ShowEntry(Entry::kNone);
    return;
  }
  if (!EntryFits()) return;
  const Box question =
      entry_ == Entry::kNew
          ? DesignerQuestion("... ΠΡΟΣΘΗΚΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...",
                             {"... Θέλετε να προστεθεί το Νέο Όνομα στη Λίστα ?? ..."},
                             box_style::kDefaultNo)
          : DesignerQuestion("... ΠΡΟΣΘΗΚΗ ΔΙΟΡΘΩΜΕΝΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...",
                             {"... Θέλετε να Διορθωθεί το Όνομα στη Λίστα ?? ..."},
                             box_style::kYesNo);
  if (bench.Ask(question) == Answer::kYes) TakeEntry();
}

void FrmCLient::TakeEntry() {
  const bool is_new = entry_ == Entry::kNew;
  const int place = is_new ? static_cast<int>(list_.names.size()) : corrected_;
  if (is_new) list_.names.emplace_back();
  list_.names[static_cast<std::size_t>(place)] = Txt_Client.Trimmed();
  ShowList(place);
  ShowEntry(Entry::kNone);
}

bool FrmCLient::SettleEntry() {
  if (entry_ == Entry::kNone) return true;
  if (HasTyped()) {
    const Answer answer = bench.Ask(DesignerQuestion(
        "  ! !   ΠΡΟΣΟΧΗ   ! ! ",
        {"!! Το Όνομα που γράψατε, ΔΕΝ έχει καταχωρηθεί !!", " Θέλετε να καταχωρηθεί στη Λίστα ? "},
        box_style::kDefaultCancel));
    if (answer == Answer::kYes) {
      if (!EntryFits()) return false;
      TakeEntry();
      return true;
    }
    if (answer != Answer::kNo) {
      Focus(Txt_Client);
      return false;
    }
  }
  ShowEntry(Entry::kNone);
  return true;
}

}  // namespace kalvo
