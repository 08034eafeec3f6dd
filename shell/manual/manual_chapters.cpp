#include "shell/manual/manual_chapters.h"

#include <algorithm>

#include "form/navigator.h"

namespace kalvo {
namespace {

constexpr std::string_view kInstall = "01-install";
constexpr std::string_view kSectionData = "04-sections";
constexpr std::string_view kEmitterData = "05-emitters-outlets";
constexpr std::string_view kCalculation = "06-calculation";
constexpr std::string_view kResultViews = "07-results";
constexpr std::string_view kOtherDiameters = "08-diameters";
constexpr std::string_view kWinterDuty = "09-winter";
constexpr std::string_view kPrints = "10-quantities-printing";
constexpr std::string_view kStudyFiles = "11-files";
constexpr std::string_view kPipesAndFluids = "12-pipes-fluids";
constexpr std::string_view kKeys = "14-keys";

constexpr ScreenChapter kScreenChapters[] = {
    {screen::kTitle, kInstall, "Ο τίτλος"},
    {screen::kKind, kInstall, "Επιλογή συστήματος"},
    {screen::kMain, kInstall, "Το βασικό μενού"},
    {screen::kManual, kInstall, "Βοήθεια"},
    {screen::kGeneralData, kSectionData, "Γενικά δεδομένα"},
    {screen::kSheet, kSectionData, "Το φύλλο των τμημάτων"},
    {screen::kSections, kSectionData, "Η φόρμα ενός τμήματος"},
    {screen::kEntryChoice, kSectionData, "Διόρθωση ή συνέχεια"},
    {screen::kTees, kSectionData, "Ταυ και σταυροί"},
    {screen::kFormTees, kSectionData, "Ταυ και σταυροί"},
    {screen::kGoTo, kSectionData, "Μετάβαση σε τμήμα"},
    {screen::kEmitters, kEmitterData, "Σώματα"},
    {screen::kOutlets, kEmitterData, "Υποδοχείς"},
    {screen::kMemoryValues, kEmitterData, "Τιμές μνήμης"},
    {screen::kMethod, kCalculation, "Τρόπος υπολογισμού"},
    {screen::kResults, kResultViews, "Προβολή αποτελεσμάτων"},
    {screen::kResultsSheet, kResultViews, "Φύλλο αποτελεσμάτων"},
    {screen::kPump, kResultViews, "Γενικά αποτελέσματα"},
    {screen::kOneDiameter, kOtherDiameters, "Άλλες διαθέσιμες διάμετροι"},
    {screen::kManyDiameters, kOtherDiameters, "Αλλαγή διαμέτρου"},
    {screen::kComparison, kOtherDiameters, "Σύγκριση"},
    {screen::kWinter, kWinterDuty, "Δεδομένα χειμώνα"},
    {screen::kQuantities, kPrints, "Ποσότητες σωλήνων"},
    {screen::kPrintRoute, kPrints, "Επιλογή εκτύπωσης"},
    {screen::kPrint, kPrints, "Εκτύπωση δεδομένων και αποτελεσμάτων"},
    {screen::kPreview, kPrints, "Προεπισκόπηση"},
    {screen::kDesigners, kPrints, "Λίστα μελετητών"},
    {screen::kListPassword, kPrints, "Password των μελετητών"},
    {screen::kStudies, kStudyFiles, "Άνοιγμα μελέτης"},
    {screen::kFiles, kStudyFiles, "Το παράθυρο των αρχείων"},
    {screen::kRecent, kStudyFiles, "Πρόσφατα αρχεία"},
    {screen::kCurrentStudy, kStudyFiles, "Στοιχεία αρχείου"},
    {screen::kDataFolder, kStudyFiles, "Ο φάκελος των μελετών"},
    {screen::kCopy, kStudyFiles, "Αντιγραφή μελετών"},
    {screen::kViewer, kStudyFiles, "Προβολή κειμένων"},
    {screen::kOldStudy, kStudyFiles, "Ημιτελής παλαιά μελέτη"},
    {screen::kSafetyCopies, kStudyFiles, "Τα αντίγραφα ασφαλείας"},
    {screen::kLiquid, kPipesAndFluids, "Επιλογή υγρού"},
    {screen::kSheetHelp, kKeys, "Βοήθεια πλήκτρων"},
    {screen::kNameErrors, kMessagesChapter, "Λάθη στα ονόματα"},
    {screen::kMissingValues, kMessagesChapter, "Τιμές που λείπουν"},
};

}  // namespace

std::span<const ScreenChapter> ScreenChapters() { return kScreenChapters; }

ManualPlace PlaceOfScreen(std::string_view screen) {
  const auto* found = std::ranges::find(kScreenChapters, screen, &ScreenChapter::screen);
  if (found == std::end(kScreenChapters)) return {std::string(kManualContents)};
  return {std::string(found->chapter), ManualAnchor(found->heading)};
}

ManualPlace PlaceOfMessage(int number) {
  return {std::string(kMessagesChapter), number == 0 ? "" : std::to_string(number)};
}

}  // namespace kalvo
