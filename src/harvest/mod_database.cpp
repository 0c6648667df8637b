// SPDX-License-Identifier: MIT
// The statements of the harvesters' store.
#include "harvest/mod_database.h"

#include "harvest/sql_file.h"
#include "platform/runtime_failure.h"
#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

/// SQLite counts the characters of a text up to a NUL only, so the length is checked here as well.
void RequireFieldLength(std::string_view value) {
  if (value.size() > modDatabase::kFieldLength) throw RuntimeFailure(Failure::InvalidArgument);
}

}  // namespace

bool modDatabase::AddWebsite(std::string& url) {
  RemoveSchemeRemains(url);
  PassOver([&] {
    RequireFieldLength(url);
    SqlFile(Path()).Run("INSERT INTO [websites] ([website], [date]) VALUES (?, ?)",
                        {url, clock_.IsoDateTime()});
  });
  return true;
}

bool modDatabase::AddEmail(const std::string& email) {
  return PassOver([&] {
    RequireFieldLength(email);
    SqlFile(Path()).Run("INSERT INTO [emails] ([email], [date]) VALUES (?, ?)",
                        {email, clock_.IsoDateTime()});
  });
}

bool modDatabase::EmailExists(std::string& email) {
  if (email.ends_with('.')) email.pop_back();
  email = std::string(Trim(email));
  bool exists = false;
  PassOver([&] {
    RequireFieldLength(email);
    SqlFile(Path()).ForEach("Select * FROM [emails] where [email]='" + email + "'", "email",
                            [&](std::string_view) {
                              exists = true;
                              return false;
                            });
  });
  return exists;
}

bool modDatabase::DeleteAllEmails() {
  PassOver([&] { SqlFile(Path()).Run("DELETE FROM [emails]"); });
  figures_.LinksFound = 0;
  return true;
}

bool modDatabase::DeleteAllWebsites() {
  SqlFile(Path()).Run("DELETE FROM [websites]");
  List2_.Clear();
  figures_.PagesFound = 0;
  figures_.PagesScanned = 0;
  return true;
}

void modDatabase::ForEachEmail(const std::function<void(std::string_view email)>& take) const {
  SqlFile(Path()).ForEach("Select * FROM [emails]", "email", [&](std::string_view email) {
    take(email);
    return true;
  });
}

}  // namespace requite
