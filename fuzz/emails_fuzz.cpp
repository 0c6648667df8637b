// SPDX-License-Identifier: MIT
// Any line, through the reading for addresses and through its plain wording: both must find the same
// candidates in the same order.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "harvest/email_line.h"
#include "support/plain_harvest.h"

namespace requite {
namespace {

constexpr std::size_t kLongestInput = 4000;  // the plain wording is quadratic

class Collector : public EmailLineReader {
 public:
  bool GoesOn(std::size_t) override { return true; }
  bool MayBeAddress(const std::string&, std::string_view) override { return true; }
  void TakeHalves(const std::string& left, std::string_view right) override {
    if (right.find('.') != std::string_view::npos) Candidates.push_back(left + "@" + CleanRight(right));
  }

  std::vector<std::string> Candidates;
};

}  // namespace
}  // namespace requite

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > requite::kLongestInput) return 0;
  const std::string line(reinterpret_cast<const char*>(data), size);
  requite::Collector collector;
  if (!ReadEmailLine(line, collector)) std::abort();
  if (collector.Candidates != requite::test::PlainCandidates(line)) std::abort();
  return 0;
}
