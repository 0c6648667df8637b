// SPDX-License-Identifier: MIT
// Says which sites need secure connections, and turns these on when the user asks for it.
#include "qt/window/main_window/https_only_bar.h"

#include <QPushButton>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"

namespace requite {

HttpsOnlyBar::HttpsOnlyBar(Form1& form, const UserEvents& user, QWidget* parent)
    : NoticeBar("httpsOnly", tr("Not now"), tr("Hide this notice until the next scan"), parent), form_(form) {
  QPushButton& turnOn = NoticeBar::Offer("httpsOnlyTurnOn", tr("T&urn on and scan again"), [this, &user] {
    user.Run([this] { form_.TurnOnSecureAndScanAgain(); });
  });
  turnOn.setToolTip(tr("Turn on secure connections and scan again"));
}

void HttpsOnlyBar::Offer() { Say(OneLine(form_.HttpsOnly.Words()), ToUnicode(form_.HttpsOnly.Names())); }

void HttpsOnlyBar::Follow() {
  if (form_.HttpsOnly.Empty() || form_.Sites.List3.Empty()) hide();
}

}  // namespace requite
