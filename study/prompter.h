#pragma once

#include <string>
#include <vector>

namespace kalvo {

struct Study;

/// What the user said to a box. kNone: the box asked nothing.
enum class Answer { kNone, kYes, kNo, kCancel };

/// Styles of a message box: a sum of the buttons (0 OK, 3 Yes/No/Cancel, 4 Yes/No), the icon (16
/// stop, 32 question, 48 exclamation, 64 information) and 256 for each button that the default is
/// past the first.
namespace box_style {
constexpr int kStop = 16;
constexpr int kExclamation = 48;
constexpr int kInformation = 64;
constexpr int kYesNoCancel = 35;
constexpr int kYesNo = 36;
constexpr int kStopDefaultNo = 276;
constexpr int kWarnDefaultNo = 308;
constexpr int kDefaultNo = 292;
constexpr int kDefaultCancel = 547;
}  // namespace box_style

/// A message box: its title, its lines and its style, and how often the program beeps before it
/// shows.
struct Box {
  std::string title;
  std::vector<std::string> lines;
  int style = box_style::kStop;
  int beeps = 0;
};

/// The beeps before a numbered message and before the box of a run-time fault.
constexpr int kAlarmBeeps = 2;

/// True when a box of this style waits for more than OK.
constexpr bool StyleAsks(int style) { return (style & 0x0F) != 0; }

/// How the program talks to its user.
class Prompter {
 public:
  virtual ~Prompter() = default;

  /// Shows the numbered message; values that its text inserts come from `study`.
  virtual Answer ShowMessage(int code, const Study& study) = 0;

  /// Shows a box that carries its own text.
  virtual Answer Ask(const Box& box) = 0;
};

}  // namespace kalvo
