#include "platform/drives/detached_start.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#include "study/real_disk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

bool IsProgram(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

// In the child's child: it belongs to nobody who would have to wait for it. What it cannot start is
// told through the pipe, which a start closes.
[[noreturn]] void RunAlone(std::vector<char*>& words, int told) {
  setsid();
  if (fork() == 0) {
    execv(words.front(), words.data());
    const int reason = errno;
    static_cast<void>(!write(told, &reason, sizeof(reason)));
  }
  _exit(0);
}

}  // namespace

fs::path FindProgram(const std::string& name) {
  if (name.find('/') != std::string::npos) return IsProgram(name) ? fs::path(name) : fs::path();
  const char* known = std::getenv("PATH");
  std::string_view folders = known == nullptr ? "" : known;
  while (!folders.empty()) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    if (fs::path program = fs::path(folders.substr(0, end)) / name; end > 0 && IsProgram(program)) {
      return program;
    }
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return {};
}

Outcome StartDetached(const fs::path& program, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), program.string());
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return FileError{program, ReasonOf(errno)};
  const pid_t child = fork();
  if (child == 0) RunAlone(words, ends[1]);
  int reason = child < 0 ? errno : 0;
  close(ends[1]);
  if (child > 0) {
    waitpid(child, nullptr, 0);
    static_cast<void>(!read(ends[0], &reason, sizeof(reason)));
  }
  close(ends[0]);
  return reason == 0 ? Outcome(Done{}) : FileError{program, ReasonOf(reason)};
}

}  // namespace kalvo
