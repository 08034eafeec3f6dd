#pragma once

#include <Qt>

namespace kalvo {

/// What the model of a table or list may say of a cell beyond Qt's own roles.
enum CellRole {
  kImposedRole = Qt::UserRole + 100,  ///< bool: the user set this diameter
  kCriticalRole,                      ///< bool, on every cell of the row: on the critical branch
  kAlarmRole,                         ///< bool: what it says needs to be put right
  kLockedRole,                        ///< bool: shown in the grey of what cannot be changed
  kStrongRole,                        ///< bool: bold, in the primary colour
  kDepthRole,                         ///< int: how deep a list's line stands in its tree
};

}  // namespace kalvo
