// SPDX-License-Identifier: MIT
// Replacing in place; most texts hold no scheme and are searched once.
#include "platform/schemes.h"

#include <initializer_list>

#include "platform/text.h"

namespace requite {
namespace {

bool MayHoldScheme(std::string_view text) { return text.find("://") != std::string_view::npos; }

/// A piece that is part of another one must come after it.
void RemoveEach(std::string& text, std::initializer_list<std::string_view> pieces) {
  if (MayHoldScheme(text)) {
    for (const std::string_view piece : pieces) ReplaceIn(text, piece, "", Compare::Text);
  }
  if (text.starts_with(' ') || text.ends_with(' ')) text = std::string(Trim(text));
}

}  // namespace

SchemesFound RemoveSchemes(std::string& text) {
  SchemesFound found;
  if (!MayHoldScheme(text)) return found;
  found.Http = ReplaceIn(text, kHttp, "", Compare::Text);
  found.Https = ReplaceIn(text, kHttps, "", Compare::Text);
  return found;
}

bool RemoveHttp(std::string& text) { return ReplaceIn(text, kHttp, "", Compare::Text); }

std::string RemoveLowerCaseSchemes(std::string& text) {
  std::string schemes;
  for (const std::string_view each : {kHttp, kHttps}) {
    if (!Contains(text, each, Compare::Text)) continue;
    ReplaceIn(text, each, "", Compare::Binary);
    schemes.insert(0, each);
  }
  return schemes;
}

void RemoveLowerCaseSchemesAndWww(std::string& text) {
  for (const std::string_view each : {kHttp, kHttps, std::string_view("www.")}) {
    ReplaceIn(text, each, "", Compare::Binary);
  }
}

void RemoveSchemeRemains(std::string& text) {
  RemoveEach(text, {"http://", "ttp://", "tp://", "p://", "://"});
}

void RemoveSchemeAndWwwRemains(std::string& text) {
  RemoveEach(
      text, {"http://www.", "http://", "ttp://www", "ttp://ww", "ttp://w", "ttp://", "tp://", "p://", "://"});
}

void PutHttpInFront(std::string& text, std::string_view sign) {
  if (!Contains(text, sign, Compare::Text)) text.insert(0, kHttp);
}

}  // namespace requite
