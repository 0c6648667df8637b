// SPDX-License-Identifier: MIT
// Where the import resolves links differently from the scan.
#include "import/import_resolve.h"

#include "platform/text.h"
#include "scan/resolve.h"

namespace requite {
namespace {

/// Drops all steps up at once and starts the link at a root without a host. The list shows such links
/// without a host, and they become sites as shown.
void GoToRoot(std::string_view, std::string& link) {
  ReplaceIn(link, "..", "", Compare::Binary);
  link.insert(0, 1, '/');
  ReplaceIn(link, "//", "/", Compare::Binary);
}

}  // namespace

void ResolveImportLink(std::string& link, std::string_view base, std::string_view pageHost,
                       const Settings& settings) {
  ResolveLinkFrom({base, pageHost, base, GoToRoot}, settings, link);
}

}  // namespace requite
