// Any journal of a broken-off save, with any of its staged files there: what is finished or thrown
// away is the study's own, and the next save is whole. First byte: which staged files there are.

#include <algorithm>
#include <array>

#include "fuzz/fuzz_bench.h"
#include "study/family_save.h"

namespace {

using namespace kalvo;

constexpr std::array kOwn = {"b.LQD", "b.PCK", "b.STC", "b.wnt"};
constexpr std::array kOthers = {"a.PCK", "b.txt", "bb.PCK"};

bool IsOwn(const std::string& name) {
  return std::any_of(kOwn.begin(), kOwn.end(), [&](const char* own) {
    return name == own || name == std::string(own) + ".new~";
  });
}

// A disk on which nothing but the study's own files, in their folder, may be changed.
class GuardedDisk : public MemoryDisk {
 public:
  bool guarded = false;

  Outcome Write(const std::filesystem::path& path, std::string bytes) override {
    Guard(path);
    return MemoryDisk::Write(path, bytes);
  }
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    Guard(from);
    Guard(to);
    return MemoryDisk::Rename(from, to);
  }
  Outcome Remove(const std::filesystem::path& path) override {
    Guard(path);
    return MemoryDisk::Remove(path);
  }

 private:
  void Guard(const std::filesystem::path& path) const {
    const std::string name = path.filename().string();
    const bool journal = name == "b.saving~" || name == "b.saving~.new~";
    Require(!guarded || (path.parent_path() == kStudies && (journal || IsOwn(name))),
            "only the study's own files are touched");
  }
};

void PutLeftovers(GuardedDisk& disk, unsigned staged, std::string_view journal) {
  for (const char* name : kOthers) {
    Require(disk.Write(kStudies / name, "old").ok(), "other file");
    Require(disk.Write(kStudies / (std::string(name) + ".new~"), "new").ok(), "other staged file");
  }
  for (std::size_t i = 0; i < kOwn.size(); ++i) {
    Require(disk.Write(kStudies / kOwn[i], "old").ok(), "own file");
    if ((staged >> i & 1U) != 0) {
      Require(disk.Write(kStudies / (std::string(kOwn[i]) + ".new~"), "new").ok(), "staged file");
    }
  }
  Require(disk.Write(kStudies / "b.saving~", std::string(journal)).ok(), "journal");
  disk.guarded = true;
}

void TryFinish(unsigned staged, std::string_view journal) {
  GuardedDisk disk;
  PutLeftovers(disk, staged, journal);
  Require(FinishSave(disk, kStudies, "b").ok(), "it can be finished");
  const bool whole = journal.starts_with("KALVOFLUME 1\n") && journal.ends_with("\nTELOS\n");
  const auto image = ImageOf(disk, kStudies);
  Require(!image.contains("b.saving~"), "the journal is gone");
  for (std::size_t i = 0; i < kOwn.size(); ++i) {
    const bool told = journal.find("\n" + std::string(kOwn[i]) + "\n") != std::string_view::npos;
    const bool was_staged = (staged >> i & 1U) != 0;
    const std::string& bytes = image.at(kOwn[i]);
    Require(bytes == "old" || (bytes == "new" && whole && told && was_staged), "as told");
    const bool left = image.contains(std::string(kOwn[i]) + ".new~");
    Require(!left || (whole && !told), "a staged file is left only when a whole journal lacks it");
  }
  Require(FinishSave(disk, kStudies, "b").ok() && ImageOf(disk, kStudies) == image,
          "once is enough");
}

void TrySave(unsigned staged, std::string_view journal) {
  GuardedDisk disk;
  PutLeftovers(disk, staged, journal);
  Require(SaveFamily(disk, kStudies, "b", {{"b.LQD", "newest"}, {"b.PCK", "newest"}}).ok(),
          "saved");
  const auto image = ImageOf(disk, kStudies);
  Require(image.size() == kOwn.size() + 2 * kOthers.size(), "nothing is left over");
  Require(image.at("b.LQD") == "newest" && image.at("b.PCK") == "newest", "the save is whole");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const unsigned staged = TakeByte(bytes);
  TryFinish(staged, bytes);
  TrySave(staged, bytes);
  return 0;
}
