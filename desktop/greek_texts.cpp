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
    {"%1: Remote closed", "%1: Η σύνδεση έκλεισε"},
    {"&Cancel", "Ά&κυρο"},
    {"&Copy", "&Αντιγραφή"},
    {"&Delete", "&Διαγραφή"},
    {"&No", "Ό&χι"},
    {"&OK", "&Εντάξει"},
    {"&Paste", "&Επικόλληση"},
    {"&Redo", "Ε&πανάληψη"},
    {"&Undo", "Α&ναίρεση"},
    {"&Yes", "&Ναι"},
    {"+", "+"},
    {"Alt", "Alt"},
    {"Arguments:", "Ορίσματα:"},
    {"Cancel", "Άκυρο"},
    {"Clear", "Καθαρισμός"},
    {"Close", "Κλείσιμο"},
    {"Close Window", "Κλείσιμο παραθύρου"},
    {"Ctrl", "Ctrl"},
    {"Cu&t", "Απο&κοπή"},
    {"Delete", "Διαγραφή"},
    {"Displays help on commandline options.", "Εμφανίζει αυτή τη βοήθεια."},
    {"Displays help including Qt specific options.",
     "Εμφανίζει τη βοήθεια και τις γενικές επιλογές."},
    {"Displays version information.", "Εμφανίζει την έκδοση."},
    {"Missing value after '%1'.", "Λείπει η τιμή μετά το «%1»."},
    {"OK", "Εντάξει"},
    {"Options:", "Επιλογές:"},
    {"QT_LAYOUT_DIRECTION", "LTR"},
    {"Select All", "Επιλογή όλων"},
    {"Shift", "Shift"},
    {"The remote host closed the connection", "Η άλλη πλευρά έκλεισε την σύνδεση"},
    {"Unknown option '%1'.", "Άγνωστη επιλογή «%1»."},
    {"Usage: %1", "Χρήση: %1"},
    {"[options]", "[επιλογές]"},
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
