#include "desktop/greek_texts.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kalvo {
namespace {

struct Text {
  std::string_view source;
  const char* greek;
};

// A source text has one meaning wherever Qt shows it. In order of the sources.
constexpr Text kTexts[] = {
    {"%1 KiB", "%1 KiB"},
    {"%1 MiB", "%1 MiB"},
    {"%1 bytes", "%1 bytes"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nΟ φάκελος δεν βρέθηκε.\nΕλέγξτε το όνομά του."},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nΤο αρχείο δεν βρέθηκε.\nΕλέγξτε το όνομά του."},
    {"&Cancel", "Ά&κυρο"},
    {"&Choose", "&Επιλογή"},
    {"&Copy", "&Αντιγραφή"},
    {"&Delete", "&Διαγραφή"},
    {"&New Folder", "&Νέος φάκελος"},
    {"&No", "Ό&χι"},
    {"&OK", "&Εντάξει"},
    {"&Open", "&Άνοιγμα"},
    {"&Paste", "&Επικόλληση"},
    {"&Redo", "&Επανάληψη"},
    {"&Rename", "&Μετονομασία"},
    {"&Undo", "&Αναίρεση"},
    {"&Yes", "&Ναι"},
    {"All Files (*)", "Όλα τα αρχεία (*)"},
    {"Alt", "Alt"},
    {"Back", "Πίσω"},
    {"Cancel", "Άκυρο"},
    {"Clear", "Καθαρισμός"},
    {"Close", "Κλείσιμο"},
    {"Close Window", "Κλείσιμο παραθύρου"},
    {"Computer", "Υπολογιστής"},
    {"Create New Folder", "Νέος φάκελος"},
    {"Create a New Folder", "Νέος φάκελος"},
    {"Ctrl", "Ctrl"},
    {"Cu&t", "Απο&κοπή"},
    {"Date Modified", "Τροποποίηση"},
    {"Delete", "Διαγραφή"},
    {"Detail View", "Λεπτομέρειες"},
    {"Directory:", "Φάκελος:"},
    {"File &name:", "Ό&νομα:"},
    {"Files of type:", "Είδος αρχείων:"},
    {"Find Directory", "Εύρεση φακέλου"},
    {"Folder", "Φάκελος"},
    {"Forward", "Εμπρός"},
    {"Go back", "Πίσω"},
    {"Go forward", "Εμπρός"},
    {"Go to the parent directory", "Στον φάκελο πιο πάνω"},
    {"Kind", "Είδος"},
    {"List View", "Κατάλογος"},
    {"Look in:", "Φάκελος:"},
    {"My Computer", "Υπολογιστής"},
    {"Name", "Όνομα"},
    {"New Folder", "Νέος φάκελος"},
    {"OK", "Εντάξει"},
    {"Open", "Άνοιγμα"},
    {"Parent Directory", "Φάκελος πιο πάνω"},
    {"Recent Places", "Πρόσφατες θέσεις"},
    {"Remove", "Αφαίρεση"},
    {"Select All", "Επιλογή όλων"},
    {"Shift", "Shift"},
    {"Show ", "Εμφάνιση "},
    {"Show &hidden files", "Εμφάνιση &κρυφών αρχείων"},
    {"Sidebar", "Πλευρική στήλη"},
    {"Size", "Μέγεθος"},
    {"Type", "Είδος"},
};

}  // namespace

const char* GreekTexts::Find(const char* source) {
  const auto* found = std::ranges::find(kTexts, std::string_view(source), &Text::source);
  return found == std::end(kTexts) ? nullptr : found->greek;
}

QString GreekTexts::translate(const char* /*context*/, const char* source,
                              const char* /*disambiguation*/, int /*n*/) const {
  const char* greek = source == nullptr ? nullptr : Find(source);
  return greek == nullptr ? QString() : QString::fromUtf8(greek);
}

}  // namespace kalvo
