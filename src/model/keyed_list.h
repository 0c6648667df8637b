// SPDX-License-Identifier: MIT
// A list with a fast test whether any row has a given key.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>

#include "model/record_list.h"

namespace requite {

/// `KeyOf` has the key of a record: `static std::string Key(const Record&)`. The index is made when it is
/// first needed.
template <class Record, class KeyOf>
class KeyedList : public RecordList<Record> {
 public:
  using RecordList<Record>::RecordList;

  [[nodiscard]] bool HasKey(const std::string& key) {
    MakeIndex();
    return counts_.contains(key);
  }
  /// The number of different keys.
  [[nodiscard]] std::size_t KeyCount() {
    MakeIndex();
    return counts_.size();
  }
  /// No row has a longer key, in bytes. Removed rows may still count.
  [[nodiscard]] std::size_t LongestKey() {
    MakeIndex();
    return longest_;
  }

 protected:
  void RowEnters(const Record& record) override {
    if (indexed_) Count(KeyOf::Key(record));
  }
  void RowLeaves(const Record& record) override {
    if (!indexed_) return;
    const auto found = counts_.find(KeyOf::Key(record));
    if (found != counts_.end() && --found->second == 0) counts_.erase(found);
  }
  void AllRowsLeave() override {
    counts_.clear();
    longest_ = 0;
  }

 private:
  void MakeIndex() {
    if (indexed_) return;
    indexed_ = true;
    for (std::size_t row = 0; row < this->RowCount(); ++row) Count(KeyOf::Key(this->At(row)));
  }
  void Count(const std::string& key) {
    ++counts_[key];
    longest_ = std::max(longest_, key.size());
  }

  std::unordered_map<std::string, int> counts_;
  std::size_t longest_ = 0;
  bool indexed_ = false;
};

}  // namespace requite
