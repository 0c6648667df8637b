// SPDX-License-Identifier: MIT
// Decides what a dragged thing is. Files are only read when they are dropped.
#include "qt/window/main_window/drop_hand.h"

#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "qt/window/main_window/site_lines.h"

namespace requite {
namespace {

constexpr qint64 kLargestFile = 4 << 20;  // bytes
constexpr qsizetype kMostFiles = 100;     // dropped at once

QString ProjectIn(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  if (urls.size() != 1 || !urls[0].isLocalFile()) return {};
  const QString path = urls[0].toLocalFile();
  return path.endsWith(".prj", Qt::CaseInsensitive) ? path : QString();
}

bool HoldsSites(const QMimeData& dragged) { return dragged.hasUrls() || dragged.hasText(); }

/// The text of a file, or the reason why it has none.
struct FileText {
  QString Text;
  QString Problem;
};

FileText ReadTextFile(const QString& path) {
  const QString name = QFileInfo(path).fileName();
  // A pipe or a device might never end.
  if (!QFileInfo(path).isFile()) return {{}, DropHand::tr("%1 is not a file.").arg(name)};
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {{}, DropHand::tr("%1 cannot be read.").arg(name)};
  const QByteArray bytes = file.read(kLargestFile + 1);
  if (bytes.size() > kLargestFile)
    return {{}, DropHand::tr("%1 is too large for a list of sites.").arg(name)};
  const QString text = DecodeText(bytes);
  if (text.contains(QChar(0))) return {{}, DropHand::tr("%1 is not a text file.").arg(name)};
  return {text, {}};
}

}  // namespace

DropHand::DropHand(QWidget& window) : QObject(&window) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

void DropHand::TakeSites(QWidget& place, std::function<bool()> canTake, TakeText take) {
  places_[&place] = {std::move(canTake), std::move(take)};
  place.setAcceptDrops(true);
  place.installEventFilter(this);
}

const DropHand::Place* DropHand::PlaceOf(const QObject* watched) const {
  const auto found = places_.find(watched);
  return found == places_.end() || !found->second.CanTake() ? nullptr : &found->second;
}

bool DropHand::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
  auto& drop = static_cast<QDropEvent&>(*event);
  const QMimeData& dragged = *drop.mimeData();
  const Place* const place = PlaceOf(watched);
  const bool takes = ProjectIn(dragged).isEmpty() ? place != nullptr && HoldsSites(dragged) : CanOpen();
  // What it is dragged from keeps it: a move would delete it there.
  drop.setDropAction(Qt::CopyAction);
  drop.setAccepted(takes && (type != QEvent::Drop || Drop(dragged, place)));
  return true;
}

bool DropHand::Drop(const QMimeData& dropped, const Place* place) {
  if (const QString project = ProjectIn(dropped); !project.isEmpty()) {
    Open(QFile::encodeName(project).toStdString());
    return true;
  }
  const std::optional<QString> text = TextOf(dropped);
  if (text) place->Take(*text);
  return text.has_value();
}

std::optional<QString> DropHand::TextOf(const QMimeData& dropped) const {
  const QList<QUrl> urls = dropped.urls();
  if (urls.isEmpty()) return dropped.text();
  if (urls.size() > kMostFiles && urls[0].isLocalFile()) {
    Say(tr("These are too many files at once."));
    return std::nullopt;
  }
  QString text;
  for (const QUrl& each : urls) {
    if (!each.isLocalFile()) {
      // Encoded, because the name of a host may have letters that the list cannot hold.
      if (each.scheme().startsWith("http")) text += QString::fromLatin1(each.toEncoded()) + '\n';
      continue;
    }
    const FileText file = ReadTextFile(each.toLocalFile());
    if (!file.Problem.isEmpty()) {
      Say(file.Problem);
      return std::nullopt;
    }
    text += file.Text + '\n';
  }
  return text;
}

}  // namespace requite
