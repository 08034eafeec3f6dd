#pragma once

#include <map>
#include <string>

#include "study/copying/copy_run.h"
#include "study/copying/folder_families.h"
#include "study/forwarding_disk.h"
#include "tests/support/program_in_memory.h"
#include "tests/support/set_volumes.h"

namespace kalvo {

/// A stick as Windows formats it: names that differ in case only are one, and some characters are
/// none of a name.
class FatDisk : public ForwardingDisk {
 public:
  /// What is below `stick` is on it.
  FatDisk(Disk& inner, std::filesystem::path stick)
      : ForwardingDisk(inner), stick_(std::move(stick)) {}

  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override {
    return inner_.Status(Entry(path));
  }
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override {
    return inner_.Read(Entry(path));
  }
  Outcome Write(const std::filesystem::path& path, std::string bytes) override {
    if (path.parent_path() == stick_ &&
        path.filename().string().find_first_of("\"*:<>?|") != std::string::npos) {
      return FileError{path, "Το μέσο δεν δέχεται αυτό το όνομα αρχείου"};
    }
    return inner_.Write(Entry(path), std::move(bytes));
  }
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return inner_.Rename(Entry(from), Entry(to));
  }
  Outcome Remove(const std::filesystem::path& path) override { return inner_.Remove(Entry(path)); }
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override {
    return inner_.SetModified(Entry(path), moment);
  }

 private:
  [[nodiscard]] std::filesystem::path Entry(const std::filesystem::path& path) const {
    if (path.parent_path() != stick_) return path;
    for (const std::string& name : NamesIn(inner_, stick_)) {
      if (ComparedName(name) == ComparedName(path.filename().string())) return stick_ / name;
    }
    return path;
  }

  std::filesystem::path stick_;
};

/// A user of a copying who answers all questions alike and notes what is shown.
class NotedCopyUser : public CopyUser {
 public:
  explicit NotedCopyUser(Answer to_all = Answer::kYes) : answer(to_all) {}

  Answer MayReplace(const CopyPlan& plan) override {
    asked.push_back(ReplaceBox(plan));
    return answer;
  }
  void Follow(const CopyRun& run) override {
    if (!run.file().empty()) files.push_back(run.file());
    done.push_back(run.done());
  }
  bool GoesOn() override { return studies_left-- > 0; }

  Answer answer;
  int studies_left = 1000;  ///< the user ends the copying after so many
  std::vector<Box> asked;
  std::vector<std::string> files;
  std::vector<std::uint64_t> done;
};

/// Puts files into a folder, each with its name's length of days as date.
inline void PutFolder(Disk& disk, const std::filesystem::path& folder, const FolderImage& files) {
  ASSERT_TRUE(disk.MakeFolder(folder).ok());
  for (const auto& [name, bytes] : files) {
    ASSERT_TRUE(disk.Write(folder / name, bytes).ok());
    ASSERT_TRUE(
        disk.SetModified(folder / name, static_cast<std::int64_t>(name.size()) * 86'400).ok());
  }
}

}  // namespace kalvo
