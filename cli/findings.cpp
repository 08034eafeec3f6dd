#include "cli/findings.h"

#include "cli/text_table.h"
#include "study/text_lines.h"

namespace kalvo {

std::string FindingsText(Session& session) {
  const auto list = session.workspace().Read(work_file::kErrors);
  std::string text;
  for (const std::string& line : list ? SplitLines(*list) : std::vector<std::string>{}) {
    text += Printable(line) + "\n";
  }
  return text;
}

}  // namespace kalvo
