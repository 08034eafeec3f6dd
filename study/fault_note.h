#pragma once

#include <exception>
#include <string>

namespace kalvo {

struct Study;

/// What is known of a fault that ended a pass or an action.
struct FaultNote {
  int number = 0;        ///< of the run-time fault, 0 = an exception of another kind
  std::string text;      ///< what it says of itself; of a file fault the reason and the file
  bool of_file = false;  ///< the world said no
  int row = 0;           ///< 0 = not known
  std::string section;   ///< the row's name, UTF-8, trimmed
};

/// What an exception says of itself, in Greek where the system's own words are English.
std::string ReasonFor(const std::exception& cause);

/// What `cause` tells, with the name that its row has in `SectionTable`.
FaultNote NoteOf(const std::exception& cause, const Study& study);

/// The same as a line for the user.
std::string KnownLine(const FaultNote& note);

/// Where faults are written down for those who look after the program.
class FaultLog {
 public:
  virtual ~FaultLog() = default;
  /// That it cannot be written down is no error.
  virtual void Note(const FaultNote& note) = 0;
};

}  // namespace kalvo
