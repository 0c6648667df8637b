// SPDX-License-Identifier: MIT
// Any page and any script output: the import's links and its removal of tags must agree with their
// plain form. The input is texts separated by NUL: page, base, host of the scan, and a fourth when secure
// connections are on.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "import/extract_links.h"
#include "import/strip_tags.h"
#include "support/fakes.h"
#include "support/plain_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace requite;
  using namespace requite::test;
  constexpr std::size_t kLongest = 4096;  // the plain loops are slow on long texts
  if (size > kLongest) return 0;
  std::vector<std::string> texts =
      Split({reinterpret_cast<const char*>(data), size}, std::string_view("\0", 1));
  const bool secure = texts.size() > 3;
  texts.resize(3);
  MemorySettings store;
  store.Set("chkSecure", secure ? "1" : "0");
  const std::string& page = texts[0];
  ScanState state;
  state.Page.PageHost = texts[2];
  StatusBar status("StatusBar1");
  FakeEventLoop events;
  const std::function<bool()> ended = [] { return false; };
  const std::string links = ExtractLinks(page, texts[1], {state, Settings(store), status, events, ended});
  if (links != PlainExtractLinks(page, texts[1], texts[2], secure)) std::abort();
  if (StripTags(page) != PlainStripTags(page)) std::abort();
  return 0;
}
