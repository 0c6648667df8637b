// SPDX-License-Identifier: MIT
// Turns an href value of the user's own page into a URL without scheme.
#pragma once

#include <string>
#include <string_view>

#include "model/settings.h"

namespace requite {

/// The scan's ResolveLink, in place, with `base` (the host of the user's page) as the current page. Two
/// kinds of link do not use `base`: one that steps up a level loses its host, and one that begins with
/// "./" gets `pageHost`, the host of the scan's last page. Neither text may lie in `link`.
void ResolveImportLink(std::string& link, std::string_view base, std::string_view pageHost,
                       const Settings& settings);

}  // namespace requite
