// SPDX-License-Identifier: MIT
// Any page, through the program's triage and analyser and through their plain form: both must leave
// the same rows, queue, files and state. The first byte chooses options; a NUL separates the pages of a site,
// and the last page is also where a moved page leads.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/analysis_rig.h"

namespace requite::test {
namespace {

constexpr std::size_t kLongestInput = 4000;  // the plain form is quadratic

void Begin(AnalysisRig& rig, unsigned options, const std::string& moved) {
  rig.Begin((options & 1) != 0 ? "main.example/a" : "www.main.example",
            {"http://www.p.example/x", "q.com", "a"}, "p.example/d/p.htm");
  rig.Rig.State.LinksExpected = (options & 2) != 0 ? 1 : 1000;
  rig.Rig.Services.Store.Set("chkFileTypes", (options & 4) != 0 ? "0" : "1");
  rig.Rig.Services.Store.Set("chkUpdate", (options & 8) != 0 ? "0" : "1");
  if ((options & 16) != 0) rig.Rig.Sites.lstRules.Add({"Global", "Global", "ExcludeDirectory", "a"});
  if ((options & 32) != 0) rig.Rig.Sites.lstRules.Add({"Global", "q.com", "LimitString", "b"});
  FakeInternet& internet = rig.Rig.Services.Internet;
  internet.OnOpen = [&internet, moved] { internet.Bodies[internet.Asked.back()] = moved; };
}

}  // namespace
}  // namespace requite::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace requite::test;
  if (size == 0 || size > kLongestInput) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::vector<std::string> pages = requite::Split(text, std::string_view("\0", 1));
  AnalysisRig program(Wording::Program);
  AnalysisRig plain(Wording::Plain);
  for (AnalysisRig* rig : {&program, &plain}) {
    Begin(*rig, data[0], pages.empty() ? "" : pages.back());
    for (const std::string& page : pages) rig->Page(page);
  }
  if (program.Remains() != plain.Remains()) std::abort();
  return 0;
}
