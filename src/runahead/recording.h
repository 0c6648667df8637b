// SPDX-License-Identifier: MIT
// What a server answered to one request, kept until the scan asks for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// The bytes of all recordings that are not yet replayed.
struct RecordedBytes {
  std::size_t Held = 0;
};

/// What happened on a connection. Seconds without data are told like the rest: the scan counts them.
enum class Happening : std::uint8_t { CertificateFault, Connect, Data, Second, Close };

/// One page, or the page that one has moved to. It is replayed once, perhaps while it is still made.
class Recording {
 public:
  /// Without bytes, a recording still takes about this much memory.
  static constexpr std::size_t kOverhead = 512;

  Recording(std::string key, RecordedBytes& bytes);
  ~Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  /// What was asked for. Two recordings with one key answer the same question.
  [[nodiscard]] static std::string KeyOfPage(std::string_view host, std::string_view path, bool securely);
  [[nodiscard]] static std::string KeyOfGet(std::string_view url, std::string_view agent);
  [[nodiscard]] const std::string& Key() const { return key_; }

  /// For the maker. Each of them calls OnMore.
  void Note(Happening what);
  void NoteData(std::string_view bytes);
  void NoteFault(std::string_view words);
  void NoteBody(std::optional<std::string> body);  ///< the whole answer of a GET
  void NoteOver();                                 ///< nothing more will happen
  void NoteRequest(std::string_view bytes) { request_.append(bytes); }

  /// For the player.
  struct Step {
    Happening What;
    std::string Bytes;  ///< of data; the words of a fault
  };
  [[nodiscard]] bool HasStep() const { return nextStep_ < steps_.size(); }
  /// Takes the next step, of data at most `mostBytes`. There must be one.
  [[nodiscard]] Step TakeStep(std::size_t mostBytes);
  [[nodiscard]] bool Over() const { return over_; }
  /// All bytes that the maker sent.
  [[nodiscard]] const std::string& Request() const { return request_; }
  /// The answer of a GET, once there is one: nothing when the URL could not be opened.
  [[nodiscard]] bool IsAnswered() const { return answered_; }
  [[nodiscard]] const std::optional<std::string>& Body() const { return body_; }
  /// Whether someone waits for its next step.
  [[nodiscard]] bool IsPlayed() const { return static_cast<bool>(OnMore); }
  /// Whether a scan that waits `seconds` for silent servers would have seen no more than this.
  [[nodiscard]] bool IsWholeFor(int seconds, std::size_t mostBytes) const;

  std::function<void()> OnMore;
  bool Played = false;  ///< the scan has had it, or has turned away from it

 private:
  struct Kept {
    Happening What;
    std::size_t Count;  ///< bytes of data, seconds in a row; else 1
  };

  void Keep(Happening what, std::size_t count);
  void Grow(std::size_t bytes);

  const std::string key_;
  RecordedBytes& all_;
  std::size_t counted_ = 0;
  std::vector<Kept> steps_;  ///< those taken go when none is left
  std::size_t nextStep_ = 0;
  std::string bytes_;
  std::size_t taken_ = 0;
  std::string fault_;
  std::string request_;
  std::optional<std::string> body_;
  int silence_ = 0;  ///< seconds since the last data
  bool closed_ = false;
  bool answered_ = false;
  bool over_ = false;
};

}  // namespace requite
