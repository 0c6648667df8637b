// SPDX-License-Identifier: MIT
// What a sample site answers to one request, and in what odd ways it may send it.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

namespace requite::samples {

/// What the server does when everything is sent.
enum class Ending { Close, StayOpen, Reset };

/// One answer, ready to be sent.
struct Response {
  std::string Bytes;
  std::string Endless;                ///< sent again and again after Bytes; empty for none
  std::size_t Piece = 64 * 1024;      ///< bytes sent at a time
  std::chrono::milliseconds Pause{};  ///< between two pieces, and before a reset
  requite::samples::Ending Ending = Ending::Close;
};

/// Answers for the sites in a folder: "SITES/HOST/PATH" is the page PATH of the site HOST.
/// The file "responses.txt" of a site's folder lists the paths that do not answer with their file,
/// one a line: `PATH STATUS BEHAVIOUR [VALUE]`; lines that begin with "#" are skipped.
class Sites {
 public:
  explicit Sites(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// `request` is a whole request up to the empty line.
  [[nodiscard]] Response Answer(std::string_view request) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace requite::samples
