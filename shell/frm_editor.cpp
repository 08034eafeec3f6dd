#include "shell/frm_editor.h"

namespace kalvo {

FrmEditor::FrmEditor(Desk& shared_desk)
    : Form(shared_desk),
      CmdNotePad(*this, "CmdNotePad", "NotePad", [this] { Choose("NotePad"); }, {Ctrl('N')}),
      CmdWordPad(*this, "CmdWordPad", "WordPad", [this] { Choose("WordPad"); }, {Ctrl('W')}),
      CmdExit(*this, "CmdExit", "Επιστροφή", [this] { Choose(""); }, {Plain(KeyCode::kEscape)}) {
  title = "Επιλογή Προγράμματος Παρουσίασης";
}

void FrmEditor::Load() { Focus(CmdNotePad); }

void FrmEditor::Choose(std::string_view viewer) {
  desk.questions.viewer = viewer;
  desk.navigator.Close(screen::kViewer);
}

}  // namespace kalvo
