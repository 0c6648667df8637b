// SPDX-License-Identifier: MIT
// Which changes of a control run its handler is decided here, and nowhere in a toolkit.
#include "platform/controls.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime_failure.h"

namespace requite {

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
}

bool Control::EnabledInEffect() const { return enabled_ && (frame_ == nullptr || frame_->EnabledInEffect()); }

bool Control::VisibleInEffect() const { return visible_ && (frame_ == nullptr || frame_->VisibleInEffect()); }

void Control::SetFocus() {
  if (view_ != nullptr) view_->TakeFocus();
}

void PutInto(const Frame& frame, std::initializer_list<Control*> controls) {
  for (Control* each : controls) each->SetFrame(&frame);
}

void Button::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  Changed();
}

void Button::Click() {
  if (OnClick) OnClick();
}

void TextBox::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  Changed();
  if (programChange_ == ProgramChange::RunsHandler && OnChange) OnChange();
}

void TextBox::Append(std::string_view text) {
  if (text.empty()) return;
  text_ += text;
  Changed();
  if (programChange_ == ProgramChange::RunsHandler && OnChange) OnChange();
}

void TextBox::MoveCursorToEnd() {
  if (View() != nullptr) View()->MoveCursorToEnd();
}

void TextBox::UserSets(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  Changed();
  if (OnChange) OnChange();
}

void TextBox::UserTypes(std::string_view characters) {
  for (const char c : characters) UserSets(text_ + c);
}

void TextBox::UserPressesEnter() {
  if (OnEnter) OnEnter();
}

void CheckBox::SetValue(int value) {
  if (value == value_) return;
  if (value < 0 || value > 2) throw RuntimeFailure(Failure::InvalidProperty);
  value_ = value;
  Changed();
  if (OnClick) OnClick();
}

void CheckBox::Click() { SetValue(value_ == 0 ? 1 : 0); }

void OptionGroup::Choose(int index) {
  if (index < 0 || index >= static_cast<int>(Captions.size())) throw RuntimeFailure(Failure::Subscript);
  chosen_ = index;
  Changed();
  if (OnClick) OnClick(index);
}

void ComboBox::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Changed();
}

void ComboBox::Clear() {
  ClearItems();
  text_.clear();
  Changed();
}

void ComboBox::ClearItems() {
  items_.clear();
  listIndex_ = -1;
  Changed();
}

void ComboBox::SetText(std::string text) {
  text_ = std::move(text);
  Changed();
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    throw RuntimeFailure(Failure::InvalidProperty);
  }
  if (index == -1 && listIndex_ == -1) return;  // nothing was chosen before: the text stays
  listIndex_ = index;
  text_ = index < 0 ? std::string() : items_[static_cast<std::size_t>(index)];
  Changed();
  if (OnClick) OnClick();
}

void ComboBox::UserSets(std::string text) {
  text_ = std::move(text);
  listIndex_ = -1;
  Changed();
  if (OnChange) OnChange();
}

void ComboBox::UserPressesEnter() {
  if (OnEnter) OnEnter();
}

const std::string& StatusBar::Panel(int number) const {
  if (number < 1 || number > kPanels) throw RuntimeFailure(Failure::Subscript);
  return panels_[static_cast<std::size_t>(number) - 1];
}

void StatusBar::SetPanel(StatusPanel panel, std::string text) {
  std::string& shown = panels_[static_cast<std::size_t>(panel) - 1];
  if (shown == text) return;
  shown = std::move(text);
  Changed();
}

void ProgressBar::SetValue(double value) {
  if (!(value >= 0 && value <= 100)) throw RuntimeFailure(Failure::InvalidProperty);
  const int rounded = static_cast<int>(std::nearbyint(value));
  if (rounded == value_) return;
  value_ = rounded;
  Changed();
}

void BrowserView::Navigate(const std::string& url) {
  askedFor_ = url;
  if (OnNavigate) OnNavigate(url);
  if (engine_ != nullptr) engine_->Navigate(url);
}

void BrowserView::Stop() {
  if (engine_ != nullptr) engine_->Stop();
}

void BrowserView::Refresh() {
  if (engine_ != nullptr) engine_->Refresh();
}

void BrowserView::GoBack() {
  if (engine_ != nullptr) engine_->GoBack();
}

void BrowserView::GoForward() {
  if (engine_ != nullptr) engine_->GoForward();
}

void BrowserView::DocumentComplete(std::string locationUrl) {
  locationUrl_ = std::move(locationUrl);
  Changed();
  if (OnDocumentComplete) OnDocumentComplete();
}

void TabStrip::Select(int number) {
  if (number < 1 || number > static_cast<int>(Tabs.size())) return;
  selected_ = number;
  Changed();
  if (OnClick) OnClick(number);
}

std::size_t Menu::Entry(int index) const {
  if (index < 0 || index >= static_cast<int>(Items.size())) throw RuntimeFailure(Failure::Subscript);
  return static_cast<std::size_t>(index);
}

bool Menu::Checked(int index) const { return checked_[Entry(index)]; }

void Menu::CheckOnly(int index) {
  const std::size_t entry = Entry(index);
  checked_.assign(Items.size(), false);
  checked_[entry] = true;
  Changed();
}

int Menu::FirstChecked() const {
  const auto first = std::find(checked_.begin(), checked_.end(), true);
  return first == checked_.end() ? 0 : static_cast<int>(first - checked_.begin());
}

void Menu::Click(int index) {
  if (OnClick) OnClick(index);
}

void Menu::PopUp() {
  if (OnPopUp) OnPopUp();
}

void Window::SetTitle(std::string title) {
  title_ = std::move(title);
  Changed();
}

}  // namespace requite
