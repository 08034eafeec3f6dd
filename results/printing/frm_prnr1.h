#pragma once

#include "form/form.h"
#include "results/printing/printers_part.h"
#include "results/printing/program_route.h"
#include "results/reports/report_writer.h"

namespace kalvo {

/// Where data or results are printed to, by the route that was chosen: the spreadsheet's prints
/// pages, shows them or makes a workbook or a PDF of them; the program's writes the print database,
/// and a text file or a plain workbook if asked.
class FrmPRNR1 : public Form {
 public:
  explicit FrmPRNR1(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;
  void Derive() override;
  bool FirstKey(const Key& key) override;

  Label TxtThema{*this, "TxtThema"};
  Label LblKind{*this, "LblKind"};
  Label LblSections{*this, "LblSections"};
  Label LblRoute{*this, "LblRoute"};
  Label LblCard{*this, "LblCard"};
  Toggle OptPRN{*this, "OptPRN", "Εκτύπωση σε Εκτυπωτή"};
  PrintersPart printers{*this};
  Label LblPrinter{*this, "LblPrinter"};  ///< what the list has of the printer beside its name
  Field TxtCopies{*this, "TxtCopies", KeyFamily::kUnsignedWhole};
  Command VScroll1Less;
  Command VScroll1More;
  Toggle OptFile{*this, "OptFile", "Εκτύπωση σε Αρχείο"};
  Toggle Chk_XL{*this, "Chk_XL", "Δημιουργία Αρχείου του < Microsoft Excel >"};
  Label LblFile{*this, "LblFile", "Όνομα Αρχείου ................................"};
  Field TxtFile{*this, "TxtFile", KeyFamily::kPath};
  Command CmdFile;
  Label LblFileKind{*this, "LblFileKind",
                    "Είδος Αρχείου ......................................................"};
  Choice Cbo_FileKind{*this, "Cbo_FileKind"};
  Label LblDesigner{*this, "LblDesigner"};
  Command Cmd_Client;
  Label LblTarget{*this, "LblTarget"};  ///< what would be written, and where
  Command CmdPreview;
  Command CmdPdf;
  Command CmdCANCEL;
  Command CmdOK;

 private:
  [[nodiscard]] bool ByExcel() const { return desk.screens.RouteExcel; }
  [[nodiscard]] ReportKind Kind() const;
  [[nodiscard]] bool ToPrinter() const { return ByExcel() ? !Chk_XL.on : OptPRN.on; }
  [[nodiscard]] int Copies() const;
  [[nodiscard]] PrintFileKind FileKind() const;

  void AddCopies(int more);
  void ChooseFileName();
  void SavePdf();
  void ShowTarget();
  [[nodiscard]] Result<ReportTarget> Target(std::string_view suffix) const;
  [[nodiscard]] ReportOrder Order(ReportMode mode) const;

  void Print();
  void PrintPages();
  /// By the program's route.
  void Export();
  void Preview();
  void Close();
};

}  // namespace kalvo
