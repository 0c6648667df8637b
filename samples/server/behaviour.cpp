// SPDX-License-Identifier: MIT
// Reading the files that say how a site answers.
#include "behaviour.h"

#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace requite::samples {
namespace {

constexpr std::array<std::pair<std::string_view, Behaviour>, 14> kWords{{
    {"plain", Behaviour::Plain},
    {"move", Behaviour::Move},
    {"redirect", Behaviour::Redirect},
    {"never-closes", Behaviour::NeverCloses},
    {"silence", Behaviour::Silence},
    {"chunked", Behaviour::Chunked},
    {"trickle", Behaviour::Trickle},
    {"gzip", Behaviour::Gzip},
    {"reset", Behaviour::Reset},
    {"no-header-end", Behaviour::NoHeaderEnd},
    {"nul-bytes", Behaviour::NulBytes},
    {"endless-header", Behaviour::EndlessHeader},
    {"endless-body", Behaviour::EndlessBody},
    {"echo", Behaviour::Echo},
}};

Behaviour BehaviourOf(std::string_view word) {
  for (const auto& [name, behaviour] : kWords) {
    if (name == word) return behaviour;
  }
  throw std::runtime_error("no behaviour has the name " + std::string(word));
}

}  // namespace

std::optional<Instruction> FindInstruction(const std::filesystem::path& site, std::string_view path) {
  std::ifstream file(site / "responses.txt");
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::istringstream words(line);
    std::string linePath;
    std::string behaviour;
    Instruction instruction;
    if (!(words >> linePath >> instruction.Status >> behaviour)) {
      throw std::runtime_error("not understood: " + line);
    }
    instruction.Behaviour = BehaviourOf(behaviour);
    words >> instruction.Value;
    if (linePath == path) return instruction;
    if (linePath == "*") {
      instruction.Value += path;
      return instruction;
    }
  }
  return std::nullopt;
}

std::optional<CertificateWish> FindCertificate(const std::filesystem::path& site) {
  std::ifstream file(site / "certificate.txt");
  if (!file) return std::nullopt;
  CertificateWish wish;
  for (std::string word; file >> word;) {
    if (word == "expired") {
      wish.Expired = true;
    } else {
      wish.Names.push_back(word);
    }
  }
  return wish;
}

}  // namespace requite::samples
