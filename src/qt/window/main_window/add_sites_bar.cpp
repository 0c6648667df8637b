// SPDX-License-Identifier: MIT
// Words the question, and types the sites into their box one after the other.
#include "qt/window/main_window/add_sites_bar.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"

namespace requite {
namespace {

constexpr std::size_t kMostMainSites = 1000;  // each one has a list of its own
constexpr std::size_t kMostLinkingSites = 20'000;
constexpr qsizetype kMostNamed = 12;  // in the tool tip

}  // namespace

struct AddSitesBar::Target {
  TextBox& Entry;
  Button& Command;
  ListView* List;
  std::size_t Most;
};

AddSitesBar::AddSitesBar(Form1& form, const UserEvents& user, Say say, QWidget* parent)
    : NoticeBar("addSites", tr("Cancel"), tr("Add none of these sites"), parent),
      form_(form),
      user_(user),
      say_(std::move(say)),
      add_(&NoticeBar::Offer("addSitesAll", {}, [this] { Add(true); })),
      addNew_(&NoticeBar::Offer("addSitesNew", {}, [this] { Add(false); })) {
  NoticeBar::Offer("addSitesShow", tr("Show..."), [this] { ShowDetails(); });
}

AddSitesBar::Target AddSitesBar::TargetOf(Kind kind) const {
  if (kind == Kind::MainSites) return {form_.txtDomain, form_.cmdAdd2, &form_.Sites.List4, kMostMainSites};
  const int k = form_.Sites.CurrentMainSite;
  const bool exists = k >= 1 && k <= form_.Sites.ListCount();
  return {form_.Text1, form_.cmdAdd, exists ? &form_.Sites.List1(k) : nullptr, kMostLinkingSites};
}

bool AddSitesBar::CanAdd(Kind kind) const {
  const Target target = TargetOf(kind);
  return target.List != nullptr && target.Entry.EnabledInEffect() && target.Entry.VisibleInEffect();
}

std::string AddSitesBar::ListName() const {
  if (kind_ == Kind::MainSites) return form_.Files.OpenPath();
  const int k = form_.Sites.CurrentMainSite;
  const bool exists = k >= 1 && k <= static_cast<int>(form_.Sites.List4.RowCount());
  return std::to_string(k) + ' ' + (exists ? form_.Sites.List4.At(static_cast<std::size_t>(k) - 1).Text : "");
}

void AddSitesBar::Offer(Kind kind, const QString& text) {
  if (!CanAdd(kind)) return;
  const Target target = TargetOf(kind);
  if (target.List == nullptr) return;
  kind_ = kind;
  lines_ = ReadSiteLines(text, *target.List, kind == Kind::LinkingSites, target.Most);
  listName_ = ListName();
  hide();
  if (lines_.TooMany)
    return say_(tr("That is too much text at once. At most %L1 sites can be added this way; Import reads "
                   "longer files.")
                    .arg(target.Most));
  if (lines_.Sites.empty())
    return say_(lines_.LeftOut.isEmpty() ? tr("There is no site in this text.")
                                         : tr("There is no site in this text: %1").arg(lines_.LeftOut[0]));
  const std::size_t known = lines_.Known();
  add_->setText(known == 0 ? tr("Add") : tr("Add all %L1").arg(lines_.Sites.size()));
  addNew_->setText(tr("Add the %L1 new").arg(lines_.Sites.size() - known));
  addNew_->setVisible(known > 0 && known < lines_.Sites.size());
  NoticeBar::Say(Question(), Details());
}

QString AddSitesBar::Question() const {
  const std::size_t count = lines_.Sites.size();
  const QString what = count == 1                 ? OneLine(lines_.Sites[0])
                       : kind_ == Kind::MainSites ? tr("%L1 Main Sites").arg(count)
                                                  : tr("%L1 Linking Sites").arg(count);
  QString question = tr("Add %1?").arg(what);
  const std::size_t known = lines_.Known();
  if (known == 1) question += tr(" 1 is in the list already.");
  if (known > 1) question += tr(" %L1 are in the list already.").arg(known);
  const qsizetype leftOut = lines_.LeftOut.size();
  if (leftOut == 1) question += tr(" 1 line is left out.");
  if (leftOut > 1) question += tr(" %L1 lines are left out.").arg(leftOut);
  return question;
}

/// What is special comes first; the rest is what the user expects.
QString AddSitesBar::Details() const {
  QStringList known{tr("In the list already, or twice in the text:")};
  for (std::size_t i = 0; i < lines_.Sites.size() && known.size() <= kMostNamed; ++i) {
    if (lines_.IsKnown[i]) known << "  " + OneLine(lines_.Sites[i]);
  }
  QStringList details;
  if (known.size() > 1) details << known;
  if (static_cast<qsizetype>(lines_.Known()) > kMostNamed) details << "  ...";
  if (!lines_.LeftOut.isEmpty()) details << tr("Left out:");
  for (const QString& each : lines_.LeftOut.mid(0, kMostNamed)) details << "  " + each.simplified();
  if (lines_.LeftOut.size() > kMostNamed) details << "  ...";
  return details.join('\n');
}

void AddSitesBar::ShowDetails() {
  QDialog window(this);
  window.setObjectName("addSitesDetails");
  window.setWindowTitle(tr("Sites to Add"));
  auto* const text = new QPlainTextEdit(&window);
  QStringList lines;
  for (std::size_t i = 0; i < lines_.Sites.size(); ++i)
    lines << OneLine(lines_.Sites[i]) +
                 (lines_.IsKnown[i] ? tr(" - in the list already, or twice") : QString());
  if (!lines_.LeftOut.isEmpty()) lines << QString() << tr("Left out:") << lines_.LeftOut;
  text->setPlainText(lines.join('\n'));
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setAccessibleName(window.windowTitle());
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &window);
  connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
  auto* const layout = new QVBoxLayout(&window);
  layout->addWidget(text);
  layout->addWidget(buttons);
  window.resize(480, 360);
  window.exec();
}

void AddSitesBar::Add(bool known) {
  hide();
  if (!CanAdd(kind_) || listName_ != ListName()) return;
  const SiteLines lines = std::exchange(lines_, {});
  const Target target = TargetOf(kind_);
  const std::size_t before = target.List->RowCount();
  user_.Run([&] {
    const std::string typed = target.Entry.Text();
    for (std::size_t i = 0; i < lines.Sites.size(); ++i) {
      if (lines.IsKnown[i] && !known) continue;
      target.Entry.UserSets(lines.Sites[i]);
      if (target.Command.EnabledInEffect()) target.Command.Click();
    }
    if (!typed.empty()) target.Entry.UserSets(typed);
  });
  const std::size_t added = target.List->RowCount() - before;
  QString answer = added == 1 ? tr("1 site added") : tr("%L1 sites added").arg(added);
  if (known && lines.Known() > 0)
    answer += lines.Known() == 1 ? tr("; 1 was in the list already")
                                 : tr("; %L1 of them were in the list already").arg(lines.Known());
  say_(answer + ".");
}

void AddSitesBar::Follow() {
  if (!isHidden() && (!CanAdd(kind_) || listName_ != ListName())) hide();
}

}  // namespace requite
