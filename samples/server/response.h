// SPDX-License-Identifier: MIT
// What a sample site answers to one request, and in what odd ways it may send it.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "behaviour.h"

namespace requite::samples {

/// How a client is connected.
enum class Side { Plain, Secure };

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
/// one a line: `PATH STATUS BEHAVIOUR [VALUE]`; lines that begin with "#" are skipped. It holds for plain
/// connections. Over secure ones a site with a "certificate.txt" answers with its files.
class Sites {
 public:
  explicit Sites(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// `request` is a whole request up to the empty line.
  [[nodiscard]] Response Answer(std::string_view request, Side side = Side::Plain) const;
  /// The certificate of a host. Nothing for a host without secure pages.
  [[nodiscard]] std::optional<CertificateWish> CertificateOf(std::string_view host) const;

 private:
  /// The folder of a host, with or without "www."; empty when it has none.
  [[nodiscard]] std::filesystem::path FolderOf(std::string_view host) const;

  std::filesystem::path folder_;
};

}  // namespace requite::samples
