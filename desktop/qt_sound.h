#pragma once

#include <QString>

#include "form/sound.h"

namespace kalvo {

/// Plays a sound file by the desktop's own small player, if there is one.
class QtSound : public Sound {
 public:
  explicit QtSound(QString wave_file);

  void Play() override;
  void Beep() override;

 private:
  QString file_;
  QString player_;  ///< empty: there is none
};

}  // namespace kalvo
