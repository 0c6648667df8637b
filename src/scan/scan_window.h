// SPDX-License-Identifier: MIT
// The controls of the main window that a scan shows itself in and switches.
#pragma once

#include "platform/controls.h"

namespace requite {

struct ScanWindow {
  Button& Command1;  ///< Start Scan
  Button& cmdStop;
  Button& cmdSkip;
  Button& cmdNextSearch;
  Button& Command10;  ///< scan type menu
  Button& Command11;  ///< skip type menu
  Button& cmdNew;
  Button& cmdOpen;
  Button& cmdSave;
  Button& cmdResume;
  Button& cmdViewDatabase;
  Button& Command2;
  Button& Command3;
  Frame& Frame1;
  Menu& mnuScan;
  Menu& mnuSkip;
  StatusBar& StatusBar1;
  ProgressBar& pb1;
  TextBox& txtDomain;
  TextBox& Text1;
};

}  // namespace requite
