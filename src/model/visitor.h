// SPDX-License-Identifier: MIT
// How the user wants pages to be asked for: over secure connections, and under which name.
#pragma once

#include <string>

#include "model/settings.h"
#include "platform/http_get_text.h"
#include "platform/secure_rules.h"

namespace requite {

/// Whether pages are asked for over HTTPS where a site offers it. Compared as a text: anything but "1" is
/// off, and nothing fails.
[[nodiscard]] bool AsksSecurely(const Settings& settings);

/// The name given to sites: one line without control characters and without blanks at its ends, whatever is
/// stored. Empty: none is given.
[[nodiscard]] std::string VisitorName(const Settings& settings);

/// Both, for a GET. To be read for each GET, as the user may change the options at any time.
[[nodiscard]] Visitor VisitorOf(const Settings& settings);

/// For connections: reads the settings whenever it is asked. A stored time-out that is not a number counts as
/// the default one. The store must outlive the rules.
[[nodiscard]] SecureRules SecureRulesOf(SettingsStore& store);

/// The text without its control characters (codes 0 to 31 and 127), line ends and tabs among them. In a
/// request they could begin a line of their own.
[[nodiscard]] std::string WithoutControlCharacters(std::string text);

}  // namespace requite
