#include "desktop/bindings/progress_binding.h"

#include "desktop/bindings/control_look.h"

namespace kalvo {

void ProgressBinding::Paint() {
  PaintPresence(bar_, progress_);
  if (bar_.maximum() != progress_.total) bar_.setRange(0, progress_.total);
  if (bar_.value() != progress_.done) {
    bar_.setValue(progress_.done);
    bar_.update();
  }
}

}  // namespace kalvo
