// SPDX-License-Identifier: MIT
// The ways to enter more than one site: text pasted into the entry boxes, and what is dropped on the window.
#include <QTableView>
#include <QVBoxLayout>

#include "qt/window/controls/entry_line.h"
#include "qt/window/main_window/drop_hand.h"
#include "qt/window/main_window/main_window.h"

namespace requite {

void MainWindow::TakeManySites() {
  const auto say = [this](const QString& answer) { answers_->Say(answer); };
  addSites_ = new AddSitesBar(form_, user_, say, bars_->parentWidget());
  bars_->addWidget(addSites_);
  auto* const drops = new DropHand(*this);
  drops->Say = say;
  drops->CanOpen = [this] { return form_.cmdOpen.EnabledInEffect(); };
  drops->Open = [this](const std::string& path) { user_.Run([&] { form_.Files.LoadProject(path); }); };
  struct Where {
    AddSitesBar::Kind Kind;
    const char* Entry;
    const char* List;
  };
  for (const Where& where : {Where{AddSitesBar::Kind::MainSites, "txtDomain", "List4"},
                             Where{AddSitesBar::Kind::LinkingSites, "Text1", "List1"}}) {
    const AddSitesBar::Kind kind = where.Kind;
    const auto offer = [this, kind](const QString& text) { addSites_->Offer(kind, text); };
    const auto canAdd = [this, kind] { return addSites_->CanAdd(kind); };
    auto* const entry = findChild<EntryLine*>(where.Entry);
    entry->OnLines = offer;
    drops->TakeSites(*entry, canAdd, offer);
    drops->TakeSites(*findChild<QTableView*>(where.List)->viewport(), canAdd, offer);
  }
}

}  // namespace requite
