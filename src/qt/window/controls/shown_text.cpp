// SPDX-License-Identifier: MIT
// Keeps hostile or broken texts from changing the layout of a window.
#include "qt/window/controls/shown_text.h"

#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr std::size_t kLongest = 500;

}  // namespace

QString OneLine(std::string_view bytes) {
  QString text = ToUnicode(bytes.substr(0, kLongest));
  for (QChar& each : text) {
    if (each.category() == QChar::Other_Control) each = u' ';
  }
  if (bytes.size() > kLongest) text += QChar(0x2026);
  return text;
}

QString ToolTipText(std::string_view bytes) {
  return bytes.empty() ? QString() : "<p>" + OneLine(bytes).toHtmlEscaped() + "</p>";
}

}  // namespace requite
