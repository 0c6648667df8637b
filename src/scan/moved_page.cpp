// SPDX-License-Identifier: MIT
// The address is cut out less carefully than the value of a link: from the start of the line.
#include "scan/moved_page.h"

#include "platform/text.h"

namespace requite {
namespace {

constexpr int kLinesBetweenLooks = 4096;

}  // namespace

std::optional<std::string> MovedAddress(PageLines& lines, const std::string& pageFull, const Slices& slices) {
  for (int passed = 1; !lines.HasHref() && !lines.AtEnd(); ++passed) {
    lines.Advance();
    if (passed % kLinesBetweenLooks == 0 && !slices.GoOn()) return std::nullopt;
  }
  std::string_view line = lines.Line();
  const bool hasHref = lines.HasHref();
  if (hasHref) {
    for (const char mark : {' ', '<', '>'}) line = Before(line, mark);
  }
  std::string address(line);
  if (hasHref) {
    for (const std::string_view piece : {"href=", ">here</a></body"}) {
      ReplaceIn(address, piece, "", Compare::Text);
      if (address.size() > slices.Bytes && !slices.GoOn()) return std::nullopt;
    }
    for (const char sign : {'"', '\'', ' '}) {
      std::erase(address, sign);
      if (address.size() > slices.Bytes && !slices.GoOn()) return std::nullopt;
    }
  }
  return address.empty() ? pageFull : address;
}

}  // namespace requite
