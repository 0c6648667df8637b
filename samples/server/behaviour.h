// SPDX-License-Identifier: MIT
// What the files of a sample site say about it: "responses.txt" and "certificate.txt".
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace requite::samples {

enum class Behaviour {
  Plain,          ///< "plain": headers, the page, close
  Move,           ///< "move URL": a moved page that names the URL in a header and in a link
  Redirect,       ///< "redirect URL": the header of a move, and an empty page
  NeverCloses,    ///< "never-closes": a whole answer on a connection that stays open
  Silence,        ///< "silence": takes the request and says nothing
  Chunked,        ///< "chunked": the page in chunks of one line
  Trickle,        ///< "trickle": a few bytes at a time
  Gzip,           ///< "gzip": the file with ".gz" after its name, packed although nobody asked for it
  Reset,          ///< "reset": the first half, then a reset
  NoHeaderEnd,    ///< "no-header-end": the page follows the headers without an empty line
  NulBytes,       ///< "nul-bytes": a byte of 0 after each line
  EndlessHeader,  ///< "endless-header": headers for ever
  EndlessBody,    ///< "endless-body": the page, and then text for ever
  Echo,           ///< "echo": a script that answers with the query that it got
};

/// One line of "responses.txt".
struct Instruction {
  int Status = 200;
  requite::samples::Behaviour Behaviour = Behaviour::Plain;
  std::string Value;
};

/// The instruction of a site's folder for a path, or nothing. The path "*" stands for all that are not listed
/// above it, and its value is put before the path. Throws std::runtime_error for a line
/// that cannot be understood.
[[nodiscard]] std::optional<Instruction> FindInstruction(const std::filesystem::path& site,
                                                         std::string_view path);

/// The certificate with which a site answers over HTTPS.
struct CertificateWish {
  std::vector<std::string> Names;  ///< the hosts that it is for
  bool Expired = false;
};

/// What "certificate.txt" of a site's folder says: the names, and "expired" where it is so, each a word.
/// Nothing for a site that answers over plain HTTP only.
[[nodiscard]] std::optional<CertificateWish> FindCertificate(const std::filesystem::path& site);

}  // namespace requite::samples
