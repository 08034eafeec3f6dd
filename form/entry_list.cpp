#include "form/entry_list.h"

namespace kalvo {

std::vector<int> EntryList::Ticked() const {
  std::vector<int> lines;
  for (int line = 0; line < count(); ++line) {
    if (IsTicked(line)) lines.push_back(line);
  }
  return lines;
}

void EntryList::SetLines(std::vector<EntryLine> lines) {
  lines_ = std::move(lines);
  ticked_.assign(lines_.size(), false);
  current_ = lines_.empty() ? -1 : 0;
  ++revision_;
}

void EntryList::SetLine(int line, EntryLine content) {
  EntryLine& kept = lines_.at(static_cast<std::size_t>(line));
  if (kept == content) return;
  kept = std::move(content);
  ++revision_;
}

void EntryList::SetCurrent(int line) {
  if (line == current_ || line < 0 || line >= count()) return;
  current_ = line;
  ++revision_;
}

void EntryList::MoveTo(int line) { SetCurrent(line); }

void EntryList::Tick(int line) {
  if (!ticks || line < 0 || line >= count()) return;
  SetCurrent(line);
  ticked_[static_cast<std::size_t>(line)] = !IsTicked(line);
  TellTicked();
}

void EntryList::TickAll(bool ticked) {
  if (!ticks) return;
  ticked_.assign(lines_.size(), ticked);
  TellTicked();
}

void EntryList::TellTicked() {
  ++revision_;
  if (on_tick) on_tick();
}

bool EntryList::Press(const Key& key) {
  if (!ticks || key != Typed(U' ')) return false;
  Tick(current_);
  return true;
}

}  // namespace kalvo
