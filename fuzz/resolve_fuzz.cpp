// SPDX-License-Identifier: MIT
// Any link on any page, for any sites: resolving and the tests of links must agree with their plain form.
// The input is texts separated by NUL: link, directory, host, Main Site, Linking Site, and a sixth when
// secure connections are on.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "scan/resolve.h"
#include "scan/seen_url.h"
#include "support/plain_links.h"
#include "support/scan_rig.h"

namespace requite::test {
namespace {

void Require(bool agrees) {
  if (!agrees) std::abort();
}

void Compare(ScanRig& rig, const std::vector<std::string>& texts) {
  const std::string& link = texts[0];
  rig.State.PageDir = texts[1];
  rig.State.Page.PageHost = texts[2];
  rig.State.MainSiteKey = texts[3];
  rig.Sites.List1(1).Set(0, &LinkingSite::WebsiteUrl, texts[4]);
  std::string resolved = link;
  SiteTests sites(rig.Sites, rig.State);
  Require(ResolveLink(rig.State, rig.Context.Settings, resolved) == PlainResolveLink(rig.Context, link));
  for (std::string url : {link, resolved}) {
    Require(sites.IsLinkToMainSite(url) == PlainIsLinkToMainSite(rig.Context, url));
    Require(sites.IsOnLinkingSite(url) == PlainIsOnLinkingSite(rig.Context, url));
    std::string plain = url;
    Require(IsSeenUrl(rig.Sites, rig.Lists.List2, rig.State, url) ==
            PlainIsSeenUrl(rig.Context, {""}, plain));
    Require(url == plain);
    Require(sites.IsSameDomain(url) == PlainIsSameDomain(rig.Context, plain));
    Require(url == plain);
  }
}

}  // namespace
}  // namespace requite::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace requite::test;
  static ScanRig rig;
  if (rig.Sites.ListCount() == 0) {
    rig.AddMainSite("main.example", {""});
    rig.State.SiteRow = 1;
  }
  std::vector<std::string> texts =
      requite::Split({reinterpret_cast<const char*>(data), size}, std::string_view("\0", 1));
  rig.Services.Store.Set("chkSecure", texts.size() > 5 ? "1" : "0");
  texts.resize(5);
  Compare(rig, texts);
  return 0;
}
