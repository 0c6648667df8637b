// SPDX-License-Identifier: MIT
// Plays sounds with the desktop's own player program.
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "platform/services.h"

class QProcess;

namespace requite {

/// Starts the first of pw-play, paplay and aplay that is installed. Without a player, or without the
/// file, there is silence.
class SoundProcess : public SoundPlayer {
 public:
  SoundProcess();
  ~SoundProcess() override;

  void PlaySoundFile(const std::string& path) override;

 private:
  void CutOff();

  std::optional<QString> player_;  ///< looked for at the first sound
  std::unique_ptr<QProcess> process_;
};

}  // namespace requite
