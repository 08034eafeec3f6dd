#pragma once

#include <optional>

#include "study/section_row.h"

namespace kalvo {

/// The two methods of a calculation: pipes by flow alone, or then smaller ones where pressure is
/// left.
enum class Method { kFlowOnly = 1, kFlowAndPressure = 2 };

/// The method that the row was sized by, nothing when its mark is neither's.
inline std::optional<Method> MethodOf(const SectionRow& row) {
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    if (row.INILAMDA == static_cast<float>(method)) return method;
  }
  return std::nullopt;
}

inline void SetMethod(SectionRow& row, Method method) { row.INILAMDA = static_cast<float>(method); }

}  // namespace kalvo
