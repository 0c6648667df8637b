// SPDX-License-Identifier: MIT
// The steps of `requite-console import`, by the commands of the window.
#include "console/import_command.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <ostream>
#include <unordered_set>

#include "console/partner_table.h"
#include "model/project_reader.h"
#include "model/url_forms.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kLargestTable = std::size_t{64} << 20U;

/// The bytes of the table, or what is wrong.
std::variant<std::vector<Partner>, std::string> ReadTable(const std::string& path, const TextCodec& codec) {
  std::ifstream file;
  if (path != kStandardStream) {
    file.open(path, std::ios::binary);
    if (!file) return std::strerror(errno);
  }
  std::istream& in = path == kStandardStream ? std::cin : file;
  std::string text;
  std::array<char, 65536> piece{};
  while (in.read(piece.data(), piece.size()) || in.gcount() > 0) {
    text.append(piece.data(), static_cast<std::size_t>(in.gcount()));
    if (text.size() > kLargestTable) return "is larger than 64 MiB";
  }
  return ReadPartners(text, codec);
}

/// Why a project file cannot be added to without a loss, or an empty text. A missing one can.
std::string WhyNotAddedTo(const std::string& path) {
  if (!FileExists(path)) return {};
  try {
    const std::string text = ReadFile(path);
    Project project;
    std::size_t line = 0;
    if (text.empty() || ReadProjectText(text, project, &line)) return {};
    return "is damaged: line " + std::to_string(line) + " cannot be read";
  } catch (const RuntimeFailure& failure) {
    return failure.Description;
  }
}

/// Two addresses are the same site when only the scheme, a leading "www.", a slash at the end or the letter
/// case differs.
std::string SiteKey(std::string address) {
  NormaliseMainSite(address);
  if (address.ends_with('/')) address.pop_back();
  return Lower(address);
}

/// Selects the Main Site, which is added when the project does not have it. Returns false when there is no
/// room.
bool SelectMainSite(Form1& form, const std::string& mainSite) {
  const RecordList<MainSite>& sites = form.Sites.List4;
  for (std::size_t row = 0; row < sites.RowCount(); ++row) {
    if (SiteKey(sites.At(row).Text) != SiteKey(mainSite)) continue;
    form.Editing.SelectMainSite(static_cast<int>(row));
    return true;
  }
  const std::size_t before = sites.RowCount();
  form.txtDomain.SetText(mainSite);
  form.Editing.cmdAdd2();
  return sites.RowCount() > before;
}

/// Adds the site as the window's Add does, which knows only its address, then sets the other fields.
void Add(Form1& form, LinkingSiteList& sites, const LinkingSite& site) {
  form.Text1.SetText(site.WebsiteUrl);
  form.Editing.cmdAdd();
  const std::size_t row = sites.RowCount() - 1;
  for (const auto field : {&LinkingSite::LinksExpected, &LinkingSite::LinkPageUrl, &LinkingSite::LinkPageText,
                           &LinkingSite::Description}) {
    sites.Set(row, field, site.*field);
  }
}

struct Counts {
  std::size_t Added = 0;
  std::size_t Known = 0;
};

Counts AddAll(ConsoleProgram& program, const std::vector<Partner>& partners, bool quiet) {
  Form1& form = program.Form1;
  LinkingSiteList& sites = form.Sites.List1(form.Sites.CurrentMainSite);
  std::unordered_set<std::string> known;
  for (std::size_t row = 0; row < sites.RowCount(); ++row) known.insert(SiteKey(sites.At(row).WebsiteUrl));
  Counts counts;
  for (const Partner& partner : partners) {
    if (known.insert(SiteKey(partner.Site.WebsiteUrl)).second) {
      Add(form, sites, partner.Site);
      ++counts.Added;
      continue;
    }
    ++counts.Known;
    if (quiet) continue;
    program.Complain("line " + std::to_string(partner.Line) + ": " +
                     program.Outside(partner.Site.WebsiteUrl) + " is in the list already");
  }
  return counts;
}

void Tell(ConsoleProgram& program, const Counts& counts) {
  program.Err << counts.Added << (counts.Added == 1 ? " site added" : " sites added");
  if (counts.Known > 0) {
    program.Err << ", " << counts.Known << (counts.Known == 1 ? " was" : " were") << " in the list already";
  }
  program.Err << std::endl;
}

}  // namespace

ExitStatus RunImport(ConsoleProgram& program, const ImportOptions& options, bool quiet) {
  const auto refuse = [&program](const std::string& path, const std::string& why) {
    program.Complain((path == kStandardStream ? "standard input" : '"' + path + '"') + ": " + why);
    return ExitStatus::Refused;
  };
  const bool isNew = !FileExists(options.Project);
  const auto table = ReadTable(options.Table, program.Codec);
  if (const auto* why = std::get_if<std::string>(&table)) return refuse(options.Table, *why);
  if (const std::string why = WhyNotAddedTo(options.Project); !why.empty()) {
    return refuse(options.Project, why);
  }

  Form1& form = program.Form1;
  form.StartWithoutProject();
  if (isNew) {
    form.Files.cmdNew();
  } else {
    form.Files.LoadProject(options.Project);
  }
  if (!SelectMainSite(form, program.Codec.FromUtf8(options.MainSite))) {
    return refuse(options.Project, "has no room for another Main Site");
  }
  const Counts counts = AddAll(program, std::get<std::vector<Partner>>(table), quiet);
  try {
    if (counts.Added > 0) form.Files.SaveProject(options.Project);
  } catch (const RuntimeFailure& failure) {
    const bool inBackup = !isNew && !FileExists(options.Project);
    return refuse(options.Project,
                  failure.Description + (inBackup ? "; the project as it was is in the folder Backup" : ""));
  }
  if (!quiet) Tell(program, counts);
  return ExitStatus::Done;
}

}  // namespace requite
