// SPDX-License-Identifier: MIT
// Plain control objects: what the logic sets and what the user does, without any toolkit.
#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

class Control;

/// A widget (or a tracer) that shows a control. It re-reads the control and touches the screen only
/// where that differs, so it may be told more often than needed.
class ControlView {
 public:
  virtual ~ControlView() = default;
  virtual void Refresh(const Control& control) = 0;
  /// The logic put the focus on the control.
  virtual void TakeFocus() {}
  /// The logic put a text box's cursor after its text.
  virtual void MoveCursorToEnd() {}
};

/// A named control with its enabled and visible state. Controls are never copied: views point at them.
class Control {
 public:
  explicit Control(std::string name) : name_(std::move(name)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);

  /// The frame around the control; a control in a disabled or hidden frame is so in effect.
  void SetFrame(const Control* frame) { frame_ = frame; }
  [[nodiscard]] bool EnabledInEffect() const;
  [[nodiscard]] bool VisibleInEffect() const;

  void SetView(ControlView* view) { view_ = view; }
  void SetFocus();

  std::string ToolTip;

 protected:
  void Changed() {
    if (view_ != nullptr) view_->Refresh(*this);
  }
  [[nodiscard]] ControlView* View() const { return view_; }

 private:
  std::string name_;
  const Control* frame_ = nullptr;
  ControlView* view_ = nullptr;
  bool enabled_ = true;
  bool visible_ = true;
};

/// A frame: only its state and caption matter.
class Frame : public Control {
 public:
  explicit Frame(std::string name, std::string caption = {})
      : Control(std::move(name)), Caption(std::move(caption)) {}
  std::string Caption;
};

void PutInto(const Frame& frame, std::initializer_list<Control*> controls);

class Button : public Control {
 public:
  Button(std::string name, std::string caption) : Control(std::move(name)), caption_(std::move(caption)) {}

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  /// Runs the action, for a press by the user or a call from elsewhere. Does not look at the enabled state.
  void Click();
  std::function<void()> OnClick;

 private:
  std::string caption_;
};

/// A text box or a label. What the program sets runs the change handler like what the user types,
/// unless the box was built with ProgramChange::Silent.
class TextBox : public Control {
 public:
  enum class ProgramChange { RunsHandler, Silent };

  explicit TextBox(std::string name, std::string text = {},
                   ProgramChange programChange = ProgramChange::RunsHandler)
      : Control(std::move(name)), text_(std::move(text)), programChange_(programChange) {}

  [[nodiscard]] const std::string& Text() const { return text_; }
  /// The program sets the text; setting the same text again is no change.
  void SetText(std::string text);
  /// The program adds to the end; the time does not depend on how long the text already is.
  void Append(std::string_view text);
  /// Puts the cursor after the text, where a view shows one.
  void MoveCursorToEnd();
  /// The user makes this the whole text, in one change.
  void UserSets(std::string text);
  /// The user types at the end of the text, one change a character.
  void UserTypes(std::string_view characters);
  void UserPressesEnter();

  std::function<void()> OnChange;
  std::function<void()> OnEnter;

 private:
  std::string text_;
  ProgramChange programChange_;
};

/// A check box: 0, 1, or 2 for grey.
class CheckBox : public Control {
 public:
  CheckBox(std::string name, std::string caption) : Control(std::move(name)), Caption(std::move(caption)) {}

  [[nodiscard]] int Value() const { return value_; }
  /// The program sets the value; a change runs the click action.
  void SetValue(int value);
  void Click();

  const std::string Caption;
  std::function<void()> OnClick;

 private:
  int value_ = 0;
};

/// A control array of option buttons, of which at most one is chosen.
class OptionGroup : public Control {
 public:
  /// `chosen` is the option chosen at the start; its action has not run.
  OptionGroup(std::string name, std::vector<std::string> captions, int chosen = -1)
      : Control(std::move(name)), Captions(std::move(captions)), chosen_(chosen) {}

  /// The chosen index, or -1.
  [[nodiscard]] int Chosen() const { return chosen_; }
  /// Chooses an option and runs its click action, also when it was chosen already, whether the
  /// program or the user does it. Throws Subscript for an index that does not exist.
  void Choose(int index);

  const std::vector<std::string> Captions;
  std::function<void(int index)> OnClick;

 private:
  int chosen_;
};

/// A combo box: rows, a list index (-1 for none) and a text that may also be typed.
class ComboBox : public Control {
 public:
  explicit ComboBox(std::string name, std::string text = {}, std::vector<std::string> items = {})
      : Control(std::move(name)), text_(std::move(text)), items_(std::move(items)) {}

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  [[nodiscard]] const std::vector<std::string>& Items() const { return items_; }

  void AddItem(std::string item);
  /// Empties the rows and the text.
  void Clear();
  /// Empties the rows and keeps the text.
  void ClearItems();
  void SetText(std::string text);
  /// Picks a row (-1: none) and runs the click action; the program and the user do it alike.
  /// Throws InvalidProperty for a row that does not exist.
  void SetListIndex(int index);
  void UserSets(std::string text);
  void UserPressesEnter();

  std::function<void()> OnClick;
  std::function<void()> OnChange;
  std::function<void()> OnEnter;

 private:
  std::string text_;
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

/// The panels of a status bar, from left to right. Other uses than these share them.
enum class StatusPanel {
  Activity = 1,  ///< the Main Site or the download that is being worked on
  Page = 2,      ///< the page's number, or what is being done with it
  Site = 3,      ///< the Linking Site, or what was found there
  Wait = 4,      ///< the seconds without an answer
};

/// The bottom edge's four panels, numbered from 1.
class StatusBar : public Control {
 public:
  static constexpr int kPanels = 4;
  using Control::Control;

  /// The text of a panel, by number as scripts name it. Throws Subscript outside 1 to kPanels.
  [[nodiscard]] const std::string& Panel(int number) const;
  void SetPanel(StatusPanel panel, std::string text);

 private:
  std::array<std::string, kPanels> panels_;
};

/// A progress bar from 0 to 100.
class ProgressBar : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int Value() const { return value_; }
  /// Throws InvalidProperty outside 0 to 100.
  void SetValue(double value);

 private:
  int value_ = 0;
};

/// The browser that a browser view shows.
class BrowserEngine {
 public:
  virtual ~BrowserEngine() = default;
  virtual void Navigate(const std::string& url) = 0;
  virtual void Stop() = 0;
  virtual void Refresh() = 0;
  /// Throw InvalidArgument at the end of the history.
  virtual void GoBack() = 0;
  virtual void GoForward() = 0;
};

/// An embedded browser view; without an engine, it only remembers which page was asked for last.
class BrowserView : public Control {
 public:
  using Control::Control;

  void Navigate(const std::string& url);
  void Stop();
  void Refresh();
  void GoBack();
  void GoForward();
  /// The engine tells that a page is complete, at its location.
  void DocumentComplete(std::string locationUrl);

  /// An engine may be set late: what was asked for before is in AskedFor.
  void SetEngine(BrowserEngine* engine) { engine_ = engine; }
  [[nodiscard]] const std::string& AskedFor() const { return askedFor_; }
  [[nodiscard]] const std::string& LocationUrl() const { return locationUrl_; }

  bool Silent = false;
  std::function<void()> OnDocumentComplete;
  /// Called for each navigation, whoever asked for it.
  std::function<void(const std::string& url)> OnNavigate;

 private:
  BrowserEngine* engine_ = nullptr;
  std::string askedFor_;
  std::string locationUrl_;
};

/// A tab strip, tabs numbered from 1.
class TabStrip : public Control {
 public:
  struct Tab {
    std::string Caption;
    std::string ToolTip;
  };

  TabStrip(std::string name, std::vector<Tab> tabs) : Control(std::move(name)), Tabs(std::move(tabs)) {}

  [[nodiscard]] int Selected() const { return selected_; }
  /// Selects a tab and runs its action; a number outside the tabs does nothing.
  void Select(int number);

  const std::vector<Tab> Tabs;
  std::function<void(int number)> OnClick;

 private:
  int selected_ = 1;
};

/// A menu or popup; entries are indexed from 0. A caption of "-" is a separator.
class Menu : public Control {
 public:
  Menu(std::string name, std::string caption, std::vector<std::string> items)
      : Control(std::move(name)),
        Caption(std::move(caption)),
        Items(std::move(items)),
        checked_(Items.size()) {}

  /// These throw Subscript for an entry that does not exist. CheckOnly checks this entry and no other.
  [[nodiscard]] bool Checked(int index) const;
  void CheckOnly(int index);
  /// The first checked entry, or 0 when none is checked.
  [[nodiscard]] int FirstChecked() const;
  void Click(int index);
  /// Asks the view to pop the menu up under the mouse.
  void PopUp();

  const std::string Caption;
  const std::vector<std::string> Items;
  std::function<void(int index)> OnClick;
  std::function<void()> OnPopUp;

 private:
  [[nodiscard]] std::size_t Entry(int index) const;

  std::vector<bool> checked_;
};

/// A window, of which only the title matters.
class Window : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Title() const { return title_; }
  void SetTitle(std::string title);

 private:
  std::string title_;
};

}  // namespace requite
