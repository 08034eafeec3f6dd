#pragma once

#include <string>
#include <vector>

namespace kalvo {

struct Study;

/// What the user said to a box. kNone: the box asked nothing.
enum class Answer { kNone, kYes, kNo, kCancel };

/// A message box: its title, its lines and its style (16 stop, 48 exclamation, 64 information,
/// 35 Yes/No/Cancel, 36 Yes/No, 276 and 292 Yes/No with No the default, 547 Yes/No/Cancel with
/// Cancel the default), and how often the program beeps before it shows.
struct Box {
  std::string title;
  std::vector<std::string> lines;
  int style = 16;
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
