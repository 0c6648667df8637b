// SPDX-License-Identifier: MIT
// The address is cut more roughly here than a link's value: from the start of the line.
#include "scan/moved_page.h"

#include "platform/text.h"

namespace requite {

std::string MovedAddress(PageLines& lines, const std::string& pageFull) {
  while (!lines.HasHref() && !lines.AtEnd()) lines.Advance();
  std::string address(lines.Line());
  if (lines.HasHref()) {
    for (const char mark : {' ', '<', '>'}) address.resize(Before(address, mark).size());
    for (const std::string_view piece : {"href=", ">here</a></body", "\"", "'", " "}) {
      ReplaceIn(address, piece, "", Compare::Text);
    }
  }
  return address.empty() ? pageFull : address;
}

}  // namespace requite
