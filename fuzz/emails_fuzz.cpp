// SPDX-License-Identifier: MIT
// Any line, through the search for addresses and through its plain form: both must find the same
// addresses in the same order.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "support/email_collector.h"

constexpr std::size_t kLongestInput = 4000;  // the plain form is quadratic

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kLongestInput) return 0;
  const std::string line(reinterpret_cast<const char*>(data), size);
  if (!requite::test::EmailCollector(line).AllRight) std::abort();
  return 0;
}
