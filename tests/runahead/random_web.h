// SPDX-License-Identifier: MIT
// A small random web, random projects that point into it, and random things that a user does.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace requite::test {

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  [[nodiscard]] int Below(int n) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(n)); }
  [[nodiscard]] bool OneIn(int n) { return Below(n) == 0; }
  template <class T>
  [[nodiscard]] const T& Of(const std::vector<T>& values) {
    return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
  }

 private:
  std::mt19937_64 engine_;
};

/// What a server does with one request: pieces of text, with seconds of silence before each.
struct ServerAnswer {
  struct Piece {
    int SilentSeconds = 0;
    std::string Text;
  };
  bool Connects = true;
  std::vector<Piece> Pieces;
  bool Closes = true;  ///< else it is silent from then on
};

struct Web {
  std::map<std::string, ServerAnswer> Pages;                 ///< by host and path
  std::map<std::string, std::optional<std::string>> Bodies;  ///< of GETs, by URL
  std::map<std::string, std::string> Faults;                 ///< words, by host
};

struct SiteRow {
  std::string Url;
  std::string Expected;
};

struct Wish {
  enum class Kind {
    Skip,
    SkipMainSite,
    SkipWithoutReason,
    Stop,
    DeleteRow,
    EditRow,
    AddRow,
    SortRows,
    EditMainSite,
    AddRule,
    ChangeSetting,
    Restart
  };
  Kind What;
  int MainSite = 0;
  int Row = 0;
  std::string Key;
  std::string Value;
};

/// Everything about one case that both scans get.
struct Case {
  Web World;
  std::vector<std::pair<std::string, std::vector<SiteRow>>> MainSites;
  std::vector<std::vector<std::string>> Rules;
  std::map<std::string, std::string> Settings;
  int ScanType = 0;
  std::map<int, Wish> Wishes;  ///< by the number of the call of the host after which they come
  int BoxAfter = 0;            ///< the number of the call that opens a message box
};

[[nodiscard]] Case RandomCase(std::uint64_t seed, bool withWishes);

}  // namespace requite::test
