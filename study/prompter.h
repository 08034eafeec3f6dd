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
constexpr int kWarnCancelDefaultNo = 307;
constexpr int kDefaultCancel = 547;
}  // namespace box_style

/// What helps to answer a question, shown above it: lines of a caption and a value, and a table
/// that unfolds.
struct MessageFacts {
  struct Line {
    std::string caption;
    std::string value;
    bool operator==(const Line&) const = default;
  };
  std::vector<Line> lines;
  std::string table_caption;
  std::vector<std::string> heads;
  std::vector<std::vector<std::string>> rows;
};

/// A message box: its title, its lines and its style, and how often the program beeps before it
/// shows.
struct Box {
  std::string title;
  std::vector<std::string> lines;
  int style = box_style::kStop;
  int beeps = 0;
  MessageFacts facts{};        ///< shown above the lines
  bool may_stay_open = false;  ///< Esc leaves it unanswered
  int number = 0;              ///< of a numbered message; 0: it has none
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

  /// The same below facts that help to answer it, which may be left open with Esc: kNone. Who
  /// cannot show facts asks without.
  virtual Answer ShowMessageWith(const MessageFacts& /*facts*/, int code, const Study& study) {
    return ShowMessage(code, study);
  }

  /// Shows a box that carries its own text.
  virtual Answer Ask(const Box& box) = 0;
};

}  // namespace kalvo
