#include "shell/copying/drive_side.h"

#include <algorithm>

namespace kalvo {
namespace {

namespace fs = std::filesystem;

const char* IconOf(VolumeKind kind) {
  switch (kind) {
    case VolumeKind::kRemovable:
      return "stick";
    case VolumeKind::kHome:
      return "home";
    case VolumeKind::kSystem:
      break;
  }
  return "drive";
}

bool IsBelow(const fs::path& folder, const fs::path& place) {
  const fs::path relative = folder.lexically_normal().lexically_relative(place);
  return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

DriveSide::DriveSide(Workbench& bench, Choice& drives, List& folders)
    : bench_(bench), drives_(drives), list_(folders), folders_(bench.workspace.outer_disk()) {
  drives_.on_select = [this] { TakeDrive(); };
  list_.on_select = [this] {
    folders_.GoTo(list_.selected);
    ShowFolders();
  };
}

void DriveSide::SetVolumes(const std::vector<Volume>& volumes) {
  const fs::path place = volume() == nullptr ? fs::path() : volume()->place;
  volumes_ = volumes;
  drives_.entries.clear();
  drives_.icons.clear();
  for (const Volume& known : volumes_) {
    drives_.entries.push_back(known.name);
    drives_.icons.emplace_back(IconOf(known.kind));
  }
  const auto found = std::ranges::find(volumes_, place, &Volume::place);
  chosen_ = found == volumes_.end() ? -1 : static_cast<int>(found - volumes_.begin());
  drives_.selected = chosen_;
}

// The drive whose place is nearest above the folder; the whole tree is above every one.
void DriveSide::GoTo(const fs::path& folder) {
  const Volume* nearest = nullptr;
  for (const Volume& known : volumes_) {
    const bool nearer =
        nearest == nullptr || known.place.native().size() > nearest->place.native().size();
    if (IsBelow(folder, known.place) && nearer) nearest = &known;
  }
  chosen_ = nearest == nullptr ? -1 : static_cast<int>(nearest - volumes_.data());
  drives_.selected = chosen_;
  folders_.SetRoot(nearest == nullptr ? fs::path("/") : nearest->place);
  folders_.ShowAt(folder);
  ShowFolders();
}

void DriveSide::Refresh() {
  const fs::path here = folder();
  folders_.ShowAt(here);
  list_.SetLines(folders_.Names(), folders_.Depths());
  list_.selected = folders_.current();
}

const Volume* DriveSide::volume() const {
  return chosen_ < 0 ? nullptr : &volumes_[static_cast<std::size_t>(chosen_)];
}

void DriveSide::TakeDrive() {
  const Volume& wanted = volumes_[static_cast<std::size_t>(drives_.selected)];
  if (!bench_.workspace.outer_disk().List(wanted.place)) {
    drives_.selected = chosen_;
    bench_.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                {"... Το Drive είναι άδειο !!"},
                box_style::kExclamation,
                kAlarmBeeps});
    return;
  }
  chosen_ = drives_.selected;
  folders_.SetRoot(wanted.place);
  folders_.ShowAt(wanted.place);
  ShowFolders();
}

void DriveSide::ShowFolders() {
  list_.SetLines(folders_.Names(), folders_.Depths());
  list_.selected = folders_.current();
  if (on_change) on_change();
}

}  // namespace kalvo
