// SPDX-License-Identifier: MIT
// Pieces of one size, filled from their start.
#include "platform/text_pool.h"

#include <cstring>
#include <utility>

namespace requite {

std::string_view TextPool::Keep(std::string_view text) {
  if (text.empty()) return "";
  if (text.size() > kShort) {
    std::unique_ptr<char[]> own(new char[text.size()]);
    const char* const start = static_cast<const char*>(std::memcpy(own.get(), text.data(), text.size()));
    long_.emplace(start, std::move(own));
    return {start, text.size()};
  }
  if (left_ < text.size()) {
    pieces_.emplace_back(new char[kPiece]);
    left_ = kPiece;
  }
  char* const start = pieces_.back().get() + (kPiece - left_);
  std::memcpy(start, text.data(), text.size());
  left_ -= text.size();
  used_ += text.size();
  return {start, text.size()};
}

void TextPool::Drop(std::string_view kept) {
  if (kept.size() > kShort) {
    long_.erase(kept.data());
  } else {
    dropped_ += kept.size();
  }
}

TextPool::Pieces TextPool::TakePieces() {
  left_ = used_ = dropped_ = 0;
  return std::exchange(pieces_, {});
}

std::string_view TextPool::KeepPacked(std::string_view kept) {
  return kept.size() > kShort ? kept : Keep(kept);
}

}  // namespace requite
