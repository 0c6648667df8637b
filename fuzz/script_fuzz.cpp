// SPDX-License-Identifier: MIT
// Splits any bytes as a script line. Escapes must give back what was escaped, and arguments with their
// escapes kept must be the words of the line.
#include <cstdlib>
#include <string>
#include <string_view>

#include "console/script/script_line.h"
#include "console/text_codec.h"
#include "platform/text.h"

namespace {

using namespace requite;

constexpr std::size_t kMostArguments = 4;

void Require(bool holds) {
  if (!holds) std::abort();
}

/// The words are in the line, in order, with only blanks between them.
void RequireWordsOf(std::string_view rest, const std::vector<std::string>& words) {
  rest = Trim(rest);
  for (const std::string& word : words) {
    Require(!word.empty() && rest.starts_with(word));
    rest = rest.substr(word.size());
    Require(rest.empty() || rest.front() == ' ');
    rest = Trim(rest);
  }
  Require(rest.empty());
}

/// No control character is left, and the text reads back except for those shown as \xNN, which cannot be
/// read back.
void RequireEscapesOf(std::string_view text) {
  constexpr std::size_t kShown = 4;
  std::string readable;
  for (const char c : text) {
    if (Escaped({&c, 1}).size() < kShown) readable += c;
  }
  for (const char c : Escaped(text)) Require(static_cast<unsigned char>(c) >= ' ' && c != '\x7F');
  Require(Unescaped(Escaped(readable)) == readable);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  RequireEscapesOf(text);
  if (const auto number = ReadNumber(text); number && text.front() != '0' && !text.starts_with("-0")) {
    Require(std::to_string(*number) == text);
  }

  const auto line = ReadScriptLine(text);
  if (!line) return 0;
  Require(!line->Command.empty() && line->Command.find(' ') == std::string::npos);
  for (std::size_t most = 1; most <= kMostArguments; ++most) {
    const auto kept = ReadArguments(line->Rest, most, Escapes::Keep);
    Require(kept && kept->size() <= most);
    RequireWordsOf(line->Rest, *kept);
    const auto plain = ReadArguments(line->Rest, most);
    if (!plain) continue;
    Require(plain->size() == kept->size());
    for (std::size_t i = 0; i < plain->size(); ++i) Require(Unescaped((*kept)[i]) == (*plain)[i]);
  }
  return 0;
}
