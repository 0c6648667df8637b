// SPDX-License-Identifier: MIT
// What the sample server answers, and that it answers with nothing but the sites. Its odd ways of sending are
// seen by the scan of the samples.
#include <gtest/gtest.h>

#include "response.h"

namespace requite::samples {
namespace {

std::string Answer(const std::string& host, const std::string& path, Side side = Side::Plain) {
  const Sites sites(REQUITE_SAMPLE_SITES);
  return sites.Answer("GET " + path + " HTTP/1.1\r\nHost: " + host + "\r\n\r\n", side).Bytes;
}

TEST(SampleServer, NothingOutsideTheSitesIsServed) {
  for (const auto& [host, path] :
       {std::pair<std::string, std::string>{"lighthouse-cafe.example", "/../../sample.prj"},
        {"..", "/sample.prj"},
        {"unknown.example", "/"},
        {"lighthouse-cafe.example", "/" + std::string(5000, 'x')}}) {
    EXPECT_TRUE(Answer(host, path).starts_with("HTTP/1.1 404 ")) << host << path.substr(0, 40);
    EXPECT_TRUE(Answer(host, path, Side::Secure).starts_with("HTTP/1.1 404 ")) << host << path.substr(0, 40);
  }
}

}  // namespace
}  // namespace requite::samples
