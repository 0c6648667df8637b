// SPDX-License-Identifier: MIT
// Removing "http://" and "https://" from a text and putting "http://" in front of one, in every form used.
#pragma once

#include <string>
#include <string_view>

namespace requite {

inline constexpr std::string_view kHttp = "http://";
inline constexpr std::string_view kHttps = "https://";

// All of these act anywhere in the text, not at its front alone. Which letter case counts, which scheme, and
// what else is removed differs by use. Keep the differences: they decide which pages are fetched, which
// count as seen, and what users' scripts and files receive.

/// Which schemes a text held.
struct SchemesFound {
  bool Http = false;
  bool Https = false;
};

/// Removes every "http://", then every "https://", in any letter case. For site records, pages to fetch,
/// resolved links and file names.
SchemesFound RemoveSchemes(std::string& text);

/// Removes "http://" only, in any letter case. Returns whether it was there. For values sent to a user's
/// script, which keep "https://" and have it encoded like other text.
bool RemoveHttp(std::string& text);

/// Removes both schemes in lower case only, and returns each scheme that the text held in any letter case:
/// ParentDir puts them back in front. So a scheme in capitals stays and comes out after a second one.
[[nodiscard]] std::string RemoveLowerCaseSchemes(std::string& text);

/// Removes both schemes and every "www.", in lower case only. For the host that the import compares the
/// links of the user's page with.
void RemoveLowerCaseSchemesAndWww(std::string& text);

/// Removes "http://" and what is left of one that was cut at the front ("ttp://" to "://"), in any letter
/// case, then blanks at both ends. "https://" leaves "https". For recorded page numbers and harvested
/// websites.
void RemoveSchemeRemains(std::string& text);

/// As RemoveSchemeRemains, but a "www" after the scheme is removed too, whole or cut. For the seen tests.
void RemoveSchemeAndWwwRemains(std::string& text);

/// What PutHttpInFront takes for a sign that the text has its scheme.
namespace scheme_sign {
/// Requests and link pages: "https://a.example" becomes "http://https://a.example".
inline constexpr std::string_view kHttp = requite::kHttp;
/// The lists that open a browser: a host with these letters in its name gets no scheme.
inline constexpr std::string_view kHttpLetters = "http";
/// The window of the product's own site.
inline constexpr std::string_view kAny = "://";
}  // namespace scheme_sign

/// Puts "http://" before a text that does not hold `sign` anywhere, in any letter case.
void PutHttpInFront(std::string& text, std::string_view sign);

}  // namespace requite
