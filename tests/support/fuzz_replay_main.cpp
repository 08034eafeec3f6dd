#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Runs a fuzz target over the kept inputs without a fuzzer: every file of the folder given. An
/// unreadable or empty folder is a failure, since nothing would have been tried.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " CORPUS_FOLDER\n";
    return 2;
  }
  std::error_code problem;
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1], problem)) {
    std::ifstream file(entry.path(), std::ios::binary);
    if (!file) {
      std::cerr << "cannot read " << entry.path() << '\n';
      return 1;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    std::cout << entry.path().filename().string() << " (" << bytes.size() << " bytes)" << std::endl;
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    ++count;
  }
  if (count == 0) {
    std::cerr << "no inputs in " << argv[1] << '\n';
    return 1;
  }
  std::cout << count << " inputs replayed\n";
  return 0;
}
