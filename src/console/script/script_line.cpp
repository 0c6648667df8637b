// SPDX-License-Identifier: MIT
// The grammar of script lines.
#include "console/script/script_line.h"

#include <charconv>
#include <utility>

#include "console/text_codec.h"
#include "platform/text.h"

namespace requite {
namespace {

/// Removes the first word, with which the text begins, and the blanks after it.
std::string_view CutWord(std::string_view& text) {
  const std::size_t end = text.find(' ');
  const std::string_view word = text.substr(0, end);
  text = end == std::string_view::npos ? std::string_view() : Trim(text.substr(end));
  return word;
}

}  // namespace

std::optional<ScriptLine> ReadScriptLine(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  line = Trim(line);
  if (line.empty() || line.front() == '#') return std::nullopt;
  const std::string command(CutWord(line));
  return ScriptLine{command, std::string(line)};
}

std::optional<std::vector<std::string>> ReadArguments(std::string_view rest, std::size_t most,
                                                      Escapes escapes) {
  std::vector<std::string> arguments;
  rest = Trim(rest);
  while (!rest.empty() && arguments.size() < most) {
    const bool last = arguments.size() + 1 == most;
    const std::string_view word = last ? std::exchange(rest, {}) : CutWord(rest);
    std::optional<std::string> argument = escapes == Escapes::Keep ? std::string(word) : Unescaped(word);
    if (!argument) return std::nullopt;
    arguments.push_back(*std::move(argument));
  }
  return arguments;
}

std::optional<int> ReadNumber(std::string_view text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

}  // namespace requite
