// SPDX-License-Identifier: MIT
// The queue and the labels of the figures.
#include "shell/main_window/progress.h"

#include <string>

namespace requite {
namespace {

TextBox StatsLabel(int index) {
  return TextBox("lblStats(" + std::to_string(index) + ")", "0", TextBox::ProgramChange::Silent);
}

}  // namespace

ProgressControls::ProgressControls(ControlIndex& index, ScanLists& lists)
    : Place(index), lblStats{StatsLabel(0), StatsLabel(1), StatsLabel(2), StatsLabel(3),
                             StatsLabel(4), StatsLabel(5), StatsLabel(6)} {
  Take(lists.List2,
       {.Tip = "These webpages are queued about to be scanned for links to your Main Site", .In = &Frame6});
  for (TextBox& label : lblStats) TakeLabel(label, {.In = &Frame6});
}

}  // namespace requite
