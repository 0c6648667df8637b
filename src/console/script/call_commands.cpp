// SPDX-License-Identifier: MIT
// The tables of variables and operations.
#include "console/script/call_commands.h"

#include <algorithm>
#include <iterator>

#include "model/url_forms.h"
#include "platform/text.h"
#include "posting/url_encode.h"
#include "scan/resolve.h"
#include "scan/rules.h"
#include "scan/seen_url.h"
#include "shell/harvest_windows/form3.h"

namespace requite {
namespace {

std::string Text(bool value) { return value ? "True" : "False"; }
std::string Text(std::int16_t value) { return std::to_string(value); }
std::string Text(std::int32_t value) { return std::to_string(value); }
std::string Text(ScanType value) { return Text(static_cast<std::int16_t>(value)); }
std::string Text(const std::string& value) { return value; }

struct Variable {
  std::string_view Name;
  std::string (*Read)(Form1& form);
};

#define REQUITE_VARIABLE(owner, field)                          \
  Variable {                                                    \
#field, [](Form1 & form) { return Text(form.owner.field); } \
  }
#define REQUITE_PAGE_VARIABLE(field)                                 \
  Variable {                                                         \
#field, [](Form1 & form) { return Text(form.State.Page.field); } \
  }

constexpr Variable kVariables[] = {
    REQUITE_VARIABLE(State, Scanning),
    REQUITE_VARIABLE(State, ScanType),
    REQUITE_VARIABLE(State, SiteRow),
    REQUITE_VARIABLE(State, CurrentLinkingUrl),
    REQUITE_VARIABLE(State, MainSiteKey),
    REQUITE_VARIABLE(State, LinksExpected),
    REQUITE_VARIABLE(State, LinksCounted),
    REQUITE_VARIABLE(State, LinksOnSite),
    REQUITE_VARIABLE(State, LinkNumber),
    REQUITE_VARIABLE(State, LinkFound),
    REQUITE_VARIABLE(State, PagesDone),
    REQUITE_VARIABLE(State, PagesQueued),
    REQUITE_VARIABLE(State, SitesDone),
    REQUITE_VARIABLE(State, PageLimit),
    REQUITE_VARIABLE(State, TimeoutSeconds),
    REQUITE_VARIABLE(State, ReasonNote),
    REQUITE_VARIABLE(State, RedirectPage),
    REQUITE_VARIABLE(State, RedirectSuspected),
    REQUITE_VARIABLE(State, SkipRequested),
    REQUITE_VARIABLE(State, RedirectFollowed),
    REQUITE_VARIABLE(State, PageUrl),
    REQUITE_VARIABLE(State, PageFull),
    REQUITE_VARIABLE(State, PageDir),
    REQUITE_VARIABLE(State, AutoSaveTicks),
    REQUITE_PAGE_VARIABLE(PageHost),
    REQUITE_PAGE_VARIABLE(PagePath),
    REQUITE_PAGE_VARIABLE(RecvBuffer),
    REQUITE_PAGE_VARIABLE(BytesReceived),
    REQUITE_PAGE_VARIABLE(ContentLength),
    REQUITE_PAGE_VARIABLE(HeaderSeen),
    REQUITE_PAGE_VARIABLE(TimeoutTicks),
    REQUITE_VARIABLE(Sites, CurrentMainSite),
    REQUITE_VARIABLE(Sites, ProjectSaved),
    REQUITE_VARIABLE(Sites, JustLoaded),
    REQUITE_VARIABLE(Files, LastOpenWasProject),
    REQUITE_VARIABLE(Figures, PagesScanned),
    REQUITE_VARIABLE(Figures, PagesFound),
    REQUITE_VARIABLE(Figures, LinksFound),
    REQUITE_VARIABLE(Figures, HistoryPagesScanned),
    REQUITE_VARIABLE(Figures, HistoryLinksFound),
    REQUITE_VARIABLE(Figures, LinkingSitesScanned),
    REQUITE_VARIABLE(Figures, MainSitesScanned),
    {"SimpleViewFlag", [](Form1& form) { return Text(form.SimpleViewFlag); }},
    {"FileTypes",
     [](Form1& form) {
       std::string joined;
       for (const std::string& each : form.State.FileTypes) joined += (joined.empty() ? "" : "|") + each;
       return joined;
     }},
};

#undef REQUITE_VARIABLE
#undef REQUITE_PAGE_VARIABLE

/// Variables of a window, which exist only while it is loaded.
struct HarvestVariable {
  std::string_view Name;
  std::string (*Read)(const DomainHarvest& harvest);
};

#define REQUITE_HARVEST_VARIABLE(field)                                      \
  HarvestVariable {                                                          \
#field, [](const DomainHarvest& harvest) { return Text(harvest.field); } \
  }

constexpr HarvestVariable kHarvestVariables[] = {
    REQUITE_HARVEST_VARIABLE(SearchTerm),    REQUITE_HARVEST_VARIABLE(Engine),
    REQUITE_HARVEST_VARIABLE(TargetResults), REQUITE_HARVEST_VARIABLE(UniqueResults),
    REQUITE_HARVEST_VARIABLE(PageResults),   REQUITE_HARVEST_VARIABLE(ResultOffset),
    REQUITE_HARVEST_VARIABLE(SeenDomains),   REQUITE_HARVEST_VARIABLE(Finished),
};

#undef REQUITE_HARVEST_VARIABLE

/// The entry of a table with this name, or null.
template <class Entry, std::size_t Count>
const Entry* FindNamed(const Entry (&table)[Count], std::string_view name) {
  const Entry* const found =
      std::find_if(std::begin(table), std::end(table), [&](const Entry& each) { return each.Name == name; });
  return found == std::end(table) ? nullptr : found;
}

/// The value of a variable of Form3; nothing when Form3 is not loaded or has no such variable.
std::optional<std::string> ReadHarvestVariable(Form1& form, std::string_view name) {
  const auto* const window = dynamic_cast<Form3*>(form.Windows.Find("Form3"));
  const HarvestVariable* const variable = FindNamed(kHarvestVariables, name);
  if (window == nullptr || variable == nullptr) return std::nullopt;
  return variable->Read(window->Harvest);
}

/// Reads the page file of a connection as a scan would.
std::string ExtractEmails(Form1& form, std::string& argument) {
  const std::int16_t connection = ReadInt16(argument);
  const bool isInScan = form.State.Scanning;
  form.State.Scanning = true;
  form.Emails.ExtractEmails(connection);
  if (!isInScan) form.State.Scanning = false;
  return {};
}

SiteTests Sites(const Form1& form) { return SiteTests(form.Sites, form.State); }

/// An operation. It returns its result as text and may change its argument.
struct Operation {
  std::string_view Name;
  std::string (*Call)(Form1& form, std::string& argument);
};

constexpr Operation kOperations[] = {
    {"BareHost", [](Form1&, std::string& argument) { return BareHost(argument); }},
    {"ParentDir", [](Form1&, std::string& argument) { return ParentDir(argument); }},
    {"ResolveLink",
     [](Form1& form, std::string& argument) { return ResolveLink(form.State, form.Settings, argument); }},
    {"IsLinkToMainSite",
     [](Form1& form, std::string& argument) { return Text(Sites(form).IsLinkToMainSite(argument)); }},
    {"IsOnLinkingSite",
     [](Form1& form, std::string& argument) { return Text(Sites(form).IsOnLinkingSite(argument)); }},
    {"IsSameDomain",
     [](Form1& form, std::string& argument) { return Text(Sites(form).IsSameDomain(argument)); }},
    {"IsSeenUrl",
     [](Form1& form, std::string& argument) {
       return Text(IsSeenUrl(form.Sites, form.Lists.List2, form.State, argument));
     }},
    {"PassesRules",
     [](Form1& form, std::string& argument) {
       return Text(Rules(form.Sites, form.State, form.Settings, form.Folder).PassesRules(argument));
     }},
    {"UrlEncodeValue", [](Form1&, std::string& argument) { return UrlEncodeValue(argument); }},
    {"IsValidEmail",
     [](Form1& form, std::string& argument) { return Text(form.Emails.IsValidEmail(argument)); }},
    {"EmailExists",
     [](Form1& form, std::string& argument) { return Text(form.Database.EmailExists(argument)); }},
    {"AddWebsite",
     [](Form1& form, std::string& argument) { return Text(form.Database.AddWebsite(argument)); }},
    {"DeleteAllEmails", [](Form1& form, std::string&) { return Text(form.Database.DeleteAllEmails()); }},
    {"DeleteAllWebsites", [](Form1& form, std::string&) { return Text(form.Database.DeleteAllWebsites()); }},
    {"ExtractEmails", ExtractEmails},
    {"GenerateLinkReport",
     [](Form1& form, std::string&) {
       form.GenerateLinkReport();
       return std::string();
     }},
};

template <class Table>
void AddNames(const Table& table, std::vector<std::string_view>& names) {
  for (const auto& each : table) names.push_back(each.Name);
}

}  // namespace

std::vector<std::string_view> VariableNames() {
  std::vector<std::string_view> names;
  AddNames(kVariables, names);
  AddNames(kHarvestVariables, names);
  return names;
}

std::vector<std::string_view> OperationNames() {
  std::vector<std::string_view> names;
  AddNames(kOperations, names);
  return names;
}

Complaint PrintVariable(ScriptSession& session, const Words& words) {
  Form1& form = session.Program.Form1;
  const Variable* const variable = FindNamed(kVariables, words[0]);
  const std::optional<std::string> value =
      variable == nullptr ? ReadHarvestVariable(form, words[0]) : variable->Read(form);
  if (!value) return "there is no variable \"" + words[0] + "\"";
  session.Program.PrintLine(*value);
  return {};
}

Complaint CallOperation(ScriptSession& session, const Words& words) {
  const Operation* const operation = FindNamed(kOperations, words[0]);
  if (operation == nullptr) return "there is no operation \"" + words[0] + "\"";
  std::string argument = words.size() > 1 ? session.Program.Codec.FromUtf8(words[1]) : std::string();
  const std::string result = operation->Call(session.Program.Form1, argument);
  session.Program.PrintLine({result, argument});
  return {};
}

}  // namespace requite
