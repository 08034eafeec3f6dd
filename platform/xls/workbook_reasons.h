#pragma once

#include <string>
#include <string_view>

#include "study/result.h"

namespace kalvo {

/// Why bytes are not a workbook that can be filled, as the user reads it.
namespace workbook_reason {
inline constexpr std::string_view kEmpty = "Το αρχείο είναι κενό";
inline constexpr std::string_view kOtherKind = "Το αρχείο δεν είναι βιβλίο εργασίας του Excel";
inline constexpr std::string_view kNewer =
    "Το βιβλίο εργασίας είναι νεότερης μορφής (.xlsx)· αποθηκεύστε το ως .xls";
inline constexpr std::string_view kOlder =
    "Το βιβλίο εργασίας είναι παλαιότερης μορφής, πριν από το Excel 97";
inline constexpr std::string_view kEncrypted = "Το βιβλίο εργασίας είναι κρυπτογραφημένο με κωδικό";
inline constexpr std::string_view kNoSheets = "Το βιβλίο εργασίας δεν έχει φύλλα εργασίας";
inline constexpr std::string_view kFirstSheet =
    "Το πρώτο φύλλο του βιβλίου εργασίας πρέπει να έχει κελιά και να φαίνεται";
inline constexpr std::string_view kCut = "Το βιβλίο εργασίας είναι ελλιπές";
inline constexpr std::string_view kDamaged = "Το βιβλίο εργασίας είναι αλλοιωμένο";
inline constexpr std::string_view kNoText =
    "Ένα κελί παραπέμπει σε κείμενο που δεν υπάρχει στο βιβλίο εργασίας";
inline constexpr std::string_view kNoFormat =
    "Ένα κελί παραπέμπει σε μορφή που δεν υπάρχει στο βιβλίο εργασίας";
inline constexpr std::string_view kOutside =
    "Ένα κελί του βιβλίου εργασίας είναι έξω από τα όρια του φύλλου";
inline constexpr std::string_view kTooLarge = "Το βιβλίο εργασίας είναι υπερβολικά μεγάλο";
inline constexpr std::string_view kDoesNotFit =
    "Τα στοιχεία δεν χωρούν στο φύλλο (65536 γραμμές, 256 στήλες)";
}  // namespace workbook_reason

/// An error whose file is not known here; whoever knows it fills it in.
inline FileError Because(std::string_view reason) { return {{}, std::string(reason)}; }

}  // namespace kalvo
