// SPDX-License-Identifier: MIT
// Servers whose pages say that they have moved: in circles, to nowhere, or out of the web.
#include <utility>

#include "hostile/behaviour.h"

namespace requite::hostile {
namespace {

std::string MovedPage(std::string_view address) {
  return Joined({kHeader, "302 Found\r\n<a href=\"", address, "\">here</a></body>"});
}

/// The first page says that it has moved to "/new" of the site; what happens there is the act's.
Act MovedTo(const char* site, Act there) {
  return [page = MovedPage(Joined({"http://", site, ".example/new"})),
          there = std::move(there)](ServedConnection& peer) {
    // The request is looked at and left for the act to read.
    if (PathOf(peer.PeekRequest()) == "/new") return there(peer);
    peer.ReadRequest();
    peer.Send(page);
  };
}

Act Moved(std::string_view address) { return Answer(MovedPage(address)); }

/// Every answer is a redirect of the protocol as well as a page that has moved.
Act Redirects(const char* site, std::string_view location) {
  return Answer(Joined({"HTTP/1.1 302 Found\r\nLocation: ", location, "\r\n\r\n302 Found <a href=\"http://",
                        site, ".example/x\">here</a>"}));
}

}  // namespace

std::vector<Behaviour> MovedPages() {
  const std::string longPath = Times(100000, "a");
  return {
      {"moved-with-link", kFound, MovedTo("moved-with-link", Page(std::string(kLink)))},
      {"moved-to-a-short-text", kNotFound, MovedTo("moved-to-a-short-text", Page("x"))},
      {"moved-twice", kNotFound, MovedTo("moved-twice", Moved("http://moved-twice.example/newer"))},
      {"moved-to-itself", kNotFound, Moved("http://moved-to-itself.example/")},
      {"moved-without-address", kNotFound, Page("<title>Document Moved</title>")},
      {"moved-in-words-only", kTextOnly, Page(Joined({"301 Moved Permanently<p>", kLink}))},
      {"redirects-to-itself", kNotFound, Redirects("redirects-to-itself", "/x")},
      {"redirects-nowhere", kNotFound, Redirects("redirects-nowhere", "")},
      {"redirects-to-a-file", kNotFound, Redirects("redirects-to-a-file", "file:///etc/passwd")},
      {"redirects-to-garbage", kNotFound, Redirects("redirects-to-garbage", "http://[::1/%zz\\\x01:99999")},
      {"moved-to-a-file", kNotFound, Moved("file:///etc/passwd")},
      {"moved-to-another-scheme", kNotFound, Moved("ftp://moved.example/x")},
      {"moved-to-port-99999", kNotFound, Moved("http://moved.example:99999/")},
      {"moved-where-nobody-listens", kNotFound, Moved("http://nowhere.example/")},
      {"moved-to-a-long-address", kNotFound, Moved("http://moved-to-a-long-address.example/" + longPath)},
      {"moved-to-stray-escapes", kNotFound, Moved("http://moved-to-stray-escapes.example/%zz%\x01\xFF%2")},
      {"moved-and-reset", kNotFound, MovedTo("moved-and-reset", AnswerAndReset(""))},
      {"moved-and-ended", kNotFound, MovedTo("moved-and-ended", Answer(""))},
      {"moved-to-half-a-header", kNotFound,
       MovedTo("moved-to-half-a-header", Answer("HTTP/1.1 200 OK\r\nX"))},
      {"moved-to-no-header", kNotFound, MovedTo("moved-to-no-header", Answer("<p>no header"))},
      {"moved-to-a-negative-length", kNotFound,
       MovedTo("moved-to-a-negative-length", WithHeader("HTTP/1.1 200 OK\r\nContent-Length: -1\r\n", "<p>"))},
      {"moved-to-bad-chunks", kNotFound,
       MovedTo("moved-to-bad-chunks",
               WithHeader("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n", "ZZ\r\n<p>"))},
  };
}

}  // namespace requite::hostile
