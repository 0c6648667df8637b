// SPDX-License-Identifier: MIT
// The encoding of one value, byte by byte.
#include "posting/url_encode.h"

#include "platform/schemes.h"

namespace requite {
namespace {

bool GoesAsItIs(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '.' || c == '-' ||
         c == '_' || c == '*';
}

}  // namespace

std::string UrlEncodeValue(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string rest(text);
  std::string encoded;
  if (RemoveHttp(rest)) encoded = kHttp;
  encoded.reserve(encoded.size() + rest.size());
  for (const char c : rest) {
    if (GoesAsItIs(c)) {
      encoded += c;
    } else if (c == ' ') {
      encoded += '+';
    } else {
      const auto code = static_cast<unsigned char>(c);
      encoded += {'%', digits[code / 16], digits[code % 16]};
    }
  }
  return encoded;
}

}  // namespace requite
