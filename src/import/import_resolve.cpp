// SPDX-License-Identifier: MIT
// Where the import's links part from the scan's.
#include "import/import_resolve.h"

#include "platform/text.h"
#include "scan/resolve.h"

namespace requite {
namespace {

/// All steps up go at once and the link starts at a root without a host. Kept as it is.
void GoToRoot(std::string_view, std::string& link) {
  ReplaceIn(link, "..", "", Compare::Binary);
  link.insert(0, 1, '/');
  ReplaceIn(link, "//", "/", Compare::Binary);
}

}  // namespace

void ResolveImportLink(std::string& link, std::string_view base, std::string_view pageHost) {
  ResolveLinkFrom({base, pageHost, base, GoToRoot}, link);
}

}  // namespace requite
