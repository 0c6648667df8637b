// SPDX-License-Identifier: MIT
// Comparing, cutting and joining; finding and replacing are in text_search.cpp.
#include "platform/text.h"

#include <algorithm>

#include "platform/fold_table.h"

namespace requite {
namespace {

bool EqualFolded(const char* a, const char* b, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i) {
    if (kFoldTable[static_cast<unsigned char>(a[i])] != kFoldTable[static_cast<unsigned char>(b[i])]) {
      return false;
    }
  }
  return true;
}

constexpr int kFoldBlock = 32;

bool IsAscii(const char* block) {
  unsigned char all = 0;
  for (int i = 0; i < kFoldBlock; ++i)
    all = static_cast<unsigned char>(all | static_cast<unsigned char>(block[i]));
  return all < 0x80;
}

char FoldAscii(char letter) {
  return static_cast<char>(letter >= 'A' && letter <= 'Z' ? letter + 32 : letter);
}

void FoldByTable(char* begin, const char* end) {
  for (char* at = begin; at != end; ++at)
    *at = static_cast<char>(kFoldTable[static_cast<unsigned char>(*at)]);
}

}  // namespace

unsigned char FoldByte(unsigned char byte) { return kFoldTable[byte]; }

std::string Lower(std::string_view text) {
  std::string lower;
  SetLower(lower, text);
  return lower;
}

void SetLower(std::string& lower, std::string_view text) {
  lower.assign(text);
  char* at = lower.data();
  char* const end = at + lower.size();
  // Letters beyond ASCII are rare, and without them the compiler can fold a block at a time.
  for (; end - at >= kFoldBlock; at += kFoldBlock) {
    if (IsAscii(at)) {
      for (int i = 0; i < kFoldBlock; ++i) at[i] = FoldAscii(at[i]);
    } else {
      FoldByTable(at, at + kFoldBlock);
    }
  }
  FoldByTable(at, end);
}

bool Equals(std::string_view a, std::string_view b, Compare compare) {
  if (a.size() != b.size()) return false;
  return compare == Compare::Binary ? a == b : EqualFolded(a.data(), b.data(), a.size());
}

bool StartsWith(std::string_view text, std::string_view what, Compare compare) {
  return Equals(text.substr(0, what.size()), what, compare);
}

bool EndsWith(std::string_view text, std::string_view what, Compare compare) {
  return text.size() >= what.size() && Equals(text.substr(text.size() - what.size()), what, compare);
}

int CompareText(std::string_view a, std::string_view b) {
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const int difference =
        int{kFoldTable[static_cast<unsigned char>(a[i])]} - int{kFoldTable[static_cast<unsigned char>(b[i])]};
    if (difference != 0) return difference;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  std::size_t start = 0;
  for (std::size_t at = text.find(separator); at != std::string_view::npos;
       at = text.find(separator, start)) {
    pieces.emplace_back(text.substr(start, at - start));
    start = at + separator.size();
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view Left(std::string_view text, std::size_t count) { return text.substr(0, count); }

std::string_view Right(std::string_view text, std::size_t count) {
  return count >= text.size() ? text : text.substr(text.size() - count);
}

std::string_view Before(std::string_view text, char mark) { return text.substr(0, text.find(mark)); }

bool IsEmptyOrBlank(std::string_view text) { return text.empty() || text == " "; }

std::string ZeroPadded(std::int64_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace requite
