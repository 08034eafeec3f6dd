#pragma once

#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "engine/diameter_change.h"
#include "form/form.h"
#include "results/change_history.h"
#include "results/section_picks.h"

namespace kalvo {

/// The diameters of many sections at once: sections are selected at the left, a pipe of the library
/// at the right. What is replaced is calculated when the form is left, or waits, as the road into
/// it says. It is shown over a view of results.
class FrmChang : public Form {
 public:
  explicit FrmChang(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  void Derive() override;

  Label LblThema{*this, "LblThema"};
  Label LblSelected{*this, "LblSelected"};
  Grid fpSpread1{*this, "fpSpread1"};
  Grid fpSpread2{*this, "fpSpread2"};

  Choice CboDiameter{*this, "CboDiameter"};
  Label LblDiameter{*this, "LblDiameter"};  ///< how many sections the pick adds, as the others
  Command CmdDiameter;
  Choice CboBranch{*this, "CboBranch"};
  Label LblBranch{*this, "LblBranch"};
  Command CmdBranch;
  Label LblWayHead{*this, "LblWayHead"};
  Choice CboWay{*this, "CboWay"};
  Label LblWay{*this, "LblWay"};
  Command CmdWay;
  Choice CboVelocity{*this, "CboVelocity"};
  Field TxtVelocity{*this, "TxtVelocity", KeyFamily::kUnsignedDecimal};  ///< m/s
  Label LblVelocity{*this, "LblVelocity"};
  Command CmdVelocity;
  Command CmdNone;

  Label LblHint{*this, "LblHint"};      ///< why a command did nothing
  Label LblEffect{*this, "LblEffect"};  ///< what CmdChange would do
  Label LblRest{*this, "LblRest"};      ///< which sections it leaves, and when all is calculated

  Command CmdBack;
  Command CmdUndo;
  Command CmdRedo;
  Command CmdChange;

 private:
  using Sections = std::vector<int>;  // their numbers

  void ShowLibrary(std::vector<PipeRow> pipes);
  /// The rows as they are in the work file. False: they cannot be read, and why was shown.
  bool ReadSections();
  void ShowSections();
  void ShowSection(int row);

  void OfferPicks();
  void CountPicks();
  [[nodiscard]] Sections OfDiameter() const;
  [[nodiscard]] Sections OfBranch() const;
  [[nodiscard]] Sections OfWay() const;
  [[nodiscard]] Sections OfVelocity() const;
  /// Another selection: what was said of the last command is over.
  void ForgetLast();
  /// Selects these sections, too.
  void Add(const Sections& sections);

  void ShowEffect();
  [[nodiscard]] std::string RestText(int having) const;
  [[nodiscard]] Sections Selected() const;
  /// The pipe that is the current one at the right; nullptr: none is.
  [[nodiscard]] const PipeRow* Pipe() const;

  void Change();
  void Take(HistoryStep step);
  void Replace(const DiameterChange& change);
  void Refuse(std::string_view why);
  void Back();
  /// The view shows the rows anew, the one on show as waiting if it does.
  void RefreshView();
  void GoRound();

  std::vector<SectionRow> rows_;
  std::vector<SectionRow> opened_;  ///< as the form opened
  std::vector<bool> waiting_;       ///< row by row: its calculation is still to come
  std::string last_change_;  ///< "3 τμήματα έγιναν 2", until something else is selected
  std::set<int> replaced_;   ///< sections that got another diameter here
  std::vector<PipeRow> pipes_;
  SectionPicks picks_;
  Sections emitters_;                ///< those of CboWay
  bool calculates_at_back_ = false;  ///< by the road that was taken
};

}  // namespace kalvo
