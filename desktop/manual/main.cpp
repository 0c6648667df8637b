// SPDX-License-Identifier: MIT
// Writes the manual pages and the completion of three shells into a folder; runs while the program is built.
// Usage: requite-manual FOLDER
#include <filesystem>
#include <fstream>
#include <iostream>

#include "manual/programs.h"
#include "shell/product.h"

namespace {

bool WriteText(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  if (!file) std::cerr << "requite-manual: cannot write " << path << std::endl;
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: requite-manual FOLDER" << std::endl;
    return 2;
  }
  using namespace requite;
  const std::filesystem::path folder = argv[1];
  const std::string source = std::string(product::kName) + " " + std::string(product::kVersion);
  const ProgramFacts window = FactsOfWindow();
  const ProgramFacts console = FactsOfConsole();
  bool written = WriteText(folder / "man1/requite.1", WindowPage(window, source)) &&
                 WriteText(folder / "man1/requite-console.1", ConsolePage(console, source));
  for (const ProgramFacts& program : {window, console}) {
    written = written && WriteText(folder / "bash" / program.Name, BashCompletion(program)) &&
              WriteText(folder / "zsh" / ("_" + program.Name), ZshCompletion(program)) &&
              WriteText(folder / "fish" / (program.Name + ".fish"), FishCompletion(program));
  }
  return written ? 0 : 1;
}
