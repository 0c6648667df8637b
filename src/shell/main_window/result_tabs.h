// SPDX-License-Identifier: MIT
// "Link Results": the tab strip, whose pages are the places of links, web, pages, reports and post.
#pragma once

#include "model/project.h"
#include "shell/main_window/place.h"

namespace requite {

/// The tabs of TabStrip1, by number.
enum class ResultTab { Links = 1, Web = 2, Pages = 3, Reports = 4, Post = 5 };

struct ResultTabsControls : Place {
  explicit ResultTabsControls(ControlIndex& index) : Place(index) {}
  void Wire(Form1& form);

  Placed<Frame> Frame2{*this, {}, "Frame2", "Link Results"};
  Placed<TabStrip> TabStrip1{*this,
                             {.Tip = "Double Click to view link", .In = &Frame2},
                             "TabStrip1",
                             std::vector<TabStrip::Tab>{{"Links", "View Link Results"},
                                                        {"Web", "Visit Linking Sites"},
                                                        {"Pages", "Create link pages based on results"},
                                                        {"Reports", "View Reports"},
                                                        {"Post", "Post links to a database"}}};
};

/// Adds every Main Site to a box.
void AddMainSites(const Project& project, ComboBox& box);

}  // namespace requite
