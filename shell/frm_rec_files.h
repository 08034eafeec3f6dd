#pragma once

#include "form/form.h"
#include "study/recent_files.h"

namespace kalvo {

/// The recent files of the kind in work, one of which is to be recalled. The dialog asks about the
/// open study and chooses (`ScreenState::chosen_file`); the screen that showed it loads.
class FrmRecFiles_S : public Form {
 public:
  explicit FrmRecFiles_S(Desk& shared_desk);

  void Load() override;

  Label LblEmpty{*this, "LblEmpty"};  ///< why there is nothing to be seen
  Grid fpSpread1{*this, "fpSpread1"};
  Command CmdBack;
  Command CmdDelete;
  Command CmdShow;
  Command CmdRecall;

 private:
  void ListLines();
  /// The line that the user stands on; nothing, which is told, when there is none.
  const RecentLine* Picked();
  void Recall();
  void Remove();
  void ShowWhole();

  std::vector<RecentLine> lines_;
};

}  // namespace kalvo
