// SPDX-License-Identifier: MIT
// The main window over fakes with a database of its own, which is looked into with plain SQL.
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "shell/harvest_windows/form3.h"
#include "shell/main_window/form1_rig.h"

namespace requite::test {

struct HarvestRig : Form1Rig {
  HarvestRig() { std::filesystem::copy_file(REQUITE_EMPTY_DATABASE, Database()); }

  [[nodiscard]] std::string Database() const { return Folder.File("spider.mdb"); }

  /// The rows that a statement gives, fields joined by "|", each row ended by ";". What the engine refuses is
  /// told in words.
  std::string Sql(const std::string& statement) {
    sqlite3* file = nullptr;
    sqlite3_open(Database().c_str(), &file);
    std::string rows;
    const auto take = [](void* out, int count, char** values, char**) {
      std::string& text = *static_cast<std::string*>(out);
      for (int i = 0; i < count; ++i)
        text += (i > 0 ? "|" : "") + std::string(values[i] ? values[i] : "null");
      text += ";";
      return 0;
    };
    char* why = nullptr;
    sqlite3_exec(file, statement.c_str(), take, &rows, &why);
    if (why != nullptr) rows += why;
    sqlite3_free(why);
    sqlite3_close(file);
    return rows;
  }

  /// Reads a page for addresses in the middle of a scan.
  void ExtractEmails(const std::string& page) {
    WriteFile(Folder.File("html20.txt"), page + "\r\n");
    Form.State.Scanning = true;
    Form.State.LinksExpected = 1;  // of a site that has its links no page is taken any more
    Form.Emails.ExtractEmails(0);
  }

  /// Loads Form3 and lets it fetch until nothing more is asked for.
  void Harvest() {
    Form.Windows.Show("Form3");
    while (Services.Internet.AnswerNext()) {
    }
  }
};

}  // namespace requite::test
