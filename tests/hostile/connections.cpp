// SPDX-License-Identifier: MIT
// Servers that are silent, slow, or that end a connection in a wrong place.
#include <algorithm>
#include <chrono>
#include <thread>

#include "hostile/behaviour.h"

namespace requite::hostile {
namespace {

using std::chrono::milliseconds;

void Pause(milliseconds time) { std::this_thread::sleep_for(time); }

const std::string kHalfAnHeader = "HTTP/1.1 200 OK\r\nContent-Ty";
const std::string kHalfAPage = Joined({kHeader, "<html><body>", kLink, "<p>and "});

void SendInPieces(ServedConnection& peer, std::string_view bytes, std::size_t piece, milliseconds pause) {
  for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size()))) {
    if (!peer.Send(bytes.substr(0, piece))) return;
    Pause(pause);
  }
}

}  // namespace

std::vector<Behaviour> SilentServers() {
  return {
      {"nobody-listens", kTimeout, {}},
      {"no-answer", kTimeout, AnswerAndStay("")},
      {"silence-in-page", kTimeout, AnswerAndStay(kHalfAPage)},
      {"never-closes", kTimeout, AnswerAndStay(Joined({kHeader, kLink}))},
      {"links-to-silence", kTimeout,
       [](ServedConnection& peer) {
         if (PathOf(peer.ReadRequest()) == "/") {
           peer.Send(Joined({kHeader, "<a href=\"http://links-to-silence.example:81/x.htm\">"}));
         }
       }},
  };
}

std::vector<Behaviour> BrokenConnections() {
  return {
      {"reset-at-once", kTimeout, [](ServedConnection& peer) { peer.Reset(); }},
      {"reset-in-page", kTimeout, AnswerAndReset(kHalfAPage)},
      {"ends-before-request", kNotFound,
       [](ServedConnection& peer) {
         peer.EndSending();
         peer.WaitForPeer();
       }},
      {"ends-without-answer", kNotFound, Answer("")},
      {"ends-in-page", kFound, Answer(kHalfAPage)},
      {"answers-before-request", kFound,
       [](ServedConnection& peer) {
         peer.Send(Joined({kHeader, kLink}));
         peer.EndSending();
         peer.WaitForPeer();
       }},
      {"urgent-byte", kFound,
       [](ServedConnection& peer) {
         peer.ReadRequest();
         peer.Send(kHeader);
         peer.SendUrgent('!');
         peer.Send(kLink);
       }},
      {"one-byte-at-a-time", kFound,
       [](ServedConnection& peer) {
         peer.ReadRequest();
         SendInPieces(peer, Joined({kHeader, kLink}), 1, milliseconds(1));
       }},
      // Longer than the time-out in all, but never silent for that long.
      {"slow-drip", kFound,
       [](ServedConnection& peer) {
         peer.ReadRequest();
         SendInPieces(peer, Joined({kHeader, kLink}), 20, milliseconds(600));
       }},
  };
}

}  // namespace requite::hostile
