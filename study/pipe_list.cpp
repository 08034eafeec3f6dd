#include "study/pipe_list.h"

#include <algorithm>

#include "study/letter_case.h"
#include "study/prompter.h"

namespace kalvo {

namespace {

std::string FourDigits(int number) {
  const std::string text = std::to_string(number);
  return std::string(text.size() < 4 ? 4 - text.size() : 0, '0') + text;
}

RowReader<PipeRow> PipeFile(const Workspace& workspace, const std::string& file_name) {
  return RowReader<PipeRow>(workspace.outer_disk(), workspace.library_folder() / file_name);
}

Result<std::vector<std::string>> LibraryNames(const Workspace& workspace) {
  auto names = workspace.outer_disk().List(workspace.library_folder());
  if (!names) {
    return names.error().IsMissing() ? Result(std::vector<std::string>()) : names;
  }
  std::erase_if(*names, [&workspace](const std::string& name) {
    return name.size() < 4 || !EqualIgnoringCase(name.substr(name.size() - 4), ".wpt") ||
           workspace.outer_disk().IsFolder(workspace.library_folder() / name);
  });
  std::sort(names->begin(), names->end(), [](const std::string& a, const std::string& b) {
    const std::string lower_a = LowerCase(a);
    const std::string lower_b = LowerCase(b);
    return lower_a == lower_b ? a < b : lower_a < lower_b;
  });
  return names;
}

}  // namespace

std::string PipeListEntry::Text() const { return " " + FourDigits(number) + ". " + title + " "; }

Result<PipeList> BuildPipeList(Workspace& workspace, EmptyLibraries empty) {
  const auto names = LibraryNames(workspace);
  if (!names) {
    return names.error();
  }
  PipeList list;
  for (const std::string& name : *names) {
    const RowReader<PipeRow> file = PipeFile(workspace, name);
    const Result<std::vector<PipeRow>> rows = file.ReadAll();
    if (!rows) {
      return rows.error();
    }
    if (rows->empty()) {
      // A name in the folder that leads nowhere, a link say, is no empty file.
      const auto bytes = workspace.outer_disk().Read(file.path());
      if (!bytes) {
        return bytes.error();
      }
      if (empty == EmptyLibraries::kDelete) {
        static_cast<void>(workspace.outer_disk().Remove(file.path()));
      }
      continue;
    }
    const PipeRow& first = rows->front();
    list.push_back({static_cast<int>(list.size()) + 1, name, first.title.Utf8(),
                    first.material.Utf8(), static_cast<int>(rows->size())});
  }
  return list;
}

Box UnsuitableLibraryBox(const FileError& error) {
  return {"! ΠΡΟΣΟΧΗ !", {"Ακατάλληλες Βιβλιοθήκες Σωλήνων", error.Line()}, box_style::kStop};
}

std::string PipeFileName(int number) { return FourDigits(number) + ".WPT"; }

Result<std::vector<PipeRow>> ReadPipeSystem(const Workspace& workspace, int number) {
  const std::string wanted = PipeFileName(number);
  RowReader<PipeRow> file = PipeFile(workspace, wanted);
  if (!workspace.outer_disk().Exists(file.path())) {
    const auto entry = FindIgnoringCase(workspace.outer_disk(), workspace.library_folder(), wanted);
    if (!entry) {
      return entry.error();
    }
    if (!*entry) {
      return FileError{file.path(), "Δεν υπάρχει η Βιβλιοθήκη Σωλήνων", FileErrorKind::kMissing};
    }
    file = PipeFile(workspace, **entry);
  }
  Result<std::vector<PipeRow>> rows = file.ReadAll();
  if (rows && rows->empty()) {
    return FileError{file.path(), "Η Βιβλιοθήκη Σωλήνων είναι κενή"};
  }
  return rows;
}

std::string MaterialLine(std::string_view material) {
  const std::string_view word = Trim(material);
  const std::string label = "Υλικό Σωλήνων : ";
  if (word == kSteelWord) {
    return label + "ΧΑΛΥΒΑΣ";
  }
  return label + (word == kCopperWord ? "ΧΑΛΚΟΣ" : std::string(word));
}

}  // namespace kalvo
