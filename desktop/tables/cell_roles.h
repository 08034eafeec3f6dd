#pragma once

#include <Qt>

namespace kalvo {

/// What the model of a table or list may say of a cell beyond Qt's own roles.
enum CellRole {
  kLookRole = Qt::UserRole + 100,  ///< int, CellLook of the cell; of a row's number: of the row
  kShareRole,                      ///< double, 0 to 1: painted as a bar; none where it is no number
  kDepthRole,                      ///< int: how deep a list's line stands in its tree
};

/// How a cell is painted, any of these together.
enum CellLook {
  kImposedLook = 1,   ///< the user set this diameter
  kCriticalLook = 2,  ///< on every cell of the row, and on its number: on the critical branch
  kAlarmLook = 4,     ///< what it says needs to be put right; on a number: what some cell says
  kLockedLook = 8,    ///< shown in the grey of what cannot be changed
  kStrongLook = 16,   ///< bold, in the primary colour
  kOpenLook = 32,     ///< on the ground of what can be changed
  kRefusedLook = 64,  ///< what was entered is not taken
  kBoldLook = 128,
  kMarksLook = 256,    ///< the marks of its row are in it: of the branch, of being selected
  kWaitingLook = 512,  ///< this diameter waits for its calculation
  kGoodLook = 1024,    ///< better than before
};

/// Next to a diameter that waits.
inline constexpr const char* kWaitingWord = "αναμένει";

}  // namespace kalvo
