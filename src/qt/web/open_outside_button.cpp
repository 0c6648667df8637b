// SPDX-License-Identifier: MIT
// Follows the text of the line, so that it is never offered for a local page.
#include "qt/web/open_outside_button.h"

#include <QLineEdit>
#include <QStyle>

#include "qt/services/code_page.h"
#include "qt/web/page_address.h"

namespace requite {

OpenOutsideButton::OpenOutsideButton(const QLineEdit& line, Shell& shell, const EventGuard& guard,
                                     QWidget* parent)
    : QToolButton(parent) {
  setObjectName("openOutside");
  setIcon(QIcon::fromTheme("internet-web-browser", style()->standardIcon(QStyle::SP_DriveNetIcon)));
  setToolTip(tr("Open this page in your own browser"));
  setAccessibleName(toolTip());
  setFocusPolicy(Qt::TabFocus);
  const auto remote = [&line] {
    const auto url = UrlOfAddress(FromUnicode(line.text()));
    return url && IsRemote(*url) ? *url : QUrl();
  };
  connect(&line, &QLineEdit::textChanged, this, [this, remote] { setEnabled(!remote().isEmpty()); });
  connect(this, &QToolButton::clicked, this, [remote, &shell, &guard] {
    guard.Run([&] {
      if (const QUrl url = remote(); !url.isEmpty()) shell.OpenUrlOutside(AddressOfUrl(url));
    });
  });
  setEnabled(!remote().isEmpty());
}

}  // namespace requite
