// SPDX-License-Identifier: MIT
// Settings read as numbers.
#include "model/settings.h"

#include "platform/text.h"

namespace requite {

std::int16_t Settings::Number(const SettingKey& key) const { return ReadInt16(GetSetting(key)); }

std::int32_t Settings::LongNumber(const SettingKey& key) const { return ReadInt32(GetSetting(key)); }

}  // namespace requite
