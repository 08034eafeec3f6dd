#pragma once

namespace kalvo {

/// The program's one sound, and the beep of the desktop.
class Sound {
 public:
  virtual ~Sound() = default;
  /// Plays `echo.wav`; that it cannot be played is no error.
  virtual void Play() = 0;
  virtual void Beep() = 0;
};

/// Nothing is heard.
class Silence : public Sound {
 public:
  void Play() override {}
  void Beep() override {}
};

}  // namespace kalvo
