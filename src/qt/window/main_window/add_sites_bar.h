// SPDX-License-Identifier: MIT
// The bar that asks before many sites are added at once.
#pragma once

#include <functional>

#include "qt/window/controls/notice_bar.h"
#include "qt/window/controls/user_events.h"
#include "qt/window/main_window/site_lines.h"
#include "shell/main_window/form1.h"

namespace requite {

/// Each site is added as if it was typed and the list's Add was pressed. What cannot be added that
/// way is listed before.
class AddSitesBar : public NoticeBar {
  Q_OBJECT

 public:
  enum class Kind { MainSites, LinkingSites };
  using Say = std::function<void(const QString& answer)>;

  /// All must outlive the bar; `say` shows an answer to what the user did.
  AddSitesBar(Form1& form, const UserEvents& user, Say say, QWidget* parent);

  /// Asks whether to add the sites of a text that the user pasted or dropped, if it holds any.
  void Offer(Kind kind, const QString& text);
  /// Sites can be added by hand now.
  [[nodiscard]] bool CanAdd(Kind kind) const;
  /// Hides the bar once the list that it asks about is another one.
  void Follow();

 private:
  struct Target;

  [[nodiscard]] Target TargetOf(Kind kind) const;
  [[nodiscard]] std::string ListName() const;
  [[nodiscard]] QString Question() const;
  [[nodiscard]] QString Details() const;
  void Add(bool known);
  void ShowDetails();

  Form1& form_;
  const UserEvents& user_;
  Say say_;
  QPushButton* add_;
  QPushButton* addNew_;
  Kind kind_ = Kind::LinkingSites;
  SiteLines lines_;
  std::string listName_;  ///< identifies the list that the bar asks about
};

}  // namespace requite
