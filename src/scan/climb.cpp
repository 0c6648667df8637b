// SPDX-License-Identifier: MIT
// Takes as many steps at once as the dots at the start allow. A hostile page can hold a link of millions of
// dots; one pass over the link for each step would block the program for hours.
#include "scan/climb.h"

#include <algorithm>

#include "model/url_forms.h"

namespace requite {
namespace {

/// Has the effect of replacing every "/." by "." `steps` times: each run of slashes before a dot gets shorter
/// by that many.
void TakeSlashesBeforeDots(std::string& link, std::size_t steps) {
  if (link.find("/.") == std::string::npos) return;
  std::string kept;
  kept.reserve(link.size());
  std::size_t slashes = 0;
  for (const char c : link) {
    if (c == '/') {
      ++slashes;
      continue;
    }
    kept.append(c == '.' ? slashes - std::min(slashes, steps) : slashes, '/');
    slashes = 0;
    kept += c;
  }
  link = std::move(kept.append(slashes, '/'));
}

void StepUp(std::string& directory, std::size_t steps) {
  for (; steps > 0; --steps) {
    std::string parent = ParentDir(directory);
    if (parent == directory) return;  // this is the root
    directory = std::move(parent);
  }
}

}  // namespace

void Climb(std::string_view directory, std::string& link) {
  std::string base(directory);
  while (link.starts_with("..")) {
    const std::size_t dots = std::min(link.find_first_not_of('.'), link.size());
    const std::size_t steps = std::max<std::size_t>(1, dots / 3);  // a step takes three characters
    StepUp(base, steps);
    link.erase(0, 3 * steps);
    TakeSlashesBeforeDots(link, steps);
  }
  link.insert(0, base);
}

}  // namespace requite
