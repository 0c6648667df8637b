// SPDX-License-Identifier: MIT
// The boxes of the script URLs. What the buttons do is told in posting/.
#include "shell/main_window/post.h"

#include "shell/main_window/form1.h"

namespace requite {

PostControls::PostControls(ControlIndex& index, const Frame& around, Project& project)
    : Place(index, &around, false) {
  Take(project.txtPost, {.In = &framePost});
  Take(project.lstMulti, {.In = &framePost});
}

void PostControls::Wire(Form1& form) { form.Post.Wire(); }

void PostControls::OnShown(const Project& project) {
  cmbSites.ClearItems();
  AddMainSites(project, cmbSites);
}

}  // namespace requite
