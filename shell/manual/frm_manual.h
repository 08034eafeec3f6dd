#pragma once

#include <optional>
#include <vector>

#include "form/form.h"
#include "form/reading.h"
#include "shell/manual/manual_search.h"

namespace kalvo {

/// The manual: contents at the left, a chapter to be read, search through all of them. It opens at
/// `Questions::manual`.
class FrmManual : public Form {
 public:
  explicit FrmManual(Desk& shared_desk);

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool OtherKey(const Key& key) override;

  Command CmdBack;
  Command CmdContents;
  Field TxtSearch{*this, "TxtSearch"};
  Label LblFound{*this, "LblFound"};
  Command CmdManual;
  List LstContents{*this, "LstContents"};
  Reading Page{*this, "Page"};
  Command CmdClose;

 private:
  struct Visited {
    ManualPlace spot;
    int scrolled = 0;
  };

  void GoTo(const ManualPlace& spot);
  void TurnTo(const ManualPlace& spot, int scrolled);
  void GoBack();
  void ShowContents();
  void Search();
  void NextHit();
  void Follow(const std::string& target);
  void ListContents();
  void ListHits();
  void SelectCurrent();
  [[nodiscard]] std::string TextOf(const ManualPlace& spot) const;

  std::optional<ManualBook> book_;
  std::string unread_;  ///< why there is no book
  std::optional<ManualSearch> search_;
  std::vector<ManualPlace> spots_;  ///< of the lines of `LstContents`
  std::vector<ManualHit> hits_;
  std::vector<Visited> before_;
  ManualPlace current_;
};

}  // namespace kalvo
