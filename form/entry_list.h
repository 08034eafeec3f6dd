#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "form/control.h"
#include "form/key.h"

namespace kalvo {

/// One line of an EntryList: a name that stands out, what is said of it, and at the right edge what
/// belongs to it.
struct EntryLine {
  std::string name;
  std::string text{};
  std::string detail{};
  std::string icon{};  ///< before the name; none in a list whose lines are ticked
  Tone tone = Tone::kPlain;
  bool operator==(const EntryLine&) const = default;
};

/// Lines of which any number can be ticked, or none where it only shows something.
class EntryList : public Control {
 public:
  using Control::Control;

  bool ticks = false;             ///< the user ticks lines
  std::function<void()> on_tick;  ///< the user has ticked others

  [[nodiscard]] const std::vector<EntryLine>& lines() const { return lines_; }
  [[nodiscard]] int count() const { return static_cast<int>(lines_.size()); }
  /// The line on which the user is; -1: there is none.
  [[nodiscard]] int current() const { return current_; }
  [[nodiscard]] bool IsTicked(int line) const { return ticked_[static_cast<std::size_t>(line)]; }
  /// Positions of the lines that are ticked, rising.
  [[nodiscard]] std::vector<int> Ticked() const;
  /// Grows whenever lines, ticks or the current line have changed.
  [[nodiscard]] int revision() const { return revision_; }

  /// New lines, none of them ticked, the first one current.
  void SetLines(std::vector<EntryLine> lines);
  /// Changes a line in its place.
  void SetLine(int line, EntryLine content);
  /// The form makes another line the current one, which is brought in sight.
  void SetCurrent(int line);

  /// The user moves to a line.
  void MoveTo(int line);
  /// The user ticks a line, or takes its tick away.
  void Tick(int line);
  /// The user ticks all lines, or none.
  void TickAll(bool ticked);
  /// A key: Space ticks the current line. False: it is not the list's own.
  bool Press(const Key& key);

 private:
  void TellTicked();

  std::vector<EntryLine> lines_;
  std::vector<bool> ticked_;
  int current_ = -1;
  int revision_ = 0;
};

}  // namespace kalvo
