// SPDX-License-Identifier: MIT
// Servers whose links lead in circles, out of the site, or are no links at all.
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

}  // namespace

std::vector<Behaviour> OddLinks() {
  return {
      {"value-without-end", kFound, Page("<a href=http://main-site.example/ab")},
      {"value-cut-short", kTextOnly, Page("<a href=http://main-site.example")},
      {"no-value", kNotFound, Page("<a href=")},
      {"crossed-quotes", kFound, Page("<a href=\"http://main-site.example/'>")},
      {"100-blanks-before-value", kFound,
       Page(Joined({"<a href=", Times(100, " "), "http://main-site.example/>"}))},
      {"blank-before-equals", kTextOnly, Page("<a href =\"http://main-site.example/\">")},
      {"capitals", kFound, Page("<A HREF=HTTP://MAIN-SITE.EXAMPLE/>")},
      {"fragment", kTextOnly, Href("http://main-site.example/x.htm#top")},
      {"script-address", kTextOnly, Href("javascript:go('main-site.example')")},
      {"backslashes", kFound, Href("\\\\main-site.example\\x")},
      {"name-before-host", kFound, Href("http://main-site.example@other.example/")},
      {"100000-schemes", kFound, Href(Times(100000, "http://") + "main-site.example/")},
      {"200000-words-in-a-row", kNotFound, Page(Times(200000, "href="))},
      {"10000-pages", kNotFound, Page(NumberedLinks(10000))},
      {"10000-links", "Direct Link, Direct Link, Direct Link", Page(Times(10000, kLink)), 3},
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

}  // namespace requite::hostile
