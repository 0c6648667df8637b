// SPDX-License-Identifier: MIT
// Writes the posting log into its window.
#pragma once

#include "posting/posting.h"
#include "shell/small_windows.h"
#include "shell/windows.h"

namespace requite {

/// Form5 as posting writes to it. Each use looks it up, because the user may have closed it.
class Form5Log : public PostLog {
 public:
  explicit Form5Log(Windows& windows) : windows_(windows) {}

  void ShowForm5() override { windows_.Show("Form5"); }
  TextBox& Text4() override { return Log().Text4; }
  void Posted(bool answered) override { Log().Count(answered); }

 private:
  Form5& Log() { return static_cast<Form5&>(windows_.Load("Form5")); }

  Windows& windows_;
};

}  // namespace requite
