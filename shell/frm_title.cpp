#include "shell/frm_title.h"

#include "shell/program_log.h"

namespace kalvo {
namespace {

constexpr double kShownSeconds = 4;

}  // namespace

FrmTitle::FrmTitle(Desk& shared_desk)
    : Form(shared_desk),
      CmdGo(*this, "CmdGo", "Συνέχεια", [this] { GoOn(); },
            {Plain(KeyCode::kEnter), Plain(KeyCode::kEscape)}) {
  title = "Kalvoflume";
  LblVersion.text = desk.version;
  runs_by_itself = &CmdGo;
  after_seconds = kShownSeconds;
  Focus(CmdGo);
}

void FrmTitle::GoOn() {
  if (desk.navigator.IsOpen(screen::kKind)) return;
  RecordProgram(bench.workspace.outer_disk(), desk.state_folder, desk.program_folder);
  desk.navigator.Close(screen::kTitle);
  desk.navigator.Show(screen::kKind);
}

bool FrmTitle::OtherKey(const Key& key) {
  if (key.code == KeyCode::kCharacter && key.character == 0) return false;  // a modifier alone
  GoOn();
  return true;
}

bool FrmTitle::MayClose() {
  GoOn();
  return false;
}

}  // namespace kalvo
