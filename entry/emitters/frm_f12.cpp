#include "entry/emitters/frm_f12.h"

#include <algorithm>

#include "entry/emitters/emitter_forms.h"
#include "study/fault.h"

namespace kalvo {

FrmF12::FrmF12(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Cancel(*this, "Cmd_Cancel", "Άκυρο", [this] { Close(); }, {Plain(KeyCode::kEscape)}),
      Cmd_Delete(*this, "Cmd_Delete", "Διαγραφή", [this] { Forget(); }, {Ctrl(KeyCode::kDelete)}),
      Cmd_OK(*this, "Cmd_OK", "Αποδοχή", [this] { Accept(); }, {Ctrl(KeyCode::kEnter)}) {
  Cmd_Cancel.leaves_freely = Cmd_Delete.leaves_freely = true;
}

std::span<float> FrmF12::Memory() const {
  if (bench.study.SystemOpen()) return desk.screens.outlet_memory;
  return desk.screens.emitter_memory;
}

void FrmF12::Load() {
  const bool open = bench.study.SystemOpen();
  title = open ? "ΠΑΡΟΧΗ, ΠΙΕΣΗ ΡΟΗΣ ΚΑΙ ΥΨ.ΔΙΑΦΟΡΑ" : "ΠΑΡΟΧΗ ΝΕΡΟΥ ΚΑΙ ΠΤΩΣΗ ΠΙΕΣΗΣ";
  LblPressure.text = open ? "Πίεση Ροής ...." : "Πτώση Πίεσης ....";
  LblPressureUnit.text = open ? "[m w.g.]" : "[mm w.g.]";
  LblHeight.visible = LblHeightUnit.visible = LblNow3.visible = Text3.visible = open;
  Text1.enter_to = &Text2;
  Text2.enter_to = open ? static_cast<Control*>(&Text3) : &Cmd_OK;
  Text3.enter_to = &Cmd_OK;
  const std::array<Label*, 3> now = {&LblNow1, &LblNow2, &LblNow3};
  const std::span<float> memory = Memory();
  for (std::size_t i = 0; i < memory.size(); ++i) {
    now[i]->text = MemoryText(memory[i], "", desk.separators);
  }
  FillFromMemory(memory, fields_, desk.separators);
  Focus(Text1);
}

void FrmF12::Accept() {
  const std::span<float> memory = Memory();
  for (std::size_t i = 0; i < memory.size(); ++i) {
    const double typed = fields_[i]->Number(desk.separators);
    memory[i] = typed == 0 ? kNoMemory : ToSingle(typed);
  }
  Close();
}

void FrmF12::Forget() {
  std::ranges::fill(Memory(), kNoMemory);
  Close();
}

void FrmF12::Close() { desk.navigator.Close(screen::kMemoryValues); }

}  // namespace kalvo
