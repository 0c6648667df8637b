// SPDX-License-Identifier: MIT
// Every name of the web leads to a port of this machine.
#include "hostile/hostile_web.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "hostile/secure_acts.h"
#include "platform/files.h"
#include "qt/services/code_page.h"

namespace requite::hostile {

HostilePort::HostilePort(const Act& act, std::uint16_t (*closed)()) : closed_(closed) {
  if (!act) return;
  server_ = std::make_unique<test::LocalServer>([this, act](ServedConnection& peer) {
    ++connections_;
    act(peer);
  });
}

HostileServer::HostileServer(const Behaviour& row) : Plain(row.Act, test::RefusingPort) {
  if (row.Secure) Secure = std::make_unique<HostilePort>(row.Secure->Act, row.Secure->Closed);
}

HostileWeb::HostileWeb(std::vector<Behaviour> rows) : rows_(std::move(rows)) {
  for (const Behaviour& row : rows_) servers_.push_back(std::make_unique<HostileServer>(row));
  WriteFile(folder_.File("filetypes.txt"), ".htm\r\n.php\r\n");
  WriteFile(folder_.File("authorities.pem"), TrustedAuthority());
  std::string project = Joined({kMainSite, "\r\n"});
  for (const Behaviour& row : rows_) {
    project += row.SiteName() + "|" + std::to_string(row.LinksExpected) + "|||\r\n";
  }
  WriteFile(folder_.File("a.prj"), project + "HTML01:x\r\n\r\n");
}

std::vector<std::string> HostileWeb::Arguments(const std::string& script, int timeout) const {
  WriteFile(folder_.File("s.txt"), script);
  ::setenv("SSL_CERT_FILE", folder_.File("authorities.pem").c_str(), 1);
  ::setenv("SSL_CERT_DIR", "", 1);
  std::vector<std::string> all = {"script",           folder_.File("s.txt"),
                                  "--settings",       folder_.File("settings"),
                                  "--program-folder", folder_.Folder.Path};
  for (const std::string& setting : {"txtTimeout=" + std::to_string(timeout), std::string("cmbAdvance=1"),
                                     std::string("showHelp=0"), "LastProject=" + folder_.File("a.prj")}) {
    all.insert(all.end(), {"--set", setting});
  }
  const auto lead = [&all](const std::string& from, std::uint16_t port) {
    all.insert(all.end(), {"--connect-to", from + ":127.0.0.1:" + std::to_string(port)});
  };
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const std::string site = ToUtf8(rows_[i].SiteName());
    lead(site + ":80", servers_[i]->Plain.Number());
    if (servers_[i]->Secure) lead(site + ":443", servers_[i]->Secure->Number());
  }
  lead(":", test::RefusingPort());
  const auto isSecure = [](const Behaviour& row) { return row.Secure.has_value(); };
  if (std::any_of(rows_.begin(), rows_.end(), isSecure)) all.emplace_back("--secure");
  return all;
}

}  // namespace requite::hostile
