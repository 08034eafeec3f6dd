#pragma once

#include <vector>

#include "engine/notes.h"
#include "form/form.h"
#include "form/pictures.h"
#include "results/change_strip.h"
#include "results/diameter_view.h"
#include "results/pump_frame.h"

namespace kalvo {

/// Results of one section at a time.
class FrmRes : public Form, public DiameterView {
 public:
  explicit FrmRes(Desk& shared_desk);
  FrmRes(const FrmRes&) = delete;
  FrmRes& operator=(const FrmRes&) = delete;
  ~FrmRes() override;

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool MayClose() override;

  void ShowReplaced(const SectionRow& row, bool waits) override;
  bool FirstKey(const Key& key) override;
  void ShowAgain() override { ShowRow(); }
  void GoTo(int number) override { GoToRow(number); }
  void BringToFront() override;

  PumpFrame frame{*this};

  Command CmdPump;
  Command CmdDiff;
  Command CmdExar;
  Command CmdPrn;
  Command Cmd_Nodes;
  Command CmdChD;
  Command CmdNewD;
  Command CmdHelp;
  Toggle ChkSoundR{*this, "ChkSoundR", " On-Off Ήχων "};

  Label LblNumber{*this, "LblNumber"};
  Label LblCount{*this, "LblCount"};
  Label LblCritical{*this, "LblCritical", "στον δυσμενέστερο κλάδο"};
  PipeDrawing Pipe{*this, "Pipe"};
  Field TxtName{*this, "TxtName"};
  Field TxtLength{*this, "TxtLength"};
  Label LblWas{*this, "LblWas"};  ///< beside a diameter that the user imposed, or that waits
  Field TxtNomiDiam{*this, "TxtNomiDiam"};
  Field TxtWaterFlow{*this, "TxtWaterFlow"};
  Field TxtVelocity{*this, "TxtVelocity"};
  Field TxtTotalDrop{*this, "TxtTotalDrop"};
  Field TxtAvaiPres{*this, "TxtAvaiPres"};
  Label LblNotes{*this, "LblNotes"};
  ChangeStrip changes{*this, desk, [this] { return MayCompare(); }};

  Command CmdFirst;
  Command CmdPrev;
  Command CmdNext;
  Command CmdLast;
  Command CmdGoTo;

  Command CmdBack;
  Command SSCommand1;
  Command CmdSound;
  Command CmdChangeOne;     ///< the menus' entry: its change waits
  Command CmdChangeMany;    ///< the same for many sections
  Command CmdPrintResults;  ///< the menus' entry: by the route that is chosen

 private:
  void BuildMenus();
  /// Shows the current row, read anew.
  void ShowRow();
  void ShowValues(const SectionRow& row);
  void ShowWas(const SectionRow& row, const SectionRow* first);
  void ShowPipe();
  void ShowNotes(const std::vector<SectionRow>& rows, const SectionRow& row);
  void ClearRow();
  void GoToRow(int number);
  void ChooseRow();
  void ShowWorstBranch();
  void ShowPump();
  void ShowBill();
  void Print(bool by_chosen_route);
  /// A command that a waiting change of diameters may ask about first. True: it may go on;
  /// `goes_on_unchanged` says whether it does where the diameters are as calculated.
  bool MayRun(bool goes_on_unchanged);
  /// What waits is asked about first.
  bool MayCompare();
  void ShowHelp();
  void ShowSheet();
};

}  // namespace kalvo
