// SPDX-License-Identifier: MIT
// Plain text operations on scheme, "www." and path of a URL.
#include "model/url_forms.h"

#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kWww = "www.";

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
  std::string s(path);
  const std::string scheme = RemoveLowerCaseSchemes(s);
  if (s.ends_with('/')) s.pop_back();
  const std::size_t slash = s.rfind('/');
  if (slash == std::string::npos && (scheme.empty() || scheme == kHttp || scheme == kHttps)) return s + '/';
  return scheme + s.substr(0, slash == std::string::npos ? 0 : slash + 1);
}

}  // namespace requite
