#pragma once

#include <string>
#include <string_view>

#include "study/result.h"

namespace kalvo {

/// Why bytes are not a database that lines can be added to, as the user reads it.
namespace jet_reason {
inline constexpr std::string_view kEmpty = "Το αρχείο είναι κενό";
inline constexpr std::string_view kOtherKind = "Το αρχείο δεν είναι βάση δεδομένων της Access";
inline constexpr std::string_view kOlder =
    "Η βάση δεδομένων είναι παλαιότερης μορφής, πριν από την Access 2000";
inline constexpr std::string_view kNewer =
    "Η βάση δεδομένων είναι νεότερης μορφής (.accdb)· αποθηκεύστε την ως .mdb της Access 2000";
inline constexpr std::string_view kEncrypted = "Η βάση δεδομένων είναι κρυπτογραφημένη";
inline constexpr std::string_view kCut = "Η βάση δεδομένων είναι ελλιπής";
inline constexpr std::string_view kDamaged = "Η βάση δεδομένων είναι αλλοιωμένη";
inline constexpr std::string_view kTooLarge = "Η βάση δεδομένων είναι υπερβολικά μεγάλη";
inline constexpr std::string_view kDoesNotFit = "Οι γραμμές δεν χωρούν στη βάση δεδομένων";
}  // namespace jet_reason

/// An error whose file is not known here; whoever knows it fills it in.
inline FileError JetError(std::string_view reason) { return {{}, std::string(reason)}; }

}  // namespace kalvo
