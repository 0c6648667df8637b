// SPDX-License-Identifier: MIT
// Any header and any text: the status code found, and the page with its hrefs on lines, must be those
// of the plain form.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "scan/triage.h"
#include "scan/work_files.h"
#include "support/plain_links.h"
#include "support/scan_rig.h"

namespace requite::test {
namespace {

void Require(bool agrees) {
  if (!agrees) std::abort();
}

void ComparePreparation(const std::string& body) {
  std::string plain = body;
  for (std::size_t blanks = 8; blanks >= 1; --blanks) {
    plain = Replace(plain, "href=" + std::string(blanks, ' '), "href=", Compare::Text);
  }
  plain = Replace(plain, "href=", "\r\nhref=", Compare::Text);
  // The first byte chooses the slices.
  const std::size_t slice = body.empty() ? 1 : 1 + static_cast<unsigned char>(body[0]);
  const PreparedPage page = PageMarks("main.example").Prepare(body, {[] { return true; }, slice}).value();
  Require(page.Text == plain);
  const auto holds = [&](std::string_view what) { return Contains(body, what, Compare::Text); };
  Require(page.MainSiteFrom.has_value() == holds("main.example"));
  Require(page.UnrunScript == holds("<?php"));
  Require(page.MayHaveMoved ==
          (holds("302 Found") || holds("301 Moved Permanently") || holds("moved</title>")));
  for (const std::string_view end : {"\r\n", "\r", "\n"}) plain = Replace(plain, end, "", Compare::Binary);
  std::string flat;
  AppendWithoutLineEnds(flat, page.Text);
  Require(flat == plain);
}

/// The code between the first two blanks decides, and only a code in the table sets a reason.
void CheckStatus(ScanRig& rig, const std::string& header) {
  rig.State.ReasonNote = "";
  rig.Lists.lstErr.Clear();
  RecordedSteps steps;
  Triage(rig.Context, steps).CheckHttpStatus(header, "url");
  const std::vector<std::string> words = Split(header, " ");
  const std::string code = words.size() > 2 ? words[1] : "";
  const bool noted = !rig.State.ReasonNote.empty();
  Require(rig.Lists.lstErr.RowCount() == (noted ? 1U : 0U));
  const bool isNumber = code.find_first_not_of("0123456789") == std::string::npos;
  const bool inTable =
      isNumber && code.size() == 3 && ((code >= "400" && code <= "415") || (code >= "500" && code <= "505"));
  Require(noted == inTable);
  if (noted) Require(StartsWith(rig.State.ReasonNote, code + " ", Compare::Binary));
}

}  // namespace
}  // namespace requite::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace requite::test;
  static ScanRig rig;
  const std::string text(reinterpret_cast<const char*>(data), size);
  ComparePreparation(text);
  CheckStatus(rig, text);
  rig.Host.Calls.clear();
  return 0;
}
