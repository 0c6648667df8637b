// SPDX-License-Identifier: MIT
// One player process at a time.
#include "qt/services/sound_process.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace requite {
namespace {

QString InstalledPlayer() {
  for (const char* name : {"pw-play", "paplay", "aplay"}) {
    QString path = QStandardPaths::findExecutable(QString::fromLatin1(name));
    if (!path.isEmpty()) return path;
  }
  return {};
}

}  // namespace

SoundProcess::SoundProcess() = default;

SoundProcess::~SoundProcess() { CutOff(); }

void SoundProcess::PlaySoundFile(const std::string& path) {
  const QString file = QFile::decodeName(path.c_str());
  if (!QFile::exists(file)) return;
  if (!player_) player_ = InstalledPlayer();
  if (player_->isEmpty()) return;
  CutOff();
  process_ = std::make_unique<QProcess>();
  process_->setStandardInputFile(QProcess::nullDevice());
  process_->setStandardOutputFile(QProcess::nullDevice());
  process_->setStandardErrorFile(QProcess::nullDevice());
  process_->start(*player_, {file});
}

void SoundProcess::CutOff() {
  if (!process_) return;
  process_->kill();
  // A killed player ends at once; this collects its exit status.
  process_->waitForFinished(1000);
  process_.reset();
}

}  // namespace requite
