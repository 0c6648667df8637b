// SPDX-License-Identifier: MIT
// The fast search against a plain one, over every byte, case and position.
#include "platform/text_search.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <set>

#include "platform/fold_table.h"
#include "platform/mark_finder.h"
#include "platform/needle_set.h"
#include "platform/search_block.h"
#include "platform/text.h"

namespace requite::test {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// A copy in a buffer of exactly its size, so that a read past its end is noticed.
class ExactCopy {
 public:
  explicit ExactCopy(std::string_view text) : bytes_(new char[text.size()]), size_(text.size()) {
    std::memcpy(bytes_.get(), text.data(), size_);
  }
  [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
};

std::size_t PlainFind(std::string_view text, std::string_view what, Compare compare, std::size_t from = 0) {
  if (text.empty()) return kNowhere;
  for (std::size_t at = from; at + what.size() <= text.size(); ++at) {
    if (Equals(text.substr(at, what.size()), what, compare)) return at;
  }
  return kNowhere;
}

using Noise = std::mt19937;

std::uint32_t Below(Noise& noise, std::uint32_t limit) { return static_cast<std::uint32_t>(noise() % limit); }
std::string RandomText(Noise& noise, std::string_view alphabet, std::size_t length) {
  std::string text;
  while (text.size() < length) {
    text += alphabet[Below(noise, static_cast<std::uint32_t>(alphabet.size()))];
  }
  return text;
}

TEST(FoldTable, HoldsTheWholeCodePage) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    unsigned expected = byte;
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7))
      expected = byte + 0x20;
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E) expected = byte + 0x10;
    if (byte == 0x9F) expected = 0xFF;
    EXPECT_EQ(FoldByte(static_cast<unsigned char>(byte)), expected) << byte;
  }
}

TEST(TextSearch, AgreesWithThePlainSearchOnNoise) {
  EXPECT_EQ(Find("abc", "c", Compare::Text, kNowhere), kNowhere);
  Noise noise;
  // Few different bytes give many near misses; the third one holds every byte that folds oddly.
  std::string allBytes;
  for (int i = 0; i < 256; ++i) allBytes += static_cast<char>(i);
  const std::string alphabets[] = {"aA", "abAB=", "\x8A\x9A\x8C\x9C\x8E\x9E\x9F\xFF\xBF\xDF\xD7\xF7\xC0\xE0",
                                   allBytes};
  for (const std::string& alphabet : alphabets) {
    for (int round = 0; round < 4000; ++round) {
      const ExactCopy text(RandomText(noise, alphabet, Below(noise, round % 8 == 0 ? 700 : 90)));
      const ExactCopy what(RandomText(noise, alphabet, Below(noise, round % 2 == 0 ? 4 : 20)));
      const std::size_t from = Below(noise, 8);
      for (const Compare compare : {Compare::Text, Compare::Binary}) {
        const std::size_t expected = PlainFind(text.View(), what.View(), compare, from);
        ASSERT_EQ(Find(text.View(), what.View(), compare, from), expected)
            << text.View() << " / " << what.View();
        ASSERT_EQ(TextFinder(what.View(), compare).Find(text.View(), from), expected);
      }
    }
  }
}

TEST(TextSearch, StaysLinearWhereTextAndPatternRepeatThemselves) {
  // At each second place 40,000 bytes agree: a quadratic search would compare some 10^11 of them.
  std::string repeated;
  for (int i = 0; i < 20000; ++i) repeated += "aB";
  std::string text;
  for (int i = 0; i < 100; ++i) text += repeated;
  EXPECT_EQ(Find(text, repeated + "B", Compare::Text), kNowhere);
  EXPECT_EQ(Find(text, repeated + "B", Compare::Binary), kNowhere);
  EXPECT_EQ(Find(text + "bAb", repeated + "bA", Compare::Text), text.size() - repeated.size());
  EXPECT_EQ(Find(text + "Bc" + text, "c" + repeated, Compare::Binary, 5), text.size() + 1);
  EXPECT_EQ(Find(text + "ab" + text, "ab" + repeated, Compare::Binary), text.size());
}

struct ReplaceRow {
  const char* name;
  std::string_view text, what, with, ignoringCase, exactly;
};

TEST(Replace, PutsInEveryOccurrenceOnce) {
  constexpr ReplaceRow kRows[] = {
      {"every one", "a HREF= b href= c", "href=", "X", "a X b X c", "a HREF= b X c"},
      {"at both ends", "wwW.a.www", "www", "", ".a.", "wwW.a."},
      {"does not look at what was put in", "aaa", "a", "aa", "aaaaaa", "aaaaaa"},
      {"continues after an overlap", "aaaaa", "AA", "b", "bba", "aaaaa"},
      {"does not join what is left", "hthttptp", "http", "", "http", "http"},
      {"empty pattern", "abc", "", "x", "abc", "abc"},
      {"empty text", "", "a", "x", "", ""},
  };
  for (const ReplaceRow& row : kRows) {
    EXPECT_EQ(Replace(row.text, row.what, row.with, Compare::Text), row.ignoringCase) << row.name;
    EXPECT_EQ(Replace(row.text, row.what, row.with, Compare::Binary), row.exactly) << row.name;
    std::string inPlace(row.text);
    EXPECT_EQ(ReplaceIn(inPlace, row.what, row.with, Compare::Text),
              !row.what.empty() && Contains(row.text, row.what, Compare::Text))
        << row.name;
    EXPECT_EQ(inPlace, row.ignoringCase) << row.name;
  }
}

TEST(Replace, TakesPiecesOfTheTextItself) {
  std::string text = "abcabc";
  EXPECT_TRUE(ReplaceIn(text, std::string_view(text).substr(0, 1), std::string_view(text).substr(1, 2),
                        Compare::Text));
  EXPECT_EQ(text, "bcbcbcbc");
}

TEST(SearchBlock, PlainAndFastFormsAgree) {
  Noise noise;
  for (int round = 0; round < 20000; ++round) {
    const auto anchor = [&] {
      const unsigned char bits[] = {0, 0x20, 0x10, 0x60};
      const unsigned char bit = bits[Below(noise, 4)];
      return SearchAnchors::Anchor{Below(noise, 3), bit, static_cast<unsigned char>(Below(noise, 256) | bit)};
    };
    const SearchAnchors anchors{anchor(), anchor()};
    // Bytes near the wanted ones, so that many of them fit.
    std::string text;
    for (int i = 0; i < 66; ++i) {
      const unsigned value = (i % 2 == 0 ? anchors.First : anchors.Second).Value;
      text += static_cast<char>(value ^ (Below(noise, 2) * (1U << Below(noise, 8))));
    }
    const ExactCopy copy(text);
    std::uint64_t expected = 0;
    for (std::size_t i = 0; i < 64; ++i) {
      expected |= std::uint64_t{anchors.Fit(copy.View().data() + i)} << i;
    }
    ASSERT_EQ(FitsOf64(WordBlock(anchors), copy.View().data()), expected);
    ASSERT_EQ(FitsOf64(FastBlock(anchors), copy.View().data()), expected);
  }
}

std::vector<std::size_t> AllPlaces(const MarkBytes& marks, decltype(&MarkBytes::Collect) collect,
                                   const char* text, std::size_t from, std::size_t end) {
  std::vector<std::size_t> all;
  for (MarkBytes::Places places; from < end; places.Clear()) {
    from = (marks.*collect)(text, from, end, places);
    all.insert(all.end(), places.All().begin(), places.All().end());
  }
  return all;
}

TEST(MarkFinder, TellsEachPlaceOfEachPatternInBlocksOfAnyWidth) {
  Noise noise;
  const std::string alphabet = "abAB\x8A\x9A\x9F\xFF\x10";
  for (int round = 0; round < 5000; ++round) {
    std::vector<std::string> patterns;
    MarkBytes marks;
    for (std::uint32_t i = 0; i <= Below(noise, 8); ++i) {
      patterns.push_back(RandomText(noise, alphabet, 1 + Below(noise, round % 4 == 0 ? 3 : 8)));
      marks.Add(patterns.back(), static_cast<std::uint8_t>(1U << i));
    }
    const ExactCopy copy(
        RandomText(noise, alphabet + "cdefghijklmnopqrstuvw", Below(noise, round % 50 == 0 ? 600 : 150)));
    const std::string_view text = copy.View();
    const std::size_t from = Below(noise, 20);
    const std::size_t end = from + Below(noise, 150);
    std::set<std::pair<std::size_t, std::size_t>> expected;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
      for (std::size_t at = from; at < std::min(end, text.size()); ++at) {
        if (StartsWith(text.substr(at), patterns[i], Compare::Text)) expected.emplace(at, i);
      }
    }
    std::set<std::pair<std::size_t, std::size_t>> found;
    std::size_t last = 0;
    MarkFinder(patterns).ForEach(text, from, end, [&](std::size_t i, std::size_t at) {
      EXPECT_GE(at, last) << "places come in order";
      last = at;
      EXPECT_TRUE(found.emplace(at, i).second) << "each place once";
    });
    ASSERT_EQ(found, expected) << text;
    const std::size_t blocksEnd = text.size() < 2 ? 0 : text.size() - 2;
    for (std::size_t at = 0; at < blocksEnd; ++at) {
      ASSERT_EQ(AllPlaces(marks, &MarkBytes::Collect, text.data(), at, blocksEnd),
                AllPlaces(marks, &MarkBytes::CollectPlainly, text.data(), at, blocksEnd))
          << text;
    }
  }
}

TEST(Needle, IsInWhereTheSearchFindsIt) {
  Noise noise;
  const std::string alphabet = "abcXYZ./:?=&\x8A\x9A\x9F\xFF\x01\t|^{";
  for (int round = 0; round < 20000; ++round) {
    const std::string text = RandomText(noise, alphabet, Below(noise, 60));
    const std::string what = RandomText(noise, alphabet, Below(noise, 4));
    ASSERT_EQ(Needle(what).IsIn(text, LettersOf(text)), Contains(text, what, Compare::Text)) << text << what;
  }
}

}  // namespace
}  // namespace requite::test
