// SPDX-License-Identifier: MIT
// Counting the matches of the address pattern; the library's time is linear in the text.
#include "harvest/email_pattern.h"

#include <re2/re2.h>

namespace requite {
namespace {

constexpr const char* kPattern = R"(([a-zA-Z0-9-_.]+@[a-zA-Z0-9-_.]+\.[a-zA-Z0-9]+))";

}  // namespace

EmailPattern::EmailPattern() {
  RE2::Options options;
  options.set_encoding(RE2::Options::EncodingLatin1);  // any byte is a character
  pattern_ = std::make_unique<const RE2>(kPattern, options);
}

EmailPattern::~EmailPattern() = default;

bool EmailPattern::IsValidEmail(std::string_view text) const {
  re2::StringPiece rest(text.data(), text.size());
  re2::StringPiece match;
  return RE2::FindAndConsume(&rest, *pattern_, &match) && !RE2::FindAndConsume(&rest, *pattern_, &match);
}

}  // namespace requite
