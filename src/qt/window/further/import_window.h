// SPDX-License-Identifier: MIT
// The import of Linking Sites and of Main Sites, on screen.
#pragma once

#include "qt/window/further/further_window.h"
#include "shell/imports/form4.h"

class QComboBox;
class QGridLayout;
class QLineEdit;

namespace requite {

class ImportView final : public FurtherWindow {
 public:
  ImportView(Form4& form, const WindowSurroundings& surroundings);

 private:
  QWidget* BuildGetLinks();
  void BuildSources(QGridLayout& layout, QWidget* box);
  QWidget* BuildFile();
  QWidget* BuildPostLinks();
  QLineEdit* NewLine(TextBox& control, const QString& accessibleName);
  QComboBox* NewCombo(ComboBox& control, const QString& accessibleName);

  Form4& form_;
};

}  // namespace requite
