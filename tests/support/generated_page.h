// SPDX-License-Identifier: MIT
// Pages put together at random from the pieces that the page steps look for, whole and broken.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace requite::test {

class PageGenerator {
 public:
  explicit PageGenerator(unsigned seed) : random_(seed) {}

  /// A page of that many pieces.
  std::string Page(int pieces) {
    std::string page;
    for (int i = 0; i < pieces; ++i) page += Piece();
    return page;
  }

  /// An href value, or what was left of one. Some begin with a whole address, which pieces rarely add up to.
  std::string Value(int pieces) {
    std::string value = Below(8) == 0 ? Pick(kAddresses) : "";
    for (int i = 0; i < pieces; ++i) value += Pick(kUrlPieces);
    return value;
  }

  std::string Blanks(int most) { return std::string(static_cast<std::size_t>(Below(most + 1)), ' '); }
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

  template <std::size_t N>
  std::string Pick(const std::array<std::string_view, N>& pieces) {
    return std::string(pieces[random_() % N]);
  }

 private:
  std::string Piece() {
    if (Below(3) == 0) return Pick(kMarks);
    const std::string quote = Pick(kQuotes);
    return "<a " + Pick(kHrefs) + (Below(4) == 0 ? Blanks(40) : "") + quote + ValueOrKnown() + Pick(kQuotes) +
           Pick(kEnds);
  }

  /// Half of the values come again, as those of a menu do.
  std::string ValueOrKnown() {
    std::string& known = known_[static_cast<std::size_t>(Below(static_cast<int>(known_.size())))];
    if (known.empty() || Below(2) == 0) known = Value(1 + Below(6));
    return known;
  }

  static constexpr std::array<std::string_view, 40> kUrlPieces = {
      "http://",  "https://",  "HTTP://",     "ttp://",
      "://",      "www.",      "WWW.",        "main.example",
      "MAIN",     ".example",  ".example",    "partner.example",
      "partner",  "other.com", ".com",        ".net",
      "ww2.",     "/",         "/",           "//",
      "./",       "../",       "..",          ".",
      "x.htm",    "y.php",     "z.as",        "q.ph",
      "links",    "a",         "?",           "=",
      "#",        "mailto:",   "javascript:", "file://",
      "unsaved:", " ",         "/http",       ".ht"};
  static constexpr std::array<std::string_view, 4> kAddresses = {
      "http://www.main.example/", "https://main.example/x.htm", "http://shop.main.example/",
      "http://partner.example/x.htm"};
  static constexpr std::array<std::string_view, 5> kHrefs = {"href=", "HREF=", "Href=", "href =", "hre"};
  static constexpr std::array<std::string_view, 8> kQuotes = {"\"", "\"",  "\"",  "'",
                                                              "",   "\"'", "'\"", "\"\""};
  static constexpr std::array<std::string_view, 7> kEnds = {">", ">text</a>\n", ">\r\n", "\r", "", " ", "\n"};
  static constexpr std::array<std::string_view, 14> kMarks = {"302 found",
                                                              "words and words ",
                                                              "\r\n",
                                                              "\n",
                                                              "\r",
                                                              "<p>main.example</p>",
                                                              "<?php",
                                                              "<title>object MOVED</title>",
                                                              "<title>",
                                                              "301 Moved Permanently",
                                                              "You are seeing this text because",
                                                              "\xC0\xE0 \xFF\x9F",
                                                              "hhrefhref=",
                                                              ">"};

  std::mt19937 random_;
  std::array<std::string, 10> known_;
};

}  // namespace requite::test
