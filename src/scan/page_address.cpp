// SPDX-License-Identifier: MIT
// Plain text operations on the URL. Which pages are fetched depends on every gap in them.
#include "scan/page_address.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "model/url_forms.h"
#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

/// Drops a "/" at the end. Returns whether the path gets it back: only when the URL has another "/". The
/// scheme is still there, so "http://a.example/" keeps its slash and "a.example/" does not.
bool DropLastSlash(std::string& url) {
  if (url.empty() || url.back() != '/') return false;
  const bool keepSlash = std::count(url.begin(), url.end(), '/') > 1;
  url.pop_back();
  return keepSlash;
}

/// A last segment without a dot counts as a directory.
std::string DirectoryOf(std::string_view url) {
  std::string directory(url);
  const std::size_t slash = directory.rfind('/');
  if (slash != std::string::npos) {
    const std::string_view tail = std::string_view(directory).substr(slash);
    if (tail != "/" && tail.find('.') == std::string_view::npos) directory += '/';
  }
  if (directory.empty() || directory.back() != '/') directory = ParentDir(directory);
  return directory;
}

}  // namespace

void CutUrl(ScanState& state, PageFetch& page) {
  const bool keepSlash = DropLastSlash(state.PageUrl);
  RemoveSchemes(state.PageUrl);
  state.PageFull = state.PageUrl;
  state.PageDir = DirectoryOf(state.PageUrl);
  const std::size_t slash = state.PageUrl.find('/');
  if (slash == std::string::npos) {
    page.PageHost = state.PageUrl;
    page.PagePath = "/";
    return;
  }
  page.PageHost = state.PageUrl.substr(0, slash + 1);
  // This removes the host everywhere, also inside the path.
  page.PagePath = Replace(state.PageUrl, page.PageHost, {}, Compare::Binary);
  if (keepSlash) page.PagePath += '/';
  page.PageHost.pop_back();
  if (page.PagePath.empty() || page.PagePath.front() != '/') page.PagePath.insert(0, 1, '/');
}

}  // namespace requite
