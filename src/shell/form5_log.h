// SPDX-License-Identifier: MIT
// The log of a posting, in the window that shows it.
#pragma once

#include "posting/posting.h"
#include "shell/small_windows.h"
#include "shell/windows.h"

namespace requite {

/// Form5 as posting writes into it, opened by its name at each use: the user may have closed it meanwhile.
class Form5Log : public PostLog {
 public:
  explicit Form5Log(Windows& windows) : windows_(windows) {}

  void ShowForm5() override { windows_.Show("Form5"); }
  TextBox& Text4() override { return static_cast<Form5&>(windows_.Load("Form5")).Text4; }

 private:
  Windows& windows_;
};

}  // namespace requite
