// SPDX-License-Identifier: MIT
// Servers whose pages are no pages, no text, torn into chunks, or larger than any memory.
#include <cstdint>

#include "hostile/behaviour.h"

namespace requite::hostile {
namespace {

using namespace std::string_literals;

constexpr std::size_t kMebibyte = 1024 * 1024;
/// Just beyond what is taken of a page.
constexpr std::size_t kTooMuch = 65 * kMebibyte;
constexpr std::string_view kWind = "<p>and not a breath of wind</p>\n";

/// Bytes without order, the same at each run.
std::string Noise() {
  std::string bytes(kMebibyte, '\0');
  std::uint32_t state = 1;
  for (char& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

std::string HighBytes() {
  std::string bytes;
  for (int byte = 0x80; byte <= 0xFF; ++byte) bytes += static_cast<char>(byte);
  return Times(1000, bytes);
}

std::string InTwoBytesEach(std::string_view text) {
  std::string wide = "\xFF\xFE";
  for (const char c : text) wide.append(1, c).append(1, '\0');
  return wide;
}

Act Chunked(std::string_view body) {
  return WithHeader("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n", body);
}

}  // namespace

std::vector<Behaviour> OddBodies() {
  return {
      {"a-mebibyte-of-nuls", kFound, Page(Joined({Times(kMebibyte, "\0"s), kLink}))},
      {"nul-in-the-word", kTextOnly, Page("<a hr\0ef=\"http://main-site.example/\">"s)},
      {"nul-in-the-host", kNotFound, Page("<a href=\"http://main-site\0.example/\">"s)},
      {"noise", kNotFound, Page(Noise())},
      {"bytes-beyond-ascii", kFound, Page(Joined({HighBytes(), kLink}))},
      {"two-bytes-a-letter", kNotFound, Page(InTwoBytesEach(kLink))},
      {"packed", kNotFound,
       WithHeader("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n", "\x1F\x8B\x08\0\0\0\0\0\0\3\xFF\xFF"s)},
      {"chunked", kFound, Chunked(Joined({"5\r\n<p>hi\r\n2e\r\n", kLink, "0\r\n\r\n"}))},
      {"chunk-ends-in-the-link", kNotFound,
       Chunked("f\r\n<a href=\"http://main-\r\n9\r\nsite.example/\">\r\n")},
      {"chunk-sizes-of-garbage", kFound, Chunked(Joined({"ZZZZ\r\n", kLink, "-5;x=\"\r\n", kLink}))},
      {"chunk-size-without-measure", kFound, Chunked(Joined({Times(1000, "F"), "\r\n", kLink}))},
      {"protected-source", "None Found (Source Protected)", Page("You are SEEING this text because")},
      {"script-not-run", "None Found (Server Script Error)", Page("<?php echo 1;")},
      {"text-but-no-link", kTextOnly, Page("<?php main-site.example You are seeing this text because")},
      {"nested-tags", kFound, Page(Joined({Times(100000, "<div><b>"), kLink}))},
      {"nested-tables", kFound, Page(Joined({Times(20000, "<table><tr><td>"), kLink}))},
      {"tags-without-end", kFound, Page(Joined({Times(100000, "<a <a "), kLink}))},
      {"comment-without-end", kFound, Page(Joined({"<!-- <!-- ", kLink}))},
      {"one-line-of-four-mebibytes", kFound, Page(Joined({Times(4 * kMebibyte, "x"), kLink}))},
      {"two-million-line-ends", kFound, Page(Joined({Times(1000000, "\r\n"), Times(1000000, "\r"), kLink}))},
  };
}

std::vector<Behaviour> Floods() {
  return {
      {"endless-header", kNotFound, AnswerForEver("HTTP/1.1 200 OK\r\n", "X-Swell: and another wave\r\n")},
      {"second-link-beyond-64-mebibytes", "Direct Link, Missing 001",
       [](ServedConnection& peer) {
         peer.ReadRequest();
         peer.Send(Joined({kHeader, kLink}));
         peer.Send(Times(kTooMuch / kWind.size(), kWind));
         peer.Send(kLink);
       },
       2},
      {"link-of-four-mebibytes", kNotFound,
       Page(Joined(
           {"<a href=\"http://link-of-four-mebibytes.example/a.htm", Times(4 * kMebibyte, "x"), "\">"}))},
      {"moved-to-an-endless-page", kNotFound,
       [](ServedConnection& peer) {
         const bool first = PathOf(peer.ReadRequest()) == "/";
         peer.Send(first
                       ? Joined({kHeader, "302 Found <a href=\"http://moved-to-an-endless-page.example/x\">"})
                       : std::string(kHeader));
         const std::string flood = Times(10000, kWind);
         while (!first && peer.Send(flood)) {
         }
       }},
  };
}

}  // namespace requite::hostile
