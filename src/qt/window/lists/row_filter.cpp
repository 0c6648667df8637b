// SPDX-License-Identifier: MIT
// Searches in steps. Rows that come and go meanwhile are put in place, in the old result and in the new one.
#include "qt/window/lists/row_filter.h"

#include <algorithm>
#include <utility>

namespace requite {
namespace {

constexpr std::size_t kRowsBetweenLooks = 64;  // at the clock

}  // namespace

void RowFilter::Set(Test test) {
  test_ = std::move(test);
  if (test_) return ListReset();
  all_ = true;
  found_ = {};
  next_ = {};
  searching_ = false;
}

void RowFilter::Again() {
  if (!test_) return;
  // A search that was started over each time might never end.
  if (searching_) {
    again_ = true;
  } else {
    ListReset();
  }
}

void RowFilter::ListReset() {
  if (!test_) return;
  searching_ = true;
  again_ = false;
  tested_ = 0;
  next_.clear();
}

bool RowFilter::Work(std::size_t rows, std::chrono::steady_clock::duration longest) {
  if (!searching_) return true;
  const auto end = std::chrono::steady_clock::now() + longest;
  for (; tested_ < rows; ++tested_) {
    if (test_(tested_)) next_.push_back(static_cast<std::uint32_t>(tested_));
    if (tested_ % kRowsBetweenLooks != 0 || std::chrono::steady_clock::now() < end) continue;
    ++tested_;
    return false;
  }
  found_.swap(next_);
  next_.clear();
  all_ = false;
  searching_ = false;
  if (!std::exchange(again_, false)) return true;
  ListReset();
  return false;
}

int RowFilter::PlaceOf(std::size_t row) const {
  if (all_) return static_cast<int>(row);
  const auto at = std::lower_bound(found_.begin(), found_.end(), row);
  return at != found_.end() && *at == row ? static_cast<int>(at - found_.begin()) : -1;
}

void RowFilter::RowAdded(std::size_t row) {
  if (!test_) return;
  const bool passes = test_(row);
  if (!all_) Insert(found_, row, passes);
  if (!searching_ || row >= tested_) return;
  Insert(next_, row, passes);
  ++tested_;
}

void RowFilter::RowRemoved(std::size_t row) {
  if (!test_) return;
  if (!all_) Erase(found_, row);
  if (!searching_ || row >= tested_) return;
  Erase(next_, row);
  --tested_;
}

void RowFilter::RowChanged(std::size_t row) {
  if (!test_) return;
  const bool passes = test_(row);
  if (!all_) Put(found_, row, passes);
  if (searching_ && row < tested_) Put(next_, row, passes);
}

void RowFilter::Insert(Rows& rows, std::size_t row, bool passes) {
  const auto at = std::lower_bound(rows.begin(), rows.end(), row);
  for (auto later = at; later != rows.end(); ++later) ++*later;
  if (passes) rows.insert(at, static_cast<std::uint32_t>(row));
}

void RowFilter::Erase(Rows& rows, std::size_t row) {
  auto at = std::lower_bound(rows.begin(), rows.end(), row);
  if (at != rows.end() && *at == row) at = rows.erase(at);
  for (; at != rows.end(); ++at) --*at;
}

void RowFilter::Put(Rows& rows, std::size_t row, bool passes) {
  const auto at = std::lower_bound(rows.begin(), rows.end(), row);
  const bool isIn = at != rows.end() && *at == row;
  if (passes && !isIn) rows.insert(at, static_cast<std::uint32_t>(row));
  if (!passes && isIn) rows.erase(at);
}

}  // namespace requite
