#pragma once

#include <string_view>

namespace kalvo {

/// The screens by their names, as one form asks for another.
namespace screen {
constexpr std::string_view kTitle = "FrmTitle";
constexpr std::string_view kKind = "FrmKind";
constexpr std::string_view kMain = "FrmMain";
constexpr std::string_view kGeneralData = "FrmGenData";
constexpr std::string_view kLiquid = "FrmLiquid";
constexpr std::string_view kMethod = "FrmCalcs";
constexpr std::string_view kNameErrors = "FrmError";
constexpr std::string_view kMissingValues = "FrmERR";
constexpr std::string_view kViewer = "FrmEditor";
constexpr std::string_view kStudies = "FrmOpenSave";
constexpr std::string_view kFiles = "FrmFileOS";
constexpr std::string_view kRecent = "FrmRecFiles_S";
constexpr std::string_view kDataFolder = "FrmFF";
constexpr std::string_view kSafetyCopies = "FrmSafety";
constexpr std::string_view kOldStudy = "FrmOldStudy";
constexpr std::string_view kGoTo = "FrmGoTo";
constexpr std::string_view kSheet = "FrmData_Sheet";
constexpr std::string_view kSections = "FrmData";
constexpr std::string_view kEntryChoice = "FrmWhat";
constexpr std::string_view kSheetHelp = "FrmDtSheet_Help";
constexpr std::string_view kTees = "FrmTauCross_S";
constexpr std::string_view kFormTees = "FrmTauCross";
constexpr std::string_view kEmitters = "FrmSoma";
constexpr std::string_view kOutlets = "FrmYpodo";
constexpr std::string_view kMemoryValues = "FrmF12";
constexpr std::string_view kCurrentStudy = "FrmCurFL";
constexpr std::string_view kResults = "FrmRes";
constexpr std::string_view kResultsSheet = "FrmRes_Sheet";
constexpr std::string_view kPump = "FrmResGn";
constexpr std::string_view kQuantities = "FrmStatS";
constexpr std::string_view kOneDiameter = "FrmAvaiD";
constexpr std::string_view kComparison = "FrmCompare";
constexpr std::string_view kManyDiameters = "FrmChang";
constexpr std::string_view kPrintRoute = "FrmXLorNOT";
constexpr std::string_view kPrint = "FrmPRNR1";
constexpr std::string_view kWinter = "FrmWinter";
constexpr std::string_view kDesigners = "FrmCLient";
constexpr std::string_view kListPassword = "FrmCLPass";
constexpr std::string_view kPreview = "FrmPreview";
constexpr std::string_view kManual = "FrmManual";
constexpr std::string_view kCopy = "FrmCopy";
}  // namespace screen

/// Shows and closes screens. A form that closes itself lives on until the action under way ends.
class Navigator {
 public:
  virtual ~Navigator() = default;

  /// Shows the screen, or brings it to the front; returns at once.
  virtual void Show(std::string_view screen) = 0;
  /// Shows the screen over the others and returns when it has closed.
  virtual void ShowModal(std::string_view screen) = 0;
  /// Closes the screen; none of that name is open: nothing happens.
  virtual void Close(std::string_view screen) = 0;
  /// Takes the screen from view; it keeps what it holds.
  virtual void Hide(std::string_view screen) = 0;
  [[nodiscard]] virtual bool IsOpen(std::string_view screen) const = 0;

  /// Shows the manual at the chapter of that screen, in front of the screen's window.
  virtual void ShowManual(std::string_view /*screen*/) {}

  /// The wait indicator with that text. It shows when the work takes longer than a moment.
  virtual void ShowWait(std::string_view text) = 0;
  virtual void HideWait() = 0;
  /// How far the work under the wait indicator has come, in its own words.
  virtual void ShowProgress(std::string_view /*text*/, int /*done*/, int /*total*/) {}

  /// Long work of a form has come a step further: its windows are painted and its keys are heard.
  /// What the user does meanwhile reaches the forms, which must not begin anything else.
  virtual void LetBreathe() {}

  /// Ends the program when the action under way has ended.
  virtual void EndProgram() = 0;
};

/// Shows the screen and hides the main menu, unless the screen has closed itself at once.
inline void ShowInsteadOfMenu(Navigator& navigator, std::string_view screen) {
  navigator.Show(screen);
  if (navigator.IsOpen(screen)) navigator.Hide(screen::kMain);
}

}  // namespace kalvo
