// SPDX-License-Identifier: MIT
// Controls that are built and never shown. Each keeps its action; scripts can press them.
#pragma once

#include "model/project.h"
#include "shell/label.h"
#include "shell/main_window/place.h"

namespace requite {

struct HiddenControls : Place {
  HiddenControls(ControlIndex& index, Project& project);
  void Wire(Form1& form);

  // Of the scan
  Placed<Button> cmdDoSearch{
      *this, {.Tip = "Search for valid IP Ranges.", .Visible = false}, "cmdDoSearch", "Start Search"};
  Placed<Button> cmdNextSearch{
      *this,
      {.Tip = "Skip to the next website in your list of sites to check", .Visible = false},
      "cmdNextSearch",
      "Skip"};
  Placed<Button> Command11{*this, {.Visible = false}, "Command11", "V"};
  Placed<Menu> mnuSkipPopup{*this,
                            {.Visible = false, .Entries = "mnuSkipItem"},
                            "mnuSkipPopup",
                            "",
                            Captions{"The current linking site", "The current main site"}};
  Placed<Button> Command12{*this, {.Visible = false}, "Command12", "Command12"};

  // Of the harvesters
  Placed<Button> cmdResume{
      *this, {.Tip = "Resume harvesting emails", .Enabled = false, .Visible = false}, "cmdResume", "Resume"};
  Placed<Button> cmdViewDatabase{*this,
                                 {.Tip = "Spider.mdb stores all the emails you have found", .Visible = false},
                                 "cmdViewDatabase",
                                 "View Database"};
  Placed<Button> Command2{
      *this, {.Tip = "Export all the emails you have found", .Visible = false}, "Command2", "Export Emails"};
  Placed<Button> Command3{
      *this, {.Tip = "Delete all saved emails", .Visible = false}, "Command3", "Delete All Emails"};
  Placed<TextBox> txtSearch{*this, {.Visible = false}, "txtSearch", "Google Search"};
  Placed<ComboBox> Combo1{
      *this, {.Visible = false}, "Combo1", "Which Search Type?", Captions{"Google Search", "Yahoo Search"}};
  Placed<ComboBox> Combo2{*this,
                          {.Visible = false},
                          "Combo2",
                          "How Many Search Results?",
                          Captions{"~100 Domains", "~200 Domains", "~500 Domains", "~1000 Domains",
                                   "~5000 Domains", "~10000 Domains"}};
  Placed<Label> Label1_2{*this, {.Visible = false}, "Label1(2)", "Email Data"};
  Placed<Label> Label1_4{*this, {.Visible = false}, "Label1(4)", "Link Results:"};

  // Of the site lists
  Placed<Button> Command7{
      *this, {.Tip = "Import websites from a file", .Visible = false}, "Command7", "Automation"};
  Placed<Button> Command4{
      *this, {.Tip = "Import websites from a file", .Visible = false}, "Command4", "Import"};
  Placed<Menu> mnuView{*this,
                       {.Visible = false, .Entries = "mnuViewItem"},
                       "mnuView",
                       "View",
                       Captions{"Detailed Website Entry Form", "Simple Website Entry Form"}};

  // Frames of an older layout
  Placed<Frame> Frame3{*this, {.Visible = false}, "Frame3", "Statistics"};
  Placed<Frame> Frame4{*this, {.Visible = false}, "Frame4", "Options"};
  Placed<Label> Label8{
      *this, {.In = &Frame4, .Visible = false}, "Label8", "When finished scanning the last website:"};
  /// Its position is stored and read back; nothing acts on it.
  Placed<ComboBox> cmbLastSearch{*this,
                                 {.In = &Frame4, .Visible = false},
                                 "cmbLastSearch",
                                 "",
                                 Captions{"Stop Immediately", "Continue Until Stopped"}};
};

}  // namespace requite
