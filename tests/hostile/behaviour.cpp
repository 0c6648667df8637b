// SPDX-License-Identifier: MIT
// The acts that many behaviours share.
#include "hostile/behaviour.h"

#include <chrono>
#include <thread>
#include <utility>

namespace requite::hostile {
namespace {

constexpr std::size_t kFloodPiece = 256 * 1024;
/// Lets what was sent arrive before the connection breaks: a reset takes back what nobody has read.
constexpr std::chrono::milliseconds kBeforeReset{100};

}  // namespace

std::string Joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text.append(piece);
  return text;
}

std::string Times(std::size_t count, std::string_view text) {
  std::string all;
  all.reserve(count * text.size());
  for (; count > 0; --count) all.append(text);
  return all;
}

Act Answer(std::string bytes) {
  return [bytes = std::move(bytes)](ServedConnection& peer) {
    peer.ReadRequest();
    peer.Send(bytes);
  };
}

Act Page(std::string body) { return Answer(Joined({kHeader, body})); }

Act WithHeader(std::string_view lines, std::string_view body) {
  return Answer(Joined({lines, "\r\n", body}));
}

Act AnswerAndStay(std::string bytes) {
  return [bytes = std::move(bytes)](ServedConnection& peer) {
    peer.ReadRequest();
    peer.Send(bytes);
    peer.WaitForPeer();
  };
}

Act AnswerAndReset(std::string bytes) {
  return [bytes = std::move(bytes)](ServedConnection& peer) {
    peer.ReadRequest();
    peer.Send(bytes);
    std::this_thread::sleep_for(kBeforeReset);
    peer.Reset();
  };
}

Act AnswerForEver(std::string bytes, std::string_view piece) {
  return [bytes = std::move(bytes),
          flood = Times(kFloodPiece / piece.size() + 1, piece)](ServedConnection& peer) {
    peer.ReadRequest();
    peer.Send(bytes);
    while (peer.Send(flood)) {
    }
  };
}

std::string PathOf(std::string_view request) {
  const std::size_t blank = request.find(' ');
  return blank == std::string_view::npos
             ? std::string()
             : std::string(request.substr(blank + 1, request.find(" HTTP/1.1\r\n") - blank - 1));
}

}  // namespace requite::hostile
