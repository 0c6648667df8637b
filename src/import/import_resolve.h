// SPDX-License-Identifier: MIT
// From the value of an href on the user's own page to a URL without scheme.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// The scan's ResolveLink, in place, with `base` (the host of the user's page) for the page in hand. A
/// link one level up loses its host, and a link that begins with "./" gets `pageHost`, the host of the
/// scan's last page: neither is seen from `base`. Neither text lies in `link`.
void ResolveImportLink(std::string& link, std::string_view base, std::string_view pageHost);

}  // namespace requite
