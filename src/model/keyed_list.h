// SPDX-License-Identifier: MIT
// A list that can tell at once whether any of its rows has a given key.
#pragma once

#include <string>
#include <unordered_map>

#include "model/record_list.h"

namespace requite {

/// `KeyOf` turns a record into its key: `static std::string Key(const Record&)`.
/// The index is made at the first question, so lists that are never asked pay nothing.
template <class Record, class KeyOf>
class KeyedList : public RecordList<Record> {
 public:
  using RecordList<Record>::RecordList;

  [[nodiscard]] bool HasKey(const std::string& key) {
    if (!indexed_) {
      indexed_ = true;
      for (std::size_t row = 0; row < this->RowCount(); ++row) ++counts_[KeyOf::Key(this->At(row))];
    }
    return counts_.contains(key);
  }

 protected:
  void RowEnters(const Record& record) override {
    if (indexed_) ++counts_[KeyOf::Key(record)];
  }
  void RowLeaves(const Record& record) override {
    if (!indexed_) return;
    const auto found = counts_.find(KeyOf::Key(record));
    if (found != counts_.end() && --found->second == 0) counts_.erase(found);
  }
  void AllRowsLeave() override { counts_.clear(); }

 private:
  std::unordered_map<std::string, int> counts_;
  bool indexed_ = false;
};

}  // namespace requite
