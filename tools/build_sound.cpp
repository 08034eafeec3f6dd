// build_sound <file>: makes the program's sound, a short note and its echo, as a wave file of one
// channel, 16 bits, 22,050 samples a second.

#include <cmath>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <numbers>
#include <string>

namespace {

constexpr int kRate = 22050;
constexpr double kSeconds = 0.35;
constexpr double kPitch = 880;  // Hz
constexpr double kFade = 0.05;  // seconds in which the note falls to 1/e
constexpr double kEchoAfter = 0.13;
constexpr double kEchoLoudness = 0.4;
constexpr double kLoudness = 9000;  // of 32767

// What is heard of the note that many seconds after its beginning.
double Note(double seconds) {
  if (seconds < 0) return 0;
  return std::exp(-seconds / kFade) * std::sin(2 * std::numbers::pi * kPitch * seconds);
}

void Put(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) {
    bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  }
}

std::string Samples() {
  std::string bytes;
  for (int i = 0; i < static_cast<int>(kSeconds * kRate); ++i) {
    const double seconds = static_cast<double>(i) / kRate;
    const double heard = Note(seconds) + kEchoLoudness * Note(seconds - kEchoAfter);
    Put(bytes, static_cast<std::uint32_t>(std::lround(kLoudness * heard)), 2);
  }
  return bytes;
}

std::string WaveFile(const std::string& samples) {
  constexpr int kHead = 36;
  const auto size = static_cast<std::uint32_t>(samples.size());
  std::string bytes = "RIFF";
  Put(bytes, kHead + size, 4);
  bytes += "WAVEfmt ";
  Put(bytes, 16, 4);  // bytes of the format that follow
  Put(bytes, 1, 2);   // samples as they are
  Put(bytes, 1, 2);   // channels
  Put(bytes, kRate, 4);
  Put(bytes, 2 * kRate, 4);
  Put(bytes, 2, 2);
  Put(bytes, 16, 2);
  bytes += "data";
  Put(bytes, size, 4);
  return bytes + samples;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: build_sound <file>\n";
    return 2;
  }
  std::ofstream file(argv[1], std::ios::binary);
  file << WaveFile(Samples());
  file.close();
  if (file) return 0;
  std::cerr << "build_sound: cannot write " << argv[1] << "\n";
  return 1;
}
