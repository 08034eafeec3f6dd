#pragma once

#include "form/viewer.h"

namespace kalvo {

/// Opens a file with the program that the desktop has for its kind.
class QtViewer : public Viewer {
 public:
  Outcome Open(const std::filesystem::path& file) override;
};

}  // namespace kalvo
