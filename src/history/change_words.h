// SPDX-License-Identifier: MIT
// A change in words, as the console prints it and the window lists it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "history/change_list.h"
#include "model/records.h"

namespace requite {

/// One line of the table of changes, in the code page.
struct ChangeLine {
  std::string Change;
  std::string Main;
  std::string Linking;
  std::string Before;
  std::string Now;
  std::string Since;
  std::int64_t Row = 0;  ///< of the site, in the history; in no column

  static constexpr std::array<Column<ChangeLine>, 6> Columns() {
    return {{{"Change", &ChangeLine::Change},
             {"Main Site", &ChangeLine::Main},
             {"Linking Site", &ChangeLine::Linking},
             {"Before", &ChangeLine::Before},
             {"Now", &ChangeLine::Now},
             {"Since", &ChangeLine::Since}}};
  }
};

[[nodiscard]] ChangeLine LineOf(const SiteChange& change);

}  // namespace requite
