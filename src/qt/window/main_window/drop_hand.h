// SPDX-License-Identifier: MIT
// Takes what the user drops on the main window: a project, or sites for one of its lists.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <optional>
#include <string>

class QMimeData;
class QWidget;

namespace requite {

/// A list or an entry box takes text, links and text files; every place takes one project file.
class DropHand : public QObject {
  Q_OBJECT

 public:
  explicit DropHand(QWidget& window);

  using TakeText = std::function<void(const QString& text)>;
  /// `canTake` is asked while something is dragged over the place.
  void TakeSites(QWidget& place, std::function<bool()> canTake, TakeText take);

  std::function<bool()> CanOpen;
  std::function<void(const std::string& path)> Open;  ///< a path of the file system
  std::function<void(const QString& problem)> Say;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Place {
    std::function<bool()> CanTake;
    TakeText Take;
  };

  [[nodiscard]] const Place* PlaceOf(const QObject* watched) const;
  bool Drop(const QMimeData& dropped, const Place* place);
  [[nodiscard]] std::optional<QString> TextOf(const QMimeData& dropped) const;

  std::map<const QObject*, Place> places_;
};

}  // namespace requite
