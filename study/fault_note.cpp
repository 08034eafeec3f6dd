#include "study/fault_note.h"

#include <algorithm>
#include <filesystem>
#include <new>

#include "study/by_number.h"
#include "study/real_disk.h"
#include "study/study.h"

namespace kalvo {

namespace {

// A file may have put any byte into a name.
bool IsControl(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20U || (byte >= 0x7FU && byte < 0xA0U);
}

std::string NameOfRow(const Study& study, int row) {
  if (row < 1 || row > static_cast<int>(study.SectionTable.size())) {
    return {};
  }
  std::string name(ByNumber(study.SectionTable, row).name.Trimmed());
  std::ranges::replace_if(name, IsControl, ' ');
  return FromCodePage(Trim(name));
}

}  // namespace

std::string ReasonFor(const std::exception& cause) {
  if (dynamic_cast<const std::bad_alloc*>(&cause) != nullptr) {
    return "Η μνήμη δεν επαρκεί";
  }
  const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&cause);
  return file == nullptr ? cause.what()
                         : FileError{file->path1(), ReasonOf(file->code().value())}.Line();
}

FaultNote NoteOf(const std::exception& cause, const Study& study) {
  FaultNote note;
  note.text = ReasonFor(cause);
  if (const auto* fault = dynamic_cast<const Fault*>(&cause)) {
    note.number = fault->number();
    note.of_file = fault->file_error() != nullptr;
    note.row = fault->row();
    note.section = NameOfRow(study, note.row);
  }
  return note;
}

std::string KnownLine(const FaultNote& note) {
  if (note.number == 0) {
    return "... Σφάλμα του προγράμματος < " + note.text + " > ...";
  }
  std::string line = "... Σφάλμα < " + std::to_string(note.number) + " >";
  if (note.of_file) {
    line += " : " + note.text;
  }
  if (note.row != 0) {
    line += ", στο Τμήμα με α/α < " + std::to_string(note.row) + " >";
  }
  if (!note.section.empty()) {
    line += " : " + note.section;
  }
  return line + " ...";
}

}  // namespace kalvo
