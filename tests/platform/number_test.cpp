// SPDX-License-Identifier: MIT
// Which texts are numbers, how they round, and which failure the others give.
#include <gtest/gtest.h>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite::test {
namespace {

/// A failure as an outcome that no number can be.
constexpr std::int64_t Fails(Failure failure) { return 1'000'000'000'000 + static_cast<int>(failure); }

template <class Integer>
std::int64_t Outcome(Integer (*read)(std::string_view), std::string_view text) {
  try {
    return read(text);
  } catch (const RuntimeFailure& failure) {
    return Fails(Failure{failure.Number});
  }
}

constexpr std::int64_t kNoNumber = Fails(Failure::TypeMismatch);
constexpr std::int64_t kTooLarge = Fails(Failure::Overflow);

struct NumberRow {
  std::string_view text;
  std::int64_t narrow;
  std::int64_t wide;
};

TEST(Number, IsReadTheStrictWay) {
  const std::string manyNines(5000, '9');
  const std::string manyZeros(5000, '0');
  const std::string tinyFraction = "0." + manyZeros + "1";
  const std::string justAboveHalf = "2.5" + manyZeros + "1";
  const std::string shrunk = "1" + manyZeros + "e-5000";
  const NumberRow kRows[] = {
      {"+7", 7, 7},
      {"32767", 32767, 32767},
      {"32768", kTooLarge, 32768},
      {"-32768", -32768, -32768},
      {"-32769", kTooLarge, -32769},
      {"2147483647", kTooLarge, 2147483647},
      {"2147483648", kTooLarge, kTooLarge},
      {"-2147483649", kTooLarge, kTooLarge},
      // Halves go to the even neighbour.
      {"2.5", 2, 2},
      {"-2.5", -2, -2},
      {"32767.5", kTooLarge, 32768},
      {"32767.4999999999999999999999", 32767, 32767},
      {"-32768.5", -32768, -32768},
      {justAboveHalf, 3, 3},
      {".5", 0, 0},
      {"-.6", -1, -1},
      // Exponents.
      {"25e-1", 2, 2},
      {"-1e999999999999999999999", kTooLarge, kTooLarge},
      {"1e-999999999999999999999", 0, 0},
      {"0e999999999999999999999", 0, 0},
      {shrunk, 1, 1},
      {tinyFraction, 0, 0},
      {manyNines, kTooLarge, kTooLarge},
      // No numbers.
      {"", kNoNumber, kNoNumber},
      {"- 1", kNoNumber, kNoNumber},
      {"1e", kNoNumber, kNoNumber},
      {"1e1.5", kNoNumber, kNoNumber},
      {".e5", kNoNumber, kNoNumber},
      {"1 2", kNoNumber, kNoNumber},
      {"0x10", kNoNumber, kNoNumber},
      {"\xB2", kNoNumber, kNoNumber},
      {std::string_view("1\0", 2), kNoNumber, kNoNumber},
  };
  for (const NumberRow& row : kRows) {
    EXPECT_EQ(Outcome(ReadInt16, row.text), row.narrow) << row.text.substr(0, 40);
    EXPECT_EQ(Outcome(ReadInt32, row.text), row.wide) << row.text.substr(0, 40);
  }
}

}  // namespace
}  // namespace requite::test
