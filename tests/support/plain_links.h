// SPDX-License-Identifier: MIT
// Link resolution and the tests of a link in their plain form: walks and replacements, no key, no
// cache. The program's own forms must give the same answers.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/url_forms.h"
#include "platform/text.h"
#include "scan/scan_context.h"

namespace requite::test {

inline bool Holds(std::string_view text, std::string_view what) {
  return Contains(text, what, Compare::Text);
}

inline std::string Without(std::string text, const std::vector<std::string>& pieces) {
  for (const std::string& piece : pieces) text = Replace(text, piece, "", Compare::Text);
  return text;
}

inline std::string PlainClimb(std::string directory, std::string link) {
  while (Left(link, 2) == "..") {
    directory = ParentDir(directory);
    link = link.substr(std::min<std::size_t>(3, link.size()));
    link = Replace(link, "/.", ".", Compare::Binary);
  }
  return directory + link;
}

inline std::string PlainMend(std::string link) {
  const auto ends = [&link](std::string_view ending) { return Right(Lower(link), ending.size()) == ending; };
  if (link.size() < 7) return link;
  if (ends(".as")) link = Replace(link, ".as", ".asp", Compare::Text);
  if (ends(".ht")) link = Replace(link, ".ht", ".htm", Compare::Text);
  if (ends(".ph")) link = Replace(link, ".ph", ".php", Compare::Text);
  for (const std::string_view ending : {"/hre", "/href", "/http:", "/http"}) {
    if (ends(ending)) link = std::string(Left(link, link.size() - ending.size()));
  }
  return link;
}

/// What is put before a link: before one that begins with a slash, with a dot and a slash, and any other one.
struct PlainOrigin {
  std::string Root, Host, Directory;
  std::function<std::string(const std::string& link)> Climbed;  ///< a link that begins with two dots
};

inline std::string PlainResolve(const PlainOrigin& origin, bool secure, std::string link) {
  const bool noted = Holds(link, "http://") || (secure && Holds(Without(link, {"http://"}), "https://"));
  link = Without(link, {"http://"});
  link = Without(link, {"https://"});
  if (Left(link, 1) == "/") {
    link = Replace(origin.Root + link, "//", "/", Compare::Binary);
  } else if (Left(link, 2) == "..") {
    link = origin.Climbed(link);
  } else {
    if (Left(link, 2) == "./") link = origin.Host + "/" + Replace(link, "./", "", Compare::Binary);
    bool isHost = noted;
    for (const std::string_view mark : {".com", "www.", ".net", ".edu", ".gov", "ww2."}) {
      isHost = isHost || Holds(link, mark);
    }
    if (!isHost) link = origin.Directory + "/" + link;
  }
  if (link.find('/') == std::string::npos) link += "/";
  for (int pass = 0; pass < 4; ++pass) link = Replace(link, "//", "/", Compare::Binary);
  return PlainMend(link);
}

inline std::string PlainResolveLink(const ScanContext& context, const std::string& link) {
  const std::string& host = context.State.Page.PageHost;
  const std::string& directory = context.State.PageDir;
  const auto climb = [&directory](const std::string& from) { return PlainClimb(directory, from); };
  return PlainResolve({host, host, directory, climb}, context.Settings.GetSetting(setting::chkSecure) == "1",
                      link);
}

inline std::string PlainDomain(const std::string& host) {
  const std::vector<std::string> parts = Split(host, ".");
  if (parts.size() <= 2) return host;
  return parts[parts.size() - 2] + "." + parts.back();
}

inline bool PlainIsLinkToMainSite(const ScanContext& context, std::string_view url) {
  return Holds(url, context.State.MainSiteKey);
}

inline const LinkingSite& PlainSite(const ScanContext& context) {
  return context.Project.List1(context.Project.CurrentMainSite)
      .At(static_cast<std::size_t>(context.State.SiteRow - 1));
}

inline bool PlainIsOnLinkingSite(const ScanContext& context, std::string_view url) {
  std::string d = Without(PlainSite(context).WebsiteUrl, {"http://", "https://"});
  d = PlainDomain(std::string(Before(d, '/')));
  return Holds(url, d) || Holds(d, url);
}

inline bool PlainIsSameDomain(const ScanContext& context, std::string& url) {
  const std::string& key = context.State.MainSiteKey;
  std::string a = Without(key, {"http://", "https://"});
  if (key.find('/') != std::string::npos) a = a.substr(0, a.find('/') + 1);
  url = Without(url, {"http://", "https://"});
  url = std::string(Before(url, '/'));
  return PlainDomain(url) == PlainDomain(a);
}

/// `seen` is the table of seen pages.
inline bool PlainIsSeenUrl(const ScanContext& context, const std::vector<std::string>& seen,
                           std::string& url) {
  url = Without(
      url, {"http://www.", "http://", "ttp://www", "ttp://ww", "ttp://w", "ttp://", "tp://", "p://", "://"});
  url = std::string(Trim(url));
  const auto withoutWww = [](const std::string& text) {
    return Lower(Replace(text, "www.", "", Compare::Binary));
  };
  const LinkingSiteList& sites = context.Project.List1(context.Project.CurrentMainSite);
  for (std::size_t row = 0; row < sites.RowCount(); ++row) {
    if (withoutWww(sites.At(row).WebsiteUrl) == withoutWww(url)) return true;
  }
  const auto same = [&url](const std::string& row) { return Holds(row, url) && row.size() == url.size(); };
  for (std::size_t row = 0; row < context.Lists.List2.RowCount(); ++row) {
    if (same(context.Lists.List2.At(row).Url)) return true;
  }
  for (int i = 0; i <= context.State.PagesQueued; ++i) {
    if (same(seen.at(static_cast<std::size_t>(i)))) return true;
  }
  return false;
}

inline bool PlainIsPageRecorded(const ScanContext& context, std::string& page) {
  page = std::string(Trim(Without(page, {"http://", "ttp://", "tp://", "p://", "://"})));
  for (std::size_t row = 0; row < context.Project.List3.RowCount(); ++row) {
    if (Holds(context.Project.List3.At(row).No, page)) return true;
  }
  return false;
}

inline bool PlainPassesRules(const ScanContext& context, const std::string& url) {
  const Project& project = context.Project;
  for (std::size_t row = 0; row < project.lstRules.RowCount(); ++row) {
    const Rule& rule = project.lstRules.At(row);
    const std::string& mainSite =
        project.List4.At(static_cast<std::size_t>(project.CurrentMainSite - 1)).Text;
    if (rule.MainSite != mainSite && rule.MainSite != "Global") continue;
    if (rule.RemoteSite != PlainSite(context).WebsiteUrl && rule.RemoteSite != "Global") continue;
    const std::string d = Replace("/" + rule.RuleValue + "/", "//", "/", Compare::Binary);
    const std::string& t = rule.RuleType;
    if (t == "LimitDirectory" && !Holds(url, d)) return false;
    if (t == "ExcludeDirectory" && Holds(url, d)) return false;
    if ((t == "LimitString" || t == "LimitRoot") && !Holds(url, rule.RuleValue)) return false;
    if ((t == "ExcludeString" || t == "ExcludeRoot") && Holds(url, rule.RuleValue)) return false;
  }
  return true;
}

}  // namespace requite::test
