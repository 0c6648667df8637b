// SPDX-License-Identifier: MIT
// Compares the fast text search with a plain one and aborts where they differ.
// Input: one byte of switches, one byte for the pattern's length, the pattern, the text.
#include <cstdlib>

#include "platform/needle_set.h"
#include "platform/text.h"
#include "platform/text_search.h"

namespace {

using requite::Compare;

std::size_t PlainFind(std::string_view text, std::string_view what, Compare compare, std::size_t from) {
  if (text.empty()) return std::string_view::npos;
  for (std::size_t at = from; at + what.size() <= text.size(); ++at) {
    if (requite::Equals(text.substr(at, what.size()), what, compare)) return at;
  }
  return std::string_view::npos;
}

std::string PlainReplace(std::string_view text, std::string_view what, std::string_view with,
                         Compare compare) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view here = text.substr(at, what.size());
    const bool found = !what.empty() && requite::Equals(here, what, compare);
    result += found ? with : text.substr(at, 1);
    at += found ? what.size() : 1;
  }
  return result;
}

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const Compare compare = (data[0] & 1) != 0 ? Compare::Binary : Compare::Text;
  const std::string_view pattern = input.substr(2, data[1]);
  const std::string once(input.substr(2 + pattern.size()));
  // Long texts are searched in another way than short ones, so a switch repeats the text.
  std::string text = once;
  for (unsigned i = 0; i < (data[0] >> 5U) && text.size() < 1024; ++i) text += once;
  const std::size_t from = (data[0] >> 1U) & 15U;

  Require(requite::Find(text, pattern, compare, from) == PlainFind(text, pattern, compare, from));
  const requite::TextFinder finder(pattern, compare);
  std::size_t at = PlainFind(text, pattern, compare, 0);
  Require(finder.Find(text) == at);
  for (int i = 0; i < 8 && at != std::string_view::npos; ++i) {
    const std::size_t next = PlainFind(text, pattern, compare, at + 1);
    Require(finder.Find(text, at + 1) == next);
    at = next;
  }
  const bool isIn = PlainFind(text, pattern, Compare::Text, 0) != std::string_view::npos;
  Require(requite::Needle(pattern).IsIn(text, requite::LettersOf(text)) == isIn);
  for (const std::string_view with : {std::string_view(), std::string_view("\r\nhref="), pattern}) {
    Require(requite::Replace(text, pattern, with, compare) == PlainReplace(text, pattern, with, compare));
  }
  return 0;
}
