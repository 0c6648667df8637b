// SPDX-License-Identifier: MIT
// The rows of a list that pass a test, found in short steps and kept while the list changes.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace requite {

/// Rows are counted from 0; a place is the number of a row among those that pass. After a change of the test
/// or of all rows, the rows found before stay until Work has been through the whole list.
class RowFilter {
 public:
  using Test = std::function<bool(std::size_t row)>;

  /// Takes another test; a null one lets every row pass, at once.
  void Set(Test test);
  [[nodiscard]] bool Active() const { return static_cast<bool>(test_); }
  [[nodiscard]] bool Searching() const { return searching_; }
  /// To be called when the test may decide differently about any row.
  void Again();

  /// Continues the search for at most about this time. True when the rows found are those that pass.
  bool Work(std::size_t rows, std::chrono::steady_clock::duration longest);

  /// Of a list of so many rows.
  [[nodiscard]] std::size_t Count(std::size_t rows) const { return all_ ? rows : found_.size(); }
  /// The row at a place below Count. It may be beyond the end of a list that was just emptied.
  [[nodiscard]] std::size_t RowAt(std::size_t place) const { return all_ ? place : found_[place]; }
  /// The place of a row, or -1.
  [[nodiscard]] int PlaceOf(std::size_t row) const;

  /// The list has changed; the numbers are those after the change.
  void RowAdded(std::size_t row);
  void RowRemoved(std::size_t row);
  void RowChanged(std::size_t row);
  void ListReset();

 private:
  using Rows = std::vector<std::uint32_t>;

  static void Insert(Rows& rows, std::size_t row, bool passes);
  static void Erase(Rows& rows, std::size_t row);
  static void Put(Rows& rows, std::size_t row, bool passes);

  Test test_;
  bool all_ = true;  ///< no search has ended yet: every row is shown
  Rows found_;
  bool searching_ = false;
  bool again_ = false;  ///< another search is due after this one
  Rows next_;           ///< of the search under way, among the first `tested_` rows
  std::size_t tested_ = 0;
};

}  // namespace requite
