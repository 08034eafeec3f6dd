// What a copying says to its user.

#include <string>

#include "study/copying/copy_run.h"
#include "study/numeric_text.h"

namespace kalvo {

namespace {

std::string FilesText(std::size_t files) {
  return " · " + std::to_string(files) + (files == 1 ? " αρχείο" : " αρχεία");
}

std::string BytesText(std::uint64_t bytes, Separators separators) {
  return FormatPattern(static_cast<double>(bytes), pattern::kWhole, separators) + " Bytes";
}

}  // namespace

bool CopyEntry::Arrived() const {
  return fate == CopyFate::kCopied || fate == CopyFate::kReplaced || fate == CopyFate::kSame;
}

std::string CopyEntry::Text() const {
  const std::string fluid = lacks_fluid ? " · χωρίς .LQD, λογίζεται μελέτη νερού" : "";
  switch (fate) {
    case CopyFate::kWaits:
      return "περιμένει" + FilesText(files);
    case CopyFate::kUnderWay:
      return "αντιγράφεται" + FilesText(files);
    case CopyFate::kCopied:
      return "αντιγράφηκε" + FilesText(files) + fluid;
    case CopyFate::kReplaced:
      return "αντικατέστησε αυτήν που υπήρχε" + FilesText(files) + fluid;
    case CopyFate::kSame:
      return "υπάρχει ήδη, ίδια" + FilesText(files) + fluid;
    case CopyFate::kKept:
      return "ΔΕΝ αντιγράφηκε · " + (reason.empty() ? "μένει αυτή που υπάρχει"
                                                    : "μένει το < " + reason + " > που υπάρχει");
    case CopyFate::kSameName:
      return "ΔΕΝ αντιγράφηκε · το μέσο δεν ξεχωρίζει το όνομά της από άλλης επιλεγμένης μελέτης";
    case CopyFate::kFailed:
      return "ΔΕΝ αντιγράφηκε · " + reason;
    case CopyFate::kNotReached:
      return "ΔΕΝ αντιγράφηκε · η αντιγραφή σταμάτησε πριν από αυτήν";
  }
  return {};
}

Box ReplaceBox(const CopyPlan& plan) {
  Box box{"  ! !  ΠΡΟΣΟΧΗ  ! ! ", {}, box_style::kWarnCancelDefaultNo, kAlarmBeeps};
  if (!plan.in_the_way.empty()) {
    box.lines.push_back("... To Αρχείο < " + plan.in_the_way + " >, υπάρχει ήδη ...");
  }
  if (!plan.shared.empty()) {
    box.lines.push_back("... Το Αρχείο < " + plan.shared + " > ανήκει και στη Μελέτη < " +
                        plan.sharer + " >, και θα αλλάξει ...");
  }
  if (plan.newer_there) {
    box.lines.emplace_back("... και είναι ΝΕΟΤΕΡΟ από αυτό που αντιγράφεται ...");
  }
  box.lines.emplace_back("... ΘΕΛΕΤΕ ΝΑ ΤΟ ΑΝΤΙΚΑΤΑΣΤΗΣΩ ?? ...");
  return box;
}

Box RoomBox(const CopyRun& run, RoomEnd end, Separators separators) {
  if (end == RoomEnd::kTooSmall) {
    return {"  ! !   ΠΡΟΣΟΧΗ : Ανεπαρκής Συνολικός Χώρος Μέσου   ! !  ",
            {"!! Ο Χώρος του Drive, στο οποίο θα αντιγαφούν τα αρχεία ΕΙΝΑΙ ΜΙΚΡΟΣ : ΑΛΛΑΞΤΕ "
             "Drive !!"},
            box_style::kExclamation,
            kAlarmBeeps};
  }
  return {"  ! !   ΠΡΟΣΟΧΗ : Ανεπαρκής Χώρος  ! !  ",
          {"!! Ο Ελεύθερος Χώρος του Drive ΔΕΝ ΕΠΑΡΚΕΙ : ΕΛΕΥΘΕΡΩΣΤΕ ΧΩΡΟ Ή ΑΛΛΑΞΤΕ Drive !!",
           "Χρειάζονται " + BytesText(run.need().peak, separators) + ", ελεύθερα είναι " +
               BytesText(run.room().free, separators)},
          box_style::kExclamation,
          kAlarmBeeps};
}

}  // namespace kalvo
