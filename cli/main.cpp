#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string_view>

#include "cli/command_line.h"

namespace {

int TerminalWidth() {
  winsize size{};
  return isatty(STDOUT_FILENO) != 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col
                                                                                    : 0;
}

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// A terminal for colours and a line of progress; a dumb one would show their escape sequences.
bool ObeysSequences(int stream) { return isatty(stream) != 0 && Environment("TERM") != "dumb"; }

// Whether the one who read the results has left, as `head` does: it has seen what it wanted.
bool ReaderHasLeft() {
  pollfd out{STDOUT_FILENO, POLLOUT, 0};
  return poll(&out, 1, 0) == 1 && (out.revents & POLLERR) != 0;
}

}  // namespace

int main(int argc, char** argv) {
  // A full disk or a file size limit is told as an error, not by the end of the process.
  std::signal(SIGXFSZ, SIG_IGN);
  // Nor does a reader who leaves end what is still to be calculated and saved.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  kalvo::Console console{std::cout, std::cerr, kalvo::DetectSeparators()};
  console.out_is_terminal = ObeysSequences(STDOUT_FILENO);
  console.err_is_terminal = ObeysSequences(STDERR_FILENO);
  console.colours = Environment("NO_COLOR").empty();
  console.width = TerminalWidth();
  const int code = kalvo::RunCommandLine({argv + 1, argv + argc}, console);
  std::cout.flush();
  if (!std::cout.good() && !ReaderHasLeft()) {
    std::cerr << "Το αποτέλεσμα ΔΕΝ γράφτηκε στην έξοδο του προγράμματος\n";
    return kalvo::exit_code::kUnwritable;
  }
  return code;
}
