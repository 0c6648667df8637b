// SPDX-License-Identifier: MIT
// Lays out the line and keeps its counts.
#include "qt/window/main_window/result_filter.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QToolButton>
#include <array>

#include "qt/window/look/glyphs.h"
#include "shell/main_window/form1.h"

namespace requite {
namespace {

/// One button: the sites of one outcome, or all.
struct Kind {
  const char* Name;
  const char* Caption;
  const char* Tip;
  const char* About;  ///< ends "No row among the "
  std::optional<SiteOutcome> Outcome;
  std::int32_t SiteCounts::*Count;
};

constexpr std::array kKinds{
    Kind{"showAll", QT_TRANSLATE_NOOP("ResultFilter", "All"),
         QT_TRANSLATE_NOOP("ResultFilter", "Show the results of all sites"), "", std::nullopt,
         &SiteCounts::Sites},
    Kind{"showLinking", QT_TRANSLATE_NOOP("ResultFilter", "Linking"),
         QT_TRANSLATE_NOOP("ResultFilter", "Show the sites that link back as often as expected"),
         QT_TRANSLATE_NOOP("ResultFilter", "sites that link back"), SiteOutcome::LinksBack,
         &SiteCounts::LinkBack},
    Kind{"showMissing", QT_TRANSLATE_NOOP("ResultFilter", "Missing"),
         QT_TRANSLATE_NOOP("ResultFilter", "Show the sites that do not link back, or not often enough"),
         QT_TRANSLATE_NOOP("ResultFilter", "sites that do not link back"), SiteOutcome::Missing,
         &SiteCounts::Missing},
    Kind{"showNotReached", QT_TRANSLATE_NOOP("ResultFilter", "Not reached"),
         QT_TRANSLATE_NOOP("ResultFilter", "Show the sites that did not answer, or were skipped"),
         QT_TRANSLATE_NOOP("ResultFilter", "sites that were not reached"), SiteOutcome::NotReached,
         &SiteCounts::NotReached}};

constexpr int kDarker = 150;  // percent

}  // namespace

ResultFilter::ResultFilter(Form1& form, ListTable& table, QWidget& view, QWidget* parent)
    : QWidget(parent),
      form_(form),
      table_(table),
      outcomes_(form),
      box_(new FilterBox("resultFilter", tr("Filter the results"), table, view, this)),
      kinds_(new QButtonGroup(this)) {
  setObjectName("resultFilterLine");
  table_.AlsoTell(&outcomes_);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(box_, 1);
  auto* const segments = new QHBoxLayout;
  segments->setSpacing(0);
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    auto* const button = new QToolButton(this);
    button->setObjectName(kKinds[i].Name);
    button->setCheckable(true);
    button->setChecked(i == 0);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(tr(kKinds[i].Tip));
    kinds_->addButton(button, static_cast<int>(i));
    segments->addWidget(button);
  }
  layout->addLayout(segments);
  setTabOrder(kinds_->buttons().back(), &view);
  connect(kinds_, &QButtonGroup::idToggled, this, [this](int, bool on) {
    if (on) Choose();
  });
  MarkChosen();
  Follow();
}

void ResultFilter::ShowOnly(std::optional<SiteOutcome> outcome) {
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (kKinds[i].Outcome == outcome) kinds_->button(static_cast<int>(i))->setChecked(true);
  }
}

/// On dark windows a pressed button alone looks like the others.
void ResultFilter::MarkChosen() {
  for (QAbstractButton* each : kinds_->buttons()) {
    QPalette colours;
    if (each->isChecked()) {
      // Styles draw a button lighter than its colour, and white letters must stay readable on it.
      const QColor highlight = palette().color(QPalette::Active, QPalette::Highlight);
      colours.setColor(QPalette::Button, highlight.darker(kDarker));
      colours.setColor(QPalette::ButtonText, palette().color(QPalette::Active, QPalette::HighlightedText));
    }
    each->setPalette(colours);
  }
}

void ResultFilter::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) MarkChosen();
  QWidget::changeEvent(event);
}

void ResultFilter::Choose() {
  MarkChosen();
  const Kind& kind = kKinds[static_cast<std::size_t>(kinds_->checkedId())];
  if (!kind.Outcome) return box_->SetCondition(nullptr, {});
  seen_ = outcomes_.Version();
  box_->SetCondition([this, wanted = *kind.Outcome](std::size_t row) { return outcomes_.Of(row) == wanted; },
                     tr(kind.About));
}

void ResultFilter::Follow() {
  setVisible(!form_.Sites.List3.Empty());
  const SiteCounts& counts = outcomes_.Counts();
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    const QString text = tr("%1 %2").arg(tr(kKinds[i].Caption)).arg(counts.*kKinds[i].Count);
    QAbstractButton& button = *kinds_->button(static_cast<int>(i));
    if (button.text() != text) button.setText(text);
  }
  if (kinds_->checkedId() > 0 && seen_ != outcomes_.Version()) {
    seen_ = outcomes_.Version();
    table_.FilterAgain();
  }
}

}  // namespace requite
