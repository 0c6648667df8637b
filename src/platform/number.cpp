// SPDX-License-Identifier: MIT
// Reading a number out of a text the strict way.
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

template <class Integer>
Integer ReadInteger(std::string_view text) {
  std::string_view digits = Trim(text);
  bool negative = false;
  if (!digits.empty() && (digits.front() == '+' || digits.front() == '-')) {
    negative = digits.front() == '-';
    digits.remove_prefix(1);
  }
  // from_chars would take a second sign, "inf" and "nan".
  if (digits.empty() || (digits.front() != '.' && (digits.front() < '0' || digits.front() > '9'))) {
    throw RuntimeFailure(Failure::TypeMismatch);
  }
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::invalid_argument || end != digits.data() + digits.size()) {
    throw RuntimeFailure(Failure::TypeMismatch);
  }
  if (error == std::errc::result_out_of_range) throw RuntimeFailure(Failure::Overflow);
  value = std::nearbyint(negative ? -value : value);
  if (value < double{std::numeric_limits<Integer>::min()} ||
      value > double{std::numeric_limits<Integer>::max()}) {
    throw RuntimeFailure(Failure::Overflow);
  }
  return static_cast<Integer>(value);
}

}  // namespace

std::int16_t ReadInt16(std::string_view text) { return ReadInteger<std::int16_t>(text); }
std::int32_t ReadInt32(std::string_view text) { return ReadInteger<std::int32_t>(text); }

}  // namespace requite
