#pragma once

#include <Qt>

namespace kalvo {

/// What a table's model may say of a cell beyond Qt's own roles.
enum CellRole {
  kImposedRole = Qt::UserRole + 100,  ///< bool: the user set this diameter
  kCriticalRole,                      ///< bool, on every cell of the row: on the critical branch
  kLockedRole,                        ///< bool: shown in the grey of what cannot be changed
  kStrongRole,                        ///< bool: bold, in the primary colour
};

}  // namespace kalvo
