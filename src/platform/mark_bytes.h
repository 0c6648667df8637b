// SPDX-License-Identifier: MIT
// Where may one of several patterns begin? Looks at three bytes of a text for all patterns at once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace requite {

/// The first three bytes of up to eight patterns, in both letter cases. Each pattern has a bit. A shorter
/// pattern matches any byte after its end.
class MarkBytes {
 public:
  void Add(std::string_view pattern, std::uint8_t bit);

  /// The bits of the patterns whose first three bytes are at `start`.
  [[nodiscard]] std::uint8_t At(const char* start) const {
    const auto row = [&](std::size_t i) { return rows_[i][static_cast<unsigned char>(start[i])]; };
    return static_cast<std::uint8_t>(row(0) & row(1) & row(2));
  }

  /// Places in a text, in their order.
  class Places {
   public:
    [[nodiscard]] std::span<const std::size_t> All() const { return {at_.data(), count_}; }
    [[nodiscard]] std::size_t Room() const { return at_.size() - count_; }
    void Add(std::size_t at) { at_[count_++] = at; }
    void Clear() { count_ = 0; }

   private:
    std::array<std::size_t, 128> at_;
    std::size_t count_ = 0;
  };

  /// Adds the places from `from` on, but before `end`, where At has a bit, until a further block of the text
  /// might have more than there is room for. Returns where the next call has to begin: at `end` when that was
  /// all. Reads two bytes after `end`. Uses the widest block that this processor has.
  [[nodiscard]] std::size_t Collect(const char* text, std::size_t from, std::size_t end,
                                    Places& places) const;
  /// The same on any machine, one place at a time.
  [[nodiscard]] std::size_t CollectPlainly(const char* text, std::size_t from, std::size_t end,
                                           Places& places) const;

 private:
  friend struct WideCollect;

  std::array<std::array<std::uint8_t, 256>, 3> rows_{};
  /// The same by halves of a byte: a bit is in the row of a byte if it is in those of both halves. The two
  /// cases of a letter have the same low half.
  alignas(16) std::array<std::array<std::uint8_t, 16>, 3> low_{};
  alignas(16) std::array<std::array<std::uint8_t, 16>, 3> high_{};
};

}  // namespace requite
