// SPDX-License-Identifier: MIT
// "Websites": the Main Sites above the Linking Sites of the one that is selected.
#pragma once

#include "model/project.h"
#include "shell/label.h"
#include "shell/main_window/place.h"

namespace requite {

/// The Linking Site lists themselves come and go with the Main Sites; they are found by the names
/// "List1(k)" and, for the one on show, "List1".
struct SitesControls : Place {
  SitesControls(ControlIndex& index, Project& project);
  void Wire(Form1& form);

  Placed<Frame> Frame1{*this, {}, "Frame1", "Websites"};

  Placed<Frame> innerFrame1{*this, {.In = &Frame1}, "innerFrame1"};
  Placed<TextBox> txtDomain{*this, {.In = &innerFrame1}, "txtDomain", "", TextBox::ProgramChange::Silent};
  Placed<Button> cmdAdd2{
      *this, {.Tip = "Add a new Main Site", .In = &innerFrame1, .Enabled = false}, "cmdAdd2", "Add"};
  Placed<Button> cmdDelete{
      *this,
      {.Tip = "Delete the main site you have selected below", .In = &innerFrame1, .Enabled = false},
      "cmdDelete",
      "Del"};
  Placed<Button> cmdEditMain{
      *this,
      {.Tip = "Edit the main site you have selected below", .In = &innerFrame1, .Enabled = false},
      "cmdEditMain",
      "Edit"};
  Placed<Button> cmdImport2{
      *this, {.Tip = "Import Main Sites from a file", .In = &innerFrame1}, "cmdImport2", "Import"};

  // Until a Main Site is selected there is no list to enter Linking Sites in.
  Placed<Frame> innerFrame2{*this, {.In = &Frame1, .Enabled = false, .Visible = false}, "innerFrame2"};
  Placed<Label> Label2{*this, {.In = &innerFrame2}, "Label2"};
  Placed<Label> lblblah{*this, {.In = &innerFrame2}, "lblblah"};
  Placed<TextBox> Text1{*this, {.In = &innerFrame2, .Enabled = false, .Visible = false}, "Text1"};
  Placed<Button> cmdAdd{
      *this,
      {.Tip = "Add a new Linking Site", .In = &innerFrame2, .Enabled = false, .Visible = false},
      "cmdAdd",
      "Add"};
  Placed<Button> cmbDel{
      *this,
      {.Tip = "Delete the selected Linking Site", .In = &innerFrame2, .Enabled = false, .Visible = false},
      "cmbDel",
      "Del"};
  Placed<Button> cmdEdit{
      *this,
      {.Tip = "Edit the selected Linking Site", .In = &innerFrame2, .Enabled = false, .Visible = false},
      "cmdEdit",
      "Edit"};
  Placed<Button> cmdImport{*this,
                           {.Tip = "Import Linking Sites from a file or a website", .In = &innerFrame2},
                           "cmdImport",
                           "Import"};
  Placed<Menu> Popup1{
      *this, {.Visible = false, .Entries = "mnuPopup1Item"}, "Popup1", "", Captions{"Delete Site"}};

 private:
  void WireLinkingSites(Form1& form, LinkingSiteList& list, int k);
};

}  // namespace requite
