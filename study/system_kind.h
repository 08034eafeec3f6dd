#pragma once

#include "study/section_row.h"

namespace kalvo {

/// kNone: not chosen yet. A study that must be of a kind counts as closed then
/// (Study::SystemClosed()).
enum class SystemKind { kNone, kClosed, kOpen };

/// The kind that a row is marked with, `otherwise` when it is marked with none or with both.
inline SystemKind KindOf(const SectionRow& row, SystemKind otherwise = SystemKind::kNone) {
  const bool closed = row.KLEIS != 0;
  const bool open = row.ANOIK != 0;
  if (closed == open) return otherwise;
  return closed ? SystemKind::kClosed : SystemKind::kOpen;
}

/// The marks of a kind: -1 from the entry of sections, 1 from the entry of emitters and outlets.
constexpr std::int16_t kKindOfSections = -1;
constexpr std::int16_t kKindOfEmitters = 1;

inline void SetKind(SectionRow& row, SystemKind kind, std::int16_t mark = kKindOfSections) {
  row.KLEIS = kind == SystemKind::kClosed ? mark : std::int16_t{0};
  row.ANOIK = kind == SystemKind::kOpen ? mark : std::int16_t{0};
}

}  // namespace kalvo
