#pragma once

#include <vector>

#include "engine/diameter_change.h"
#include "form/form.h"
#include "results/change_history.h"
#include "results/diameter_view.h"

namespace kalvo {

/// The pipes of the library, of which the section on show gets another one. It stays open beside
/// the results, follows the row on show and never moves it.
class FrmAvaiD : public Form {
 public:
  explicit FrmAvaiD(Desk& shared_desk);

  void Load() override;
  /// Without a list, or a view to serve, it closes.
  void Activate() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  void Derive() override;

  Label LblSection{*this, "LblSection"};
  Label LblSectionName{*this, "LblSectionName"};
  Label LblNow{*this, "LblNow"};
  Label LblHint{*this, "LblHint"};
  Grid fpSpread1{*this, "fpSpread1"};
  Command Cmd_Close;
  Command CmdReplace;
  Command CmdUndo;
  Command CmdRedo;

 private:
  void TakeLibrary(std::vector<PipeRow> pipes);
  /// The list goes to the diameter of the row on show.
  void Follow(const DiameterView& view);
  void Replace();
  void Take(HistoryStep step);
  /// The pipe that is chosen, from the library as it is now; nothing: none is, and why is shown.
  std::optional<PipeRow> ChosenPipe();
  void Refuse(std::string_view why);
  void Store(const DiameterChange& change, DiameterView& view);
  void Calculate(const DiameterChange& change, DiameterView& view);
  /// The row as it is in the work file, its diameter as one that waits, or that came back.
  void ShowReplaced(DiameterView& view, int number);
  void Close();

  std::vector<PipeRow> pipes_;
  int followed_ = 0;  ///< the display of the view that was followed last
};

}  // namespace kalvo
