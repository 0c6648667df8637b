// SPDX-License-Identifier: MIT
// Random texts out of given pieces.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace requite::test {

inline std::string RandomText(std::mt19937& random, const std::vector<std::string>& pieces,
                              std::size_t most) {
  std::string text;
  for (std::size_t left = random() % (most + 1); left > 0; --left) text += pieces[random() % pieces.size()];
  return text;
}

}  // namespace requite::test
