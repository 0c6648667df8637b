// SPDX-License-Identifier: MIT
// The library that the console loads for the user's locale and for international names of hosts.
#include "system/locale_module.h"

#include "qt/services/code_page.h"
#include "qt/services/system_clock.h"

extern "C" __attribute__((visibility("default"))) requite::Clock* RequiteMakeLocaleClock() {
  return std::make_unique<requite::SystemClock>().release();
}

extern "C" __attribute__((visibility("default"))) void RequiteFindAsciiHost(std::string_view host,
                                                                            std::string& ascii) {
  ascii = requite::AsciiHost(host);
}

static_assert(std::is_same_v<decltype(&RequiteMakeLocaleClock), requite::MakeLocaleClock>);
static_assert(std::is_same_v<decltype(&RequiteFindAsciiHost), requite::FindAsciiHost>);
