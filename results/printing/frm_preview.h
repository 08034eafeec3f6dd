#pragma once

#include "form/form.h"
#include "form/pictures.h"
#include "form/print_pdf.h"

namespace kalvo {

/// Pages as they would be printed: turned over, enlarged, printed, kept as a PDF.
class FrmPreview : public Form {
 public:
  explicit FrmPreview(Desk& shared_desk);

  void Load() override;
  void Derive() override;
  bool FirstKey(const Key& key) override;

  Label LblTitle{*this, "LblTitle"};
  Label LblClient{*this, "LblClient"};
  Command CmdFirst;
  Command CmdPrev;
  Field TxtPage{*this, "TxtPage", KeyFamily::kUnsignedWhole};
  Label LblCount{*this, "LblCount"};
  Command CmdNext;
  Command CmdLast;
  Command CmdZoomOut;
  Choice CboZoom{*this, "CboZoom"};
  Command CmdZoomIn;
  Command CmdWhole;
  PageTiles Tiles{*this, "Tiles"};
  PageView Page{*this, "Page"};
  Command CmdClose;
  Label LblName{*this, "LblName"};
  Command CmdOpen;
  Command CmdPdf;
  Command CmdPrint;

 private:
  [[nodiscard]] int count() const;
  /// A page that counts from 0; past either end it is the last one there.
  void TurnTo(int page);
  /// Past the end of one page to the beginning of the next, or the other way.
  void ScrollOver(bool forward);
  /// The page whose number was typed.
  void TakeTypedPage();
  /// So many steps of the list of zooms; from a whole page to the next one there.
  void Zoom(int steps);
  void TakeChosenZoom();
  void ShowWhole();
  [[nodiscard]] PdfSource Source() const;
  /// Pages without a name get one in the desktop's dialogue.
  void KeepPdf();
  void TakeEnd(const PdfEnd& end);

  PreviewedPages* pages_ = nullptr;
  PreviewFacts facts_;
  std::string told_;               ///< what came of the last printing; empty: nothing to say
  std::filesystem::path written_;  ///< the PDF written last; empty: none yet
};

}  // namespace kalvo
