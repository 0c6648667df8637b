// SPDX-License-Identifier: MIT
// Servers whose headers and pages are wrong, torn into chunks, no text, or larger than any memory.
#include <cstdint>

#include "hostile/behaviour.h"

namespace requite::hostile {
namespace {

using namespace std::string_literals;

constexpr std::string_view kOk = "HTTP/1.1 200 OK\r\n";
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
      {"packed", kNotFound,
       WithHeader("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n", "\x1F\x8B\x08\0\0\0\0\0\0\3\xFF\xFF"s)},
      {"chunked", kFound, Chunked(Joined({"5\r\n<p>hi\r\n2e\r\n", kLink, "0\r\n\r\n"}))},
      {"chunk-ends-in-the-link", kNotFound,
       Chunked("f\r\n<a href=\"http://main-\r\n9\r\nsite.example/\">\r\n")},
      {"chunk-sizes-of-garbage", kFound, Chunked(Joined({"ZZZZ\r\n", kLink, "-5;x=\"\r\n", kLink}))},
      {"text-but-no-link", kTextOnly, Page("<?php main-site.example You are seeing this text because")},
      {"nested-tags", kFound, Page(Joined({Times(100000, "<div><b>"), kLink}))},
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

std::vector<Behaviour> OddHeaders() {
  using namespace std::literals;
  return {
      {"no-header", kFound, Answer(Joined({"<html>", kLink}))},
      {"no-header-end", kFound, Answer(Joined({kOk, "Server: x\r\n", kLink}))},
      {"nuls-in-header", kFound, WithHeader(Joined({kOk, "X: \0\0\0\r\n\0\r\n"sv}))},
      {"control-bytes-in-header", kFound, WithHeader(Joined({kOk, "X: \x01\x1B[2J\x7F\x9B\r\n"}))},
      {"header-line-of-a-mebibyte", kFound, WithHeader(Joined({kOk, "X: ", Times(kMebibyte, "x"), "\r\n"}))},
      {"100000-header-lines", kFound, WithHeader(Joined({kOk, Times(100000, "X: y\r\n")}))},
      {"empty-header", kFound, Answer(Joined({"\r\n\r\n", kLink}))},
      {"500000-empty-headers", kFound, Answer(Joined({Times(500000, "\r\n\r\n"), kLink}))},
      {"two-answers", kFound, Answer(Joined({kHeader, "<p>one", "HTTP/1.1 404 Not Found\r\n\r\n", kLink}))},
      {"interim-answer", kFound, Answer(Joined({"HTTP/1.1 100 Continue\r\n\r\n", kHeader, kLink}))},
      {"encrypted-alert", kNotFound, Answer("\x15\x03\x01\x00\x02\x02\x46"s)},
      {"link-in-header-only", kNotFound,
       WithHeader("HTTP/1.1 302 Found\r\nLocation: http://main-site.example/\r\n", "")},
      {"length-beyond-any-number", kFound,
       WithHeader(Joined({kOk, "Content-Length: 99999999999999999999999999999999\r\n"}))},
      {"status-of-10000-digits", kNotFound,
       WithHeader(Joined({"HTTP/1.1 ", Times(10000, "4"), " x\r\n"}), "")},
      {"status-line-of-a-mebibyte", kFound, WithHeader(Joined({Times(kMebibyte, "H"), "\r\n"}))},
  };
}

}  // namespace requite::hostile
