#pragma once

#include "desktop/bindings/binding.h"

namespace kalvo {

/// The binding of a part that is painted as a picture; nothing for any other.
std::unique_ptr<Binding> MakePictureBinding(Control& part, QWidget& widget, const Act& act);

}  // namespace kalvo
