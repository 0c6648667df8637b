// SPDX-License-Identifier: MIT
// Scheme, "www." and path taken off a URL by plain text operations, without copies on the usual road.
#include "model/url_forms.h"

#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kHttp = "http://";
constexpr std::string_view kHttps = "https://";
constexpr std::string_view kWww = "www.";

void RemoveSchemes(std::string& url) {
  // No scheme is without this, and most URLs that come here have lost theirs.
  if (url.find("://") == std::string::npos) return;
  ReplaceIn(url, kHttp, "", Compare::Text);
  ReplaceIn(url, kHttps, "", Compare::Text);
}

void RemoveLeadingWww(std::string& url, Compare compare) {
  if (url.size() > kWww.size() && StartsWith(url, kWww, compare)) url.erase(0, kWww.size());
}

}  // namespace

void NormaliseMainSite(std::string& mainSiteKey) {
  RemoveSchemes(mainSiteKey);
  RemoveLeadingWww(mainSiteKey, Compare::Text);
}

std::string BareHost(std::string& url) {
  RemoveSchemes(url);
  RemoveLeadingWww(url, Compare::Binary);
  const std::size_t slash = url.find('/');
  if (slash != std::string::npos) url.resize(slash);
  return url;
}

std::string ParentDir(std::string_view path) {
  // A scheme in capitals is remembered but not taken off, so that it comes out behind a second one.
  std::string s(path);
  std::string scheme;
  for (const std::string_view each : {kHttp, kHttps}) {
    if (!Contains(s, each, Compare::Text)) continue;
    ReplaceIn(s, each, "", Compare::Binary);
    scheme.insert(0, each);
  }
  if (s.ends_with('/')) s.pop_back();
  const std::size_t slash = s.rfind('/');
  if (slash == std::string::npos && (scheme.empty() || scheme == kHttp || scheme == kHttps)) return s + '/';
  return scheme + s.substr(0, slash == std::string::npos ? 0 : slash + 1);
}

}  // namespace requite
