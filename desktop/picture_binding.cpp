#include "desktop/binding.h"

namespace kalvo {

std::unique_ptr<Binding> MakePictureBinding(Form& /*form*/, Control& /*part*/, QWidget& /*widget*/,
                                            const Act& /*act*/) {
  return nullptr;
}

}  // namespace kalvo
