// SPDX-License-Identifier: MIT
// Steps up are taken as many at a time as the dots at the front allow: a hostile page can hold a link
// of millions of dots, and one pass over the link for each step would hold up the program for hours.
#include "scan/climb.h"

#include <algorithm>

#include "model/url_forms.h"

namespace requite {
namespace {

/// What `steps` times taking the slash out of every "/." leaves: each run of slashes before a dot is
/// shorter by that many.
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
    if (parent == directory) return;  // at the root, further steps change nothing
    directory = std::move(parent);
  }
}

}  // namespace

void Climb(std::string_view directory, std::string& link) {
  std::string base(directory);
  while (link.starts_with("..")) {
    const std::size_t dots = std::min(link.find_first_not_of('.'), link.size());
    const std::size_t steps = std::max<std::size_t>(1, dots / 3);  // each takes three characters
    StepUp(base, steps);
    link.erase(0, 3 * steps);
    TakeSlashesBeforeDots(link, steps);
  }
  link.insert(0, base);
}

}  // namespace requite
