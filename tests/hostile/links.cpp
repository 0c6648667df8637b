// SPDX-License-Identifier: MIT
// Servers whose links and moved pages lead in circles, out of the web, or nowhere.
#include <utility>

#include "hostile/behaviour.h"

namespace requite::hostile {
namespace {

using namespace std::string_literals;

constexpr std::size_t kMebibyte = 1024 * 1024;

/// A page with one link.
Act Href(std::string_view value) { return Page(Joined({"<a href=\"", value, "\">x</a>\r\n"})); }

std::string NumberedLinks(int count) {
  std::string body;
  for (int i = 0; i < count; ++i) body += "<a href=\"/p" + std::to_string(i) + ".htm\">p</a>\r\n";
  return body;
}

/// Each page leads to a new one.
void EndlessCalendar(ServedConnection& peer) {
  const std::string path = PathOf(peer.ReadRequest());
  peer.Send(Joined({kHeader, "<a href=\"", path, "x.htm\">tomorrow</a>"}));
}

/// The link is on the second page, whose address is beyond ASCII.
void EightBitPath(ServedConnection& peer) {
  const bool second = PathOf(peer.ReadRequest()) == "/\xE4\xF6\xFC.htm";
  peer.Send(second ? Joined({kHeader, kLink}) : Joined({kHeader, "<a href=\"/\xE4\xF6\xFC.htm\">x</a>"}));
}

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

}  // namespace

std::vector<Behaviour> OddLinks() {
  return {
      {"backslashes", kFound, Href("\\\\main-site.example\\x")},
      {"100000-schemes", kFound, Href(Times(100000, "http://") + "main-site.example/")},
      {"200000-words-in-a-row", kNotFound, Page(Times(200000, "href="))},
      {"10000-pages", kNotFound, Page(NumberedLinks(10000))},
      {"fewer-links-than-expected", "Direct Link, Missing 006", Page(std::string(kLink)), 7},
      {"endless-calendar", kNotFound, EndlessCalendar},
      {"itself-in-other-words", kNotFound,
       Page("<a href=\"/\"><a href=\".\"><a href=\"..\"><a href=\"./\"><a href=\"//\"><a href=\"?\"><a "
            "href=\"\">")},
      {"a-million-dots", kNotFound, Href(Times(1000000, ".") + "/x.htm")},
      {"address-of-a-mebibyte", kNotFound, Href("/" + Times(kMebibyte, "a") + ".htm")},
      {"control-characters", kNotFound, Href("/\x01\x1B[2J\x7F\x9B\t.htm")},
      {"line-feed-in-address", kNotFound, Href("/a.htm\nX-Injected:1")},
      {"nuls-in-address", kNotFound, Href("/a\0\0.htm"s)},
      {"8-bit-host-in-link", kNotFound, Href("http://m\xFC\xDFig.example/x.htm")},
      {"8-bit-path", kFound, EightBitPath},
      {"8-bit-site", kFound, Page(std::string(kLink)), 1, "m\xFCller.example"},
  };
}

std::vector<Behaviour> MovedPages() {
  const std::string longPath = Times(100000, "a");
  return {
      {"moved-with-link", kFound, MovedTo("moved-with-link", Page(std::string(kLink)))},
      {"moved-to-a-short-text", kNotFound, MovedTo("moved-to-a-short-text", Page("x"))},
      {"moved-twice", kNotFound, MovedTo("moved-twice", Moved("http://moved-twice.example/newer"))},
      {"moved-to-itself", kNotFound, Moved("http://moved-to-itself.example/")},
      {"moved-without-address", kNotFound, Page("<title>Document Moved</title>")},
      {"moved-in-words-only", kTextOnly, Page(Joined({"301 Moved Permanently<p>", kLink}))},
      {"moved-to-a-file", kNotFound, Moved("file:///etc/passwd")},
      {"moved-to-a-long-address", kNotFound, Moved("http://moved-to-a-long-address.example/" + longPath)},
      {"moved-to-stray-escapes", kNotFound, Moved("http://moved-to-stray-escapes.example/%zz%\x01\xFF%2")},
      {"moved-and-reset", kNotFound, MovedTo("moved-and-reset", AnswerAndReset(""))},
      {"moved-to-a-negative-length", kNotFound,
       MovedTo("moved-to-a-negative-length", WithHeader("HTTP/1.1 200 OK\r\nContent-Length: -1\r\n", "<p>"))},
      {"moved-to-bad-chunks", kNotFound,
       MovedTo("moved-to-bad-chunks",
               WithHeader("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n", "ZZ\r\n<p>"))},
  };
}

}  // namespace requite::hostile
