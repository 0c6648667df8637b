// SPDX-License-Identifier: MIT
// The controller over fakes: its own steps run for real, those of others are remembered.
#pragma once

#include <string>
#include <vector>

#include "scan/controller.h"
#include "support/scan_rig.h"

namespace requite::test {

/// Remembers the URL of each page that was to be fetched.
class ControllerSteps : public RecordedSteps {
 public:
  void ScanNextPage() override { Scan->ScanNextPage(); }
  void NextSite() override { Scan->NextSite(); }
  void FetchPage() override {
    Fetched.push_back(State->PageUrl);
    if (OnFetch) OnFetch();
  }

  Controller* Scan = nullptr;
  ScanState* State = nullptr;
  std::vector<std::string> Fetched;
  std::function<void()> OnFetch;
};

struct ControlRig : ControllerSteps, ScanRig {
  ControlRig() : Control(Context, *this) {
    ControllerSteps::Scan = &Control;
    ControllerSteps::State = &(ScanRig::State);
    WriteFile(Folder.File("filetypes.txt"), ".htm\r\n \r\n\r\n.php\r\n");
  }

  [[nodiscard]] ScanState& Now() { return ScanRig::State; }
  [[nodiscard]] std::string LastBox() const {
    return Services.Dialogs.Boxes.empty() ? std::string() : Services.Dialogs.Boxes.back().Text;
  }
  [[nodiscard]] std::string Result(std::size_t row) const { return RowText(Sites.List3, row); }
  void Set(const SettingKey& key, std::string_view value) { Services.Store.Set(key.Name, value); }

  Controller Control;
};

}  // namespace requite::test
