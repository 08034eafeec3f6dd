#pragma once

#include "form/file_dialog.h"

namespace kalvo {

/// The dialogue of Qt, over the window in front.
class QtFileDialog : public FileDialog {
 public:
  std::filesystem::path ChooseTarget(const FileRequest& request) override;
};

}  // namespace kalvo
