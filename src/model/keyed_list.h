// SPDX-License-Identifier: MIT
// A list with a fast test whether any row has a given key.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

#include "model/record_list.h"
#include "platform/text_index.h"

namespace requite {

/// `KeyOf` has the key of a record: `static std::string Key(const Record&)`. The index is made when it is
/// first needed, at once or in steps.
template <class Record, class KeyOf>
class KeyedList : public RecordList<Record> {
 public:
  using RecordList<Record>::RecordList;

  [[nodiscard]] bool HasKey(HashedText key) {
    MakeIndex();
    return keys_.Find(key) != TextIndex::kNone;
  }
  /// The number of different keys.
  [[nodiscard]] std::size_t KeyCount() {
    MakeIndex();
    return keys_.Count();
  }
  /// No row has a longer key, in bytes. Removed rows may still count.
  [[nodiscard]] std::size_t LongestKey() {
    MakeIndex();
    return keys_.Longest();
  }
  /// Takes a few thousand rows into the index. Returns whether it has all rows now. A change of the rows
  /// before that makes it begin again.
  bool IndexSomeRows() {
    constexpr std::size_t kRowsOfAStep = 4096;
    if (isIndexed_) return true;
    if (partVersion_ != this->Version()) {
      keys_.Clear();
      indexedRows_ = 0;
      partVersion_ = this->Version();
    }
    const std::size_t end = std::min(this->RowCount(), indexedRows_ + kRowsOfAStep);
    for (; indexedRows_ < end; ++indexedRows_) Count(this->At(indexedRows_));
    isIndexed_ = indexedRows_ == this->RowCount();
    return isIndexed_;
  }

 protected:
  void RowEnters(const Record& record) override {
    if (isIndexed_) Count(record);
  }
  void RowLeaves(const Record& record) override {
    if (!isIndexed_) return;
    const std::string key = KeyOf::Key(record);
    const std::uint32_t found = keys_.Find(HashedText(key));
    if (found != TextIndex::kNone && --keys_.Value(found) == 0) keys_.Remove(found);
  }
  void AllRowsLeave() override { keys_.Clear(); }

 private:
  void MakeIndex() {
    while (!IndexSomeRows()) {
    }
  }
  void Count(const Record& record) {
    const std::string key = KeyOf::Key(record);
    ++keys_.Value(keys_.Add(HashedText(key)));
  }

  TextIndex keys_;  // how many rows have each key
  std::size_t indexedRows_ = 0;
  std::uint64_t partVersion_ = 0;  // of the rows, when the index was begun
  bool isIndexed_ = false;
};

}  // namespace requite
