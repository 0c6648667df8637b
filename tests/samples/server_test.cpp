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

TEST(SampleServer, ServesFilesByHost) {
  const std::string page = Answer("www.lighthouse-cafe.example", "/links/?x=1");
  const std::size_t body = page.find("\r\n\r\n") + 4;
  EXPECT_TRUE(page.starts_with("HTTP/1.1 200 OK\r\n"));
  EXPECT_NE(page.find("friends.html", body), std::string::npos);
  EXPECT_NE(page.find("Content-Length: " + std::to_string(page.size() - body) + "\r\n"), std::string::npos);
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

TEST(SampleServer, SecurePagesAreOnlyThoseOfSitesWithACertificate) {
  const std::string plain = Answer("sea-glass.example", "/friends.html");
  EXPECT_TRUE(plain.starts_with("HTTP/1.1 301 "));
  EXPECT_NE(plain.find("\r\nLocation: https://sea-glass.example/friends.html\r\n"), std::string::npos);
  EXPECT_TRUE(plain.ends_with("Content-Length: 0\r\n\r\n"));
  EXPECT_TRUE(Answer("www.sea-glass.example", "/friends.html", Side::Secure).starts_with("HTTP/1.1 200 "));

  const Sites sites(REQUITE_SAMPLE_SITES);
  const auto certificate = sites.CertificateOf("www.ebb-tide.example");
  ASSERT_TRUE(certificate);
  EXPECT_TRUE(certificate->Expired);
  EXPECT_EQ(certificate->Names, (std::vector<std::string>{"ebb-tide.example", "www.ebb-tide.example"}));
  EXPECT_FALSE(sites.CertificateOf("lamp-room.example"));
  EXPECT_FALSE(sites.CertificateOf("../sites/ebb-tide.example"));
  EXPECT_TRUE(Answer("lamp-room.example", "/", Side::Secure).starts_with("HTTP/1.1 404 "));
}

}  // namespace
}  // namespace requite::samples
