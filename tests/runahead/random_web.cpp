// SPDX-License-Identifier: MIT
// Few hosts and few pages, so that sites meet one another often.
#include "runahead/random_web.h"

#include <tuple>
#include <utility>

namespace requite::test {
namespace {

const std::vector<std::string> kHosts = {"a.example", "www.b.example", "c.example", "sub.a.example",
                                         "d.com",     "e.net",         "f.example", "a.example"};
const std::vector<std::string> kPaths = {"/",           "/p1.html", "/p2.html", "/dir/",
                                         "/dir/p3.php", "/x.zip",   "/p4.asp"};
const std::vector<std::string> kMains = {"main.example", "http://www.other.com/dir", "third.net"};

/// Where a page is, and the first of kPaths that it may link to. Pages that link only to later paths make no
/// circles: some URLs of one page are new each time it is reached, and without a page limit a circle never
/// ends.
struct Place {
  std::string Host;
  std::size_t LinksFrom;
};

std::string RandomLink(Dice& dice, const Place& place) {
  const auto path = [&] {
    const int further = static_cast<int>(kPaths.size() - place.LinksFrom);
    return kPaths[place.LinksFrom + static_cast<std::size_t>(dice.Below(further))];
  };
  switch (place.LinksFrom == kPaths.size() ? 7 + dice.Below(3) : dice.Below(10)) {
    case 0: return "http://" + dice.Of(kHosts) + path();
    case 1: return place.LinksFrom <= 1 ? "../p1.html" : path();
    case 2: return "https://" + place.Host + path();
    case 3: return place.LinksFrom <= 2 ? "p2.html#part" : path();
    case 7: return "mailto:x@y.example";
    case 8: return "http://" + dice.Of(kMains) + "/";
    case 9: return "http://shop." + dice.Of(kMains);
    default: return path();
  }
}

std::string RandomBody(Dice& dice, const Place& place) {
  std::string body;
  if (dice.OneIn(12)) body += "You are seeing this text because\r\n";
  if (dice.OneIn(12)) body += "<?php echo 1;\r\n";
  if (dice.OneIn(8)) body += dice.Of(kMains) + "\r\n";
  if (dice.OneIn(8)) {
    body += dice.OneIn(2) ? "302 Found\r\n" : "<title>Object moved</title>\r\n";
    if (!dice.OneIn(4))
      body += "<a href=\"http://moved" + std::to_string(dice.Below(4)) + ".example/\">here</a>";
  }
  for (int links = dice.Below(6); links > 0; --links) {
    body += "<a href=\"" + RandomLink(dice, place) + "\">x</a>" + (dice.OneIn(2) ? "\r\n" : " ");
  }
  return body;
}

ServerAnswer RandomAnswer(Dice& dice, const Place& place) {
  ServerAnswer answer;
  answer.Connects = !dice.OneIn(15);
  answer.Closes = !dice.OneIn(12);
  const std::string status = dice.OneIn(8)    ? "404 Not Found"
                             : dice.OneIn(10) ? "301 Moved Permanently"
                                              : "200 OK";
  const std::string text = "HTTP/1.1 " + status + "\r\nContent-Length: 100\r\n\r\n" + RandomBody(dice, place);
  std::size_t at = dice.OneIn(20) ? text.size() : 0;
  while (at < text.size()) {
    const std::size_t size = dice.OneIn(2) ? text.size() : static_cast<std::size_t>(1 + dice.Below(60));
    answer.Pieces.push_back({dice.OneIn(8) ? 1 + dice.Below(3) : 0, text.substr(at, size)});
    at += std::min(size, text.size() - at);
  }
  return answer;
}

Web RandomWeb(Dice& dice, bool hasCircles) {
  Web web;
  for (const std::string& host : kHosts) {
    for (std::size_t i = 0; i < kPaths.size(); ++i) {
      web.Pages[host + kPaths[i]] = RandomAnswer(dice, {host, hasCircles ? 0 : i + 1});
    }
    if (dice.OneIn(4)) web.Faults[host] = "Certificate has expired";
  }
  for (int i = 0; i < 4; ++i) {
    auto& body = web.Bodies["http://moved" + std::to_string(i) + ".example/"];
    if (!dice.OneIn(4)) body = RandomBody(dice, {"moved.example", hasCircles ? 0 : kPaths.size()});
  }
  return web;
}

std::string RandomUrl(Dice& dice) {
  std::string url = dice.OneIn(3) ? "http://" : "";
  url += dice.Of(kHosts);
  if (dice.OneIn(3)) url += dice.Of(kPaths);
  return url;
}

SiteRow RandomRow(Dice& dice) {
  const std::vector<std::string> expected = {"0", "1", "1", "1", "2", "3"};
  return {RandomUrl(dice), dice.OneIn(60) ? "many" : dice.Of(expected)};
}

std::pair<std::string, std::string> RandomSetting(Dice& dice) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> all = {
      {"chkFileTypes", {"0"}},         {"chkAuto2", {"0", "1", "1"}},
      {"cmbAdvance", {"0", "1", "1"}}, {"chkRedirect", {"0", "1"}},
      {"chkUpdate", {"0", "1", "1"}},  {"chkLog", {"0", "1"}},
      {"chkFileTypes", {"0", "1"}},    {"txtTimeout", {"2", "3", "4"}},
      {"chkSecure", {"0", "0", "1"}},  {"txtUserAgent", {"", "", "Somebody"}}};
  const auto& [key, values] = dice.Of(all);
  return {key, dice.Of(values)};
}

Wish RandomWish(Dice& dice) {
  Wish wish{static_cast<Wish::Kind>(dice.Below(12)), dice.Below(3), dice.Below(6), {}, RandomUrl(dice)};
  if (wish.What == Wish::Kind::Stop && !dice.OneIn(4)) wish.What = Wish::Kind::Skip;
  if (wish.What == Wish::Kind::EditMainSite) wish.Value = dice.Of(kMains);
  // A page that waits for its host is asked as chkSecure says by then.
  while (wish.What == Wish::Kind::ChangeSetting && (wish.Key.empty() || wish.Key == "chkSecure")) {
    std::tie(wish.Key, wish.Value) = RandomSetting(dice);
  }
  return wish;
}

}  // namespace

Case RandomCase(std::uint64_t seed, bool withWishes) {
  Dice dice(seed);
  Case made;
  const bool limited = !dice.OneIn(3);
  made.World = RandomWeb(dice, limited);
  for (int mainSites = 1 + dice.Below(3); mainSites > 0; --mainSites) {
    std::vector<SiteRow> rows;
    for (int count = dice.OneIn(25) ? 0 : 1 + dice.Below(7); count > 0; --count)
      rows.push_back(RandomRow(dice));
    made.MainSites.emplace_back(dice.Of(kMains), std::move(rows));
  }
  for (int rules = dice.Below(4) - 1; rules > 0; --rules) {
    const std::vector<std::string> kinds = {"ExcludeString", "LimitString", "ExcludeDirectory"};
    made.Rules.push_back({"Global", dice.OneIn(2) ? "Global" : "a.example", dice.Of(kinds),
                          dice.Of(std::vector<std::string>{"p1", "dir", "example"})});
  }
  made.Settings["chkAuto"] = limited ? "1" : "0";
  made.Settings["cmbAdvance"] = "1";  // ten pages
  made.Settings["txtTimeout"] = "4";
  for (int settings = dice.Below(8); settings > 0; --settings) {
    const auto [key, value] = RandomSetting(dice);
    made.Settings[key] = value;
  }
  made.ScanType = dice.OneIn(4) ? 1 + dice.Below(2) : 0;
  if (!withWishes) return made;
  for (int wishes = 1 + dice.Below(4); wishes > 0; --wishes)
    made.Wishes[1 + dice.Below(dice.OneIn(3) ? 4 : 60)] = RandomWish(dice);
  return made;
}

}  // namespace requite::test
