#include "shell/options.h"

#include <array>
#include <string>

#include "study/text_lines.h"

namespace kalvo {
namespace {

struct OptionName {
  std::string_view name;
  bool Options::*value;
};

constexpr std::array kNames = {OptionName{"SoundOn", &Options::SoundOn},
                               OptionName{"ChkDataKind", &Options::ChkDataKind},
                               OptionName{"FolderCommands", &Options::folder_commands}};
constexpr std::string_view kDesignerStart = "Designer=";

}  // namespace

Options ReadOptions(const Workspace& workspace) {
  Options options;
  const auto bytes = workspace.Read(work_file::kOptions);
  if (!bytes) return options;
  for (const std::string& line : SplitLines(*bytes)) {
    for (const OptionName& option : kNames) {
      const std::string start = std::string(option.name) + "=";
      if (line == start + "1") options.*option.value = true;
      if (line == start + "0") options.*option.value = false;
    }
    if (line.starts_with(kDesignerStart)) options.designer = line.substr(kDesignerStart.size());
  }
  return options;
}

Outcome WriteOptions(Workspace& workspace, const Options& options) {
  if (const auto former = workspace.ReadIfThere(work_file::kOptions); !former) {
    return former.error();
  }
  std::string text;
  for (const OptionName& option : kNames) {
    text += std::string(option.name) + (options.*option.value ? "=1\n" : "=0\n");
  }
  if (!options.designer.empty()) text += std::string(kDesignerStart) + options.designer + "\n";
  return workspace.Write(work_file::kOptions, std::move(text));
}

}  // namespace kalvo
