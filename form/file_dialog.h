#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kalvo {

/// What a file that is to be written may be called.
struct FileRequest {
  std::filesystem::path folder;  ///< where the dialogue begins
  std::string name;              ///< what it proposes
  /// "Text Files (*.TXT)", one of which the user chooses; the first is proposed.
  std::vector<std::string> filters;
};

/// What it answers when it is cancelled.
inline constexpr const char* kNoFileAtAll = "NoFileAtAll";

/// The desktop's dialogue for a file to be written. It asks nothing about a file that is there.
class FileDialog {
 public:
  virtual ~FileDialog() = default;
  /// The file chosen; kNoFileAtAll: none was.
  virtual std::filesystem::path ChooseTarget(const FileRequest& request) = 0;
};

}  // namespace kalvo
