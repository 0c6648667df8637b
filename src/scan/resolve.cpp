// SPDX-License-Identifier: MIT
// Links are taken apart and repaired by plain text operations. Which links count and which pages are fetched
// depends on the order of the steps and on what they overlook, so neither may change.
#include "scan/resolve.h"

#include <algorithm>
#include <array>

#include "model/visitor.h"
#include "platform/schemes.h"
#include "platform/text.h"
#include "scan/climb.h"

namespace requite {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// Tells a host from a relative file name by these fragments, anywhere in the link.
bool LooksLikeHost(std::string_view link) {
  constexpr std::array<std::string_view, 4> kAfterDot = {"com", "net", "edu", "gov"};
  constexpr std::array<std::string_view, 2> kBeforeDot = {"www", "ww2"};
  for (std::size_t dot = link.find('.'); dot != kNowhere; dot = link.find('.', dot + 1)) {
    const std::string_view after = link.substr(dot + 1, 3);
    const std::string_view before = dot < 3 ? std::string_view() : link.substr(dot - 3, 3);
    const auto isAfter = [&](std::string_view end) { return Equals(after, end, Compare::Text); };
    const auto isBefore = [&](std::string_view head) { return Equals(before, head, Compare::Text); };
    if (std::any_of(kAfterDot.begin(), kAfterDot.end(), isAfter)) return true;
    if (std::any_of(kBeforeDot.begin(), kBeforeDot.end(), isBefore)) return true;
  }
  return false;
}

/// The first "//". Looks at every second character only, to be quick in links of megabytes.
std::size_t FindDoubleSlash(std::string_view link) {
  for (std::size_t i = 1; i < link.size(); i += 2) {
    if (link[i] != '/') continue;
    if (link[i - 1] == '/') return i - 1;
    if (i + 1 < link.size() && link[i + 1] == '/') return i;
  }
  return kNowhere;
}

/// Whether a link begins with a host. With secure connections off, "https://" tells nothing: a secure link to
/// a host in another domain than the usual ones is read as a page of the current site, and which pages are
/// fetched depends on that.
bool NamesHost(std::string_view link, SchemesFound schemes, const Settings& settings) {
  return schemes.Http || LooksLikeHost(link) || (schemes.Https && AsksSecurely(settings));
}

/// Puts the host or the directory of the page in front of a link that is relative to it.
void MakeAbsolute(std::string& link, const LinkOrigin& origin, SchemesFound schemes,
                  const Settings& settings) {
  if (link.starts_with('/')) {
    link.insert(0, origin.Root);
    if (FindDoubleSlash(link) != kNowhere) ReplaceIn(link, "//", "/", Compare::Binary);
    return;
  }
  if (link.starts_with("..")) {
    origin.StepUp(origin.Directory, link);
    return;
  }
  if (link.starts_with("./")) {
    // Relative to the root of the host, not to the directory of the page. The next test sees the result.
    ReplaceIn(link, "./", "", Compare::Binary);
    link.insert(0, 1, '/').insert(0, origin.DotRoot);
  }
  if (!NamesHost(link, schemes, settings)) link.insert(0, 1, '/').insert(0, origin.Directory);
}

/// Has the effect of replacing "//" by "/" four times: a run of slashes becomes a sixteenth as long, rounded
/// up.
void ShortenSlashRuns(std::string& link) {
  constexpr std::size_t kShortening = 16;
  std::size_t kept = FindDoubleSlash(link);
  if (kept == kNowhere) return;
  std::size_t run = 0;
  for (std::size_t i = kept; i < link.size(); ++i) {
    run = link[i] == '/' ? run + 1 : 0;
    if (run == 0 || run % kShortening == 1) link[kept++] = link[i];
  }
  link.resize(kept);
}

/// Repairs what CutHrefValue leaves at the end of a value. When the link ends in one of the first three, the
/// repair is made everywhere in the link.
void MendEnding(std::string& link) {
  constexpr std::string_view kLastLetters = "sSt:ThHeEfFpP";  // of all the endings below
  if (kLastLetters.find(link.back()) == kNowhere) return;
  struct Cut {
    std::string_view Ending;
    std::string_view Whole;
  };
  for (const Cut& cut : {Cut{".as", ".asp"}, Cut{".ht", ".htm"}, Cut{".ph", ".php"}}) {
    if (EndsWith(link, cut.Ending, Compare::Text)) ReplaceIn(link, cut.Ending, cut.Whole, Compare::Text);
  }
  for (const std::string_view ending : {"/hre", "/href", "/http:", "/http"}) {
    if (EndsWith(link, ending, Compare::Text)) link.resize(link.size() - ending.size());
  }
}

/// The last two labels of a host.
std::string_view RegisteredDomain(std::string_view host) {
  const std::size_t last = host.rfind('.');
  if (last == kNowhere || last == 0) return host;
  const std::size_t before = host.rfind('.', last - 1);
  return before == kNowhere ? host : host.substr(before + 1);
}

}  // namespace

void ResolveLinkFrom(const LinkOrigin& origin, const Settings& settings, std::string& link) {
  const SchemesFound schemes = RemoveSchemes(link);
  MakeAbsolute(link, origin, schemes, settings);
  if (link.find('/') == kNowhere) link += '/';
  ShortenSlashRuns(link);
  constexpr std::size_t kShortestMended = 7;
  if (link.size() >= kShortestMended) MendEnding(link);
}

const std::string& ResolveLink(const ScanState& state, const Settings& settings, std::string& link) {
  const std::string& host = state.Page.PageHost;
  ResolveLinkFrom({host, host, state.PageDir, Climb}, settings, link);
  return link;
}

void SiteTests::ReadMainSite() {
  const std::string& key = state_.MainSiteKey;
  if (key == mainSiteKey_) return;
  mainSite_ = TextFinder(key);
  mainDomain_ = key;
  RemoveSchemes(mainDomain_);
  // The slash is kept here, but not in IsSameDomain. So a Main Site with a path never has the domain of a
  // link.
  if (key.find('/') != kNowhere) mainDomain_.resize(mainDomain_.find('/') + 1);
  mainDomain_ = std::string(RegisteredDomain(mainDomain_));
  mainSiteKey_ = key;
}

bool SiteTests::IsLinkToMainSite(std::string_view url) {
  ReadMainSite();
  return mainSite_.IsIn(url);
}

bool SiteTests::IsOnLinkingSite(std::string_view url) {
  const LinkingSiteList& sites = project_.List1(project_.CurrentMainSite);
  const std::string& website = sites.At(static_cast<std::size_t>(state_.SiteRow) - 1).WebsiteUrl;
  if (website != websiteUrl_) {
    linkingDomain_ = website;
    RemoveSchemes(linkingDomain_);
    linkingDomain_ = std::string(RegisteredDomain(Before(linkingDomain_, '/')));
    linkingSite_ = TextFinder(linkingDomain_);
    websiteUrl_ = website;
  }
  if (linkingSite_.IsIn(url)) return true;
  return url.size() <= linkingDomain_.size() && Contains(linkingDomain_, url, Compare::Text);
}

bool SiteTests::IsSameDomain(std::string& url) {
  ReadMainSite();
  RemoveSchemes(url);
  url.resize(Before(url, '/').size());
  return RegisteredDomain(url) == mainDomain_;
}

}  // namespace requite
