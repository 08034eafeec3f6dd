#include "cli/findings.h"

namespace kalvo {

std::string FindingsText(Session& session) {
  const auto list = session.workspace().Read(work_file::kErrors);
  return list ? *list : "";
}

}  // namespace kalvo
