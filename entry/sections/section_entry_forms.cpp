#include "entry/sections/section_entry_forms.h"

#include <algorithm>

#include "engine/outlets.h"

namespace kalvo {
namespace {

bool OutletsDiffer(const Workbench& bench, const DraftRows& made) {
  const auto outlets = bench.workspace.Rows(work_file::kEmitters).ReadAll();
  if (!outlets) return true;
  return !std::ranges::equal(FindOutlets(made.rows), *outlets, {}, {}, &SectionRow::RecordNumber);
}

}  // namespace

std::shared_ptr<SectionSitting> SittingOf(Desk& desk) {
  auto& sitting = desk.screens.section_sitting;
  if (!sitting) sitting = std::make_shared<SectionSitting>(desk);
  return sitting;
}

std::string_view ScreenAfterEntry(Desk& desk, const DraftRows& made) {
  const bool open = desk.bench.study.SystemOpen();
  const bool emitters =
      !desk.screens.edit_mode || made.moved || (open && OutletsDiffer(desk.bench, made));
  if (made.rows.empty() || !emitters) return screen::kMain;
  return open ? screen::kOutlets : screen::kEmitters;
}

}  // namespace kalvo
