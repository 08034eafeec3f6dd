#include "study/workspace.h"

namespace kalvo {

bool Workspace::HasBytes(std::string_view name) const {
  const auto status = work_disk_->Status(Path(name));
  return !status || (*status && (*status)->length > 0);
}

Result<std::string> Workspace::ReadIfThere(std::string_view name) const {
  Result<std::string> bytes = Read(name);
  return !bytes && bytes.error().IsMissing() ? Result(std::string()) : bytes;
}

Result<std::string> Workspace::Read(std::string_view name) const {
  return work_disk_->Read(Path(name));
}

Outcome Workspace::Write(std::string_view name, std::string bytes) {
  return ReplaceFile(*work_disk_, Path(name), std::move(bytes));
}

void Workspace::Delete(std::string_view name) { static_cast<void>(work_disk_->Remove(Path(name))); }

Outcome Workspace::Remove(std::string_view name) {
  Delete(name);
  const auto status = Status(name);
  if (!status) {
    return status.error();
  }
  return *status ? Outcome(FileError{Path(name), "Το αρχείο δεν διαγράφεται"}) : Outcome(Done{});
}

Outcome Workspace::Copy(std::string_view from, std::string_view to) {
  Pause();
  Result<std::string> bytes = Read(from);
  if (!bytes) {
    return bytes.error();
  }
  return Write(to, std::move(bytes).value());
}

Outcome Workspace::MoveOver(std::string_view from, std::string_view to) {
  Pause();
  return work_disk_->Rename(Path(from), Path(to));
}

Outcome Workspace::Flush(std::string_view name) {
  Outcome flushed = work_disk_->Flush(Path(name));
  return flushed ? work_disk_->Flush(folder_) : flushed;
}

void Workspace::DeleteWorkFiles() {
  for (const char* name : work_file::kAll) {
    Delete(name);
    Delete(name + std::string(kBesideEnd));  // left by a write that was broken off
  }
}

}  // namespace kalvo
