// SPDX-License-Identifier: MIT
// Servers whose header is wrong, missing, repeated or without measure.
#include "hostile/behaviour.h"

namespace requite::hostile {
namespace {

constexpr std::string_view kOk = "HTTP/1.1 200 OK\r\n";
constexpr std::size_t kMebibyte = 1024 * 1024;

Act WithLength(std::string_view length) {
  return WithHeader(Joined({kOk, "Content-Length: ", length, "\r\n"}));
}

Act Status(std::string_view line) { return WithHeader(Joined({line, "\r\n"}), "<p>gone"); }

}  // namespace

std::vector<Behaviour> OddHeaders() {
  using namespace std::literals;
  return {
      {"no-header", kFound, Answer(Joined({"<html>", kLink}))},
      {"no-header-end", kFound, Answer(Joined({kOk, "Server: x\r\n", kLink}))},
      {"header-only", kNotFound, Answer(std::string(kHeader))},
      {"line-feeds-only", kFound, Answer(Joined({"HTTP/1.1 200 OK\nServer: x\n\n", kLink}))},
      {"nuls-in-header", kFound, WithHeader(Joined({kOk, "X: \0\0\0\r\n\0\r\n"sv}))},
      {"control-bytes-in-header", kFound, WithHeader(Joined({kOk, "X: \x01\x1B[2J\x7F\x9B\r\n"}))},
      {"header-line-of-a-mebibyte", kFound, WithHeader(Joined({kOk, "X: ", Times(kMebibyte, "x"), "\r\n"}))},
      {"100000-header-lines", kFound, WithHeader(Joined({kOk, Times(100000, "X: y\r\n")}))},
      {"header-again-in-page", kFound, Answer(Joined({kHeader, "<p>", kHeader, "<p>", kHeader, kLink}))},
      {"empty-header", kFound, Answer(Joined({"\r\n\r\n", kLink}))},
      {"500000-empty-headers", kFound, Answer(Joined({Times(500000, "\r\n\r\n"), kLink}))},
      {"two-answers", kFound, Answer(Joined({kHeader, "<p>one", "HTTP/1.1 404 Not Found\r\n\r\n", kLink}))},
      {"interim-answer", kFound, Answer(Joined({"HTTP/1.1 100 Continue\r\n\r\n", kHeader, kLink}))},
      {"another-protocol", kNotFound, Answer("SSH-2.0-Other_1.0\r\n")},
      {"encrypted-alert", kNotFound, Answer("\x15\x03\x01\x00\x02\x02\x46"s)},
      {"link-in-header-only", kNotFound,
       WithHeader("HTTP/1.1 302 Found\r\nLocation: http://main-site.example/\r\n", "")},
      {"length-negative", kFound, WithLength("-1")},
      {"length-beyond-any-number", kFound, WithLength("99999999999999999999999999999999")},
      {"length-with-exponent", kFound, WithLength("1e309")},
      {"length-missing", kFound, WithLength("")},
      {"length-too-short", kFound, WithLength("5")},
      {"length-too-long", kFound, WithLength("1000000")},
      {"length-twice", kFound, WithLength("7\r\nContent-Length: 70000")},
      {"status-404", "None Found (404 Not found)", Status("HTTP/1.1 404 Not Found")},
      {"status-404-with-link", kFound, WithHeader("HTTP/1.1 404 Not Found\r\n")},
      {"status-without-reason", kNotFound, Status("HTTP/1.1 500")},
      {"status-negative", kNotFound, Status("HTTP/1.1 -404 Not Found")},
      {"status-of-10000-digits", kNotFound, Status(Joined({"HTTP/1.1 ", Times(10000, "4"), " x"}))},
      {"status-line-of-a-mebibyte", kFound, WithHeader(Joined({Times(kMebibyte, "H"), "\r\n"}))},
  };
}

}  // namespace requite::hostile
