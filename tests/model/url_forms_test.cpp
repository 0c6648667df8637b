// SPDX-License-Identifier: MIT
// The forms of a URL, blind spots included: they decide which links count.
#include "model/url_forms.h"

#include <gtest/gtest.h>

namespace requite {
namespace {

struct Row {
  std::string Given;
  std::string Expected;
};

TEST(UrlForms, NormaliseMainSiteTakesSchemeAndWwwOffAndKeepsThePath) {
  for (const Row& row : std::vector<Row>{
           {"", ""},
           {"HTTP://WWW.Site.example/", "Site.example/"},
           {"http://https://site.example", "site.example"},
           {"site.example/?to=http://www.other.example", "site.example/?to=www.other.example"},
           {"htthttp://p://site.example", "http://site.example"},  // what is left is not looked at again
           {"hhttp://ttps://site.example", "site.example"},  // but the second scheme is looked for later
           {"www.", "www."},
           {" www.site.example", " www.site.example"},
       }) {
    std::string key = row.Given;
    NormaliseMainSite(key);
    EXPECT_EQ(key, row.Expected) << row.Given;
  }
}

TEST(UrlForms, BareHostIsTheHostAndChangesItsArgument) {
  for (const Row& row : std::vector<Row>{
           {"", ""},
           {"http://www.site.example/x", "site.example"},
           {"WWW.site.example", "WWW.site.example"},  // only small letters go
           {"http://WWW.site.example/", "WWW.site.example"},
           {"www.", "www."},
           {"www./x", ""},  // longer than four characters before the path is removed
           {"site.example?a=b/c", "site.example?a=b"},
           {"//site.example", ""},
       }) {
    std::string url = row.Given;
    EXPECT_EQ(BareHost(url), row.Expected) << row.Given;
    EXPECT_EQ(url, row.Expected) << row.Given;
  }
}

TEST(UrlForms, ParentDirEndsInASlash) {
  for (const Row& row : std::vector<Row>{
           {"//", "/"},
           {"site.example/x/y", "site.example/x/"},
           {"site.example/x//", "site.example/x/"},
           {"http://site.example/x/y", "http://site.example/x/"},
           {"http://site.example", "site.example/"},  // a scheme alone is not a directory and is removed
           {"HTTP://site.example/x", "http://HTTP://site.example/"},  // remembered, not removed
           {"site.example/?u=http://b.example/c", "http://site.example/?u=b.example/"},
           {"https://http://site.example/x", "https://http://site.example/"},
       }) {
    EXPECT_EQ(ParentDir(row.Given), row.Expected) << row.Given;
  }
}

/// The same, as the shortening of a text one character at a time.
std::string ParentDirByWalking(const std::string& path) {
  std::string s = path;
  if (s.ends_with('/')) s.pop_back();
  std::string t = s;
  while (!t.empty() && !t.ends_with('/')) t.pop_back();
  return t.empty() ? s + "/" : t;
}

TEST(UrlForms, ParentDirAgreesWithTheWalkOnEveryShortPath) {
  const std::string letters = "a/.";
  for (int code = 0; code < 3 * 3 * 3 * 3 * 3 * 3; ++code) {
    std::string path;
    for (int rest = code; rest > 0; rest /= 3) path += letters[static_cast<std::size_t>(rest % 3)];
    EXPECT_EQ(ParentDir(path), ParentDirByWalking(path)) << path;
  }
}

}  // namespace
}  // namespace requite
