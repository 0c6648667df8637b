// SPDX-License-Identifier: MIT
// What each kind of widget shows of its control, and which events it passes on.
#include "qt/window/controls/control_views.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTabBar>
#include <utility>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/controls/steady_place.h"

namespace requite {
namespace {

/// Lets only the left button and the keyboard change tabs.
class TabHand : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Wheel: return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        return static_cast<const QMouseEvent*>(event)->button() != Qt::LeftButton;
      default: return false;
    }
  }
};

}  // namespace

class Binder::View : public ControlView, public RefreshedView {
 public:
  View(ViewRefresh& refresh, Control& control, QWidget& widget, std::function<void()> show)
      : RefreshedView(refresh), control_(control), widget_(widget), show_(std::move(show)) {
    control_.SetView(this);
  }
  ~View() override { control_.SetView(nullptr); }

  void Refresh(const Control&) override { Mark(); }
  void TakeFocus() override { widget_.setFocus(Qt::OtherFocusReason); }
  void MoveCursorToEnd() override {
    cursorToEnd_ = true;
    Mark();
  }
  void Apply() override {
    // A frame around the widget has a state of its own; the widget's own state comes from the control alone.
    if (widget_.isEnabledTo(widget_.parentWidget()) != control_.Enabled())
      widget_.setEnabled(control_.Enabled());
    if (widget_.isHidden() == control_.Visible()) widget_.setVisible(control_.Visible());
    if (show_) show_();
    auto* const text = qobject_cast<QPlainTextEdit*>(&widget_);
    if (std::exchange(cursorToEnd_, false) && text != nullptr) text->moveCursor(QTextCursor::End);
  }

 private:
  Control& control_;
  QWidget& widget_;
  std::function<void()> show_;
  bool cursorToEnd_ = false;
};

Binder::Binder(ViewRefresh& refresh, const UserEvents& user) : refresh_(refresh), user_(user) {}

Binder::~Binder() = default;

void Binder::Keep(Control& control, QWidget& widget, std::function<void()> show) {
  widget.setObjectName(QString::fromStdString(control.Name()));
  if (!control.ToolTip.empty()) widget.setToolTip(ToUnicode(control.ToolTip));
  views_.push_back(std::make_unique<View>(refresh_, control, widget, std::move(show)));
  views_.back()->Apply();
}

void Binder::BindState(Control& control, QWidget& widget) { Keep(control, widget, {}); }

void Binder::Bind(Button& control, QAbstractButton& widget, const QString& mnemonic) {
  Keep(control, widget, [&control, &widget, mnemonic] {
    const QString caption = mnemonic.isEmpty() ? ToUnicode(control.Caption()) : mnemonic;
    if (widget.text() != caption) widget.setText(caption);
  });
  QObject::connect(&widget, &QAbstractButton::clicked, &widget, [this, &control, &widget] {
    // The press may have been waiting when the logic disabled the button.
    if (control.EnabledInEffect()) user_.Run([&control] { control.Click(); });
    // A menu opens under the mouse, which may be elsewhere when a key pressed the button.
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup != nullptr && !widget.underMouse()) popup->move(widget.mapToGlobal(widget.rect().bottomLeft()));
  });
}

void Binder::BindLabel(TextBox& control, QLabel& widget) {
  widget.setTextFormat(Qt::PlainText);
  Keep(control, widget, [&control, &widget] {
    const QString text = ToUnicode(control.Text());
    if (widget.text() != text) widget.setText(text);
  });
}

void Binder::BindLine(TextBox& control, QLabel& widget) {
  widget.setTextFormat(Qt::PlainText);
  widget.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Keep(control, widget, [&control, &widget] {
    const QString text = OneLine(control.Text());
    if (widget.text() == text) return;
    widget.setText(text);
    widget.setToolTip(ToolTipText(control.Text()));
  });
}

void Binder::Bind(CheckBox& control, QCheckBox& widget) {
  widget.setText(ToUnicode(control.Caption));
  Keep(control, widget, [&control, &widget] { widget.setChecked(control.Value() == 1); });
  QObject::connect(&widget, &QCheckBox::clicked, &widget,
                   [this, &control] { user_.Run([&control] { control.Click(); }); });
}

void Binder::Bind(OptionGroup& control, const std::vector<QAbstractButton*>& widgets) {
  for (std::size_t i = 0; i < widgets.size(); ++i) {
    const int index = static_cast<int>(i);
    widgets[i]->setText(ToUnicode(control.Captions[i]));
    QObject::connect(widgets[i], &QAbstractButton::clicked, widgets[i],
                     [this, &control, index] { user_.Run([&] { control.Choose(index); }); });
  }
  Keep(control, *widgets.front(), [&control, widgets] {
    if (control.Chosen() >= 0) widgets[static_cast<std::size_t>(control.Chosen())]->setChecked(true);
  });
  for (std::size_t i = 0; i < widgets.size(); ++i) {
    widgets[i]->setObjectName(QString::fromStdString(control.Name()) + QString("(%1)").arg(i));
  }
}

void Binder::Bind(ProgressBar& control, QProgressBar& widget) {
  widget.setRange(0, 100);
  Keep(control, widget, [&control, &widget] {
    if (widget.value() == control.Value()) return;
    // Otherwise the bar paints itself at once, apart from the rest of the refresh.
    widget.setUpdatesEnabled(false);
    widget.setValue(control.Value());
    widget.setUpdatesEnabled(true);
  });
}

void Binder::Bind(StatusBar& control, QStatusBar& widget) {
  std::vector<QLabel*> panels;
  for (int i = 0; i < StatusBar::kPanels; ++i) {
    auto* const panel = new QLabel(&widget);
    panel->setTextFormat(Qt::PlainText);
    panel->setObjectName(QString::fromStdString(control.Name()) + QString("(%1)").arg(i + 1));
    panel->setSizePolicy(QSizePolicy::Ignored,
                         QSizePolicy::Preferred);  // long URLs must not widen the window
    auto* const place = new SteadyPlace(panel, &widget);
    place->setMinimumWidth(60);
    widget.addWidget(place, i == 0 || i == 2 ? 4 : 2);
    panels.push_back(panel);
  }
  Keep(control, widget, [&control, panels] {
    for (int i = 0; i < StatusBar::kPanels; ++i) {
      QLabel& panel = *panels[static_cast<std::size_t>(i)];
      const QString text = OneLine(control.Panel(i + 1));
      if (panel.text() != text) panel.setText(text);
    }
  });
}

void Binder::Bind(TabStrip& control, QTabBar& widget, const std::vector<QString>& mnemonics,
                  std::function<void(int number)> onShown) {
  for (std::size_t i = 0; i < control.Tabs.size(); ++i) {
    const TabStrip::Tab& tab = control.Tabs[i];
    const int index = widget.addTab(i < mnemonics.size() ? mnemonics[i] : ToUnicode(tab.Caption));
    widget.setTabToolTip(index, ToUnicode(tab.ToolTip));
  }
  Keep(control, widget, [&control, &widget, onShown = std::move(onShown)] {
    const QSignalBlocker quiet(widget);
    widget.setCurrentIndex(control.Selected() - 1);
    onShown(control.Selected());
  });
  widget.installEventFilter(new TabHand(&widget));
  // A press on the current tab counts too: each visit to Pages adds to its list.
  QObject::connect(&widget, &QTabBar::tabBarClicked, &widget, [this, &control](int index) {
    if (index >= 0) user_.Run([&] { control.Select(index + 1); });
  });
  QObject::connect(&widget, &QTabBar::currentChanged, &widget, [this, &control](int index) {
    if (index + 1 != control.Selected()) user_.Run([&] { control.Select(index + 1); });
  });
}

void Binder::Bind(Menu& control, QMenu& widget, const std::vector<QString>& texts) {
  widget.setObjectName(QString::fromStdString(control.Name()));
  for (std::size_t i = 0; i < control.Items.size(); ++i) {
    if (control.Items[i] == "-") {
      widget.addSeparator();
      continue;
    }
    const QString text = i < texts.size() ? texts[i] : ToUnicode(control.Items[i]);
    QAction* const action = widget.addAction(text.section('\t', 0, 0));
    action->setShortcut(QKeySequence::fromString(text.section('\t', 1)));
    const int index = static_cast<int>(i);
    QObject::connect(action, &QAction::triggered, &widget,
                     [this, &control, index] { user_.Run([&] { control.Click(index); }); });
    QObject::connect(&widget, &QMenu::aboutToShow, action, [action, &control, index] {
      action->setCheckable(control.Checked(index));
      action->setChecked(control.Checked(index));
    });
  }
  control.OnPopUp = [&widget] { widget.popup(QCursor::pos()); };
}

}  // namespace requite
