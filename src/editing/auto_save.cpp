// SPDX-License-Identifier: MIT
// Counts the seconds to the next save and chooses the file.
#include "editing/auto_save.h"

#include <string>

#include "platform/text.h"

namespace requite {

void AutoSave::Timer1_Tick(bool scanning) {
  if (!scanning) return;
  if (!settings_.IsOne(setting::chkAutoSave)) return;
  ++ticks_;
  if (ticks_ < kAutoSaveSeconds) return;
  ticks_ = 0;
  std::string target = settings_.GetSetting(setting::LastProject);
  if (IsEmptyOrBlank(target)) target = folder_.File("projects/AutoSaved.prj");
  files_.SaveProject(target);
}

}  // namespace requite
