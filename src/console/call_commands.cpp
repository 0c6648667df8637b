// SPDX-License-Identifier: MIT
// The scan's state by its names, and single operations on it.
#include "console/call_commands.h"

#include "model/url_forms.h"
#include "scan/resolve.h"
#include "scan/rules.h"
#include "scan/seen_url.h"

namespace requite {
namespace {

std::string Text(bool value) { return value ? "True" : "False"; }
std::string Text(std::int16_t value) { return std::to_string(value); }
std::string Text(std::int32_t value) { return std::to_string(value); }
std::string Text(const std::string& value) { return value; }

struct Variable {
  std::string_view Name;
  std::string (*Read)(Form1& form);
};

#define REQUITE_VARIABLE(owner, field)                          \
  Variable {                                                    \
#field, [](Form1 & form) { return Text(form.owner.field); } \
  }
#define REQUITE_PAGE_VARIABLE(field)                                    \
  Variable {                                                            \
#field, [](Form1 & form) { return Text(form.State.Page(0).field); } \
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

/// An operation: its result as text. It may change its argument.
struct Operation {
  std::string_view Name;
  std::string (*Call)(Form1& form, std::string& argument);
};

constexpr Operation kOperations[] = {
    {"BareHost", [](Form1&, std::string& argument) { return BareHost(argument); }},
    {"ParentDir", [](Form1&, std::string& argument) { return ParentDir(argument); }},
    {"ResolveLink",
     [](Form1& form, std::string& argument) { return ResolveLink(form.Scan.Context(), argument); }},
    {"IsLinkToMainSite",
     [](Form1& form, std::string& argument) {
       return Text(IsLinkToMainSite(form.Scan.Context(), argument));
     }},
    {"IsOnLinkingSite",
     [](Form1& form, std::string& argument) { return Text(IsOnLinkingSite(form.Scan.Context(), argument)); }},
    {"IsSameDomain",
     [](Form1& form, std::string& argument) { return Text(IsSameDomain(form.Scan.Context(), argument)); }},
    {"IsSeenUrl",
     [](Form1& form, std::string& argument) { return Text(IsSeenUrl(form.Scan.Context(), argument)); }},
    {"PassesRules",
     [](Form1& form, std::string& argument) { return Text(PassesRules(form.Scan.Context(), argument)); }},
    {"GenerateLinkReport",
     [](Form1& form, std::string&) {
       form.GenerateLinkReport();
       return std::string();
     }},
};

}  // namespace

Complaint PrintVariable(ScriptSession& session, const Words& words) {
  for (const Variable& each : kVariables) {
    if (each.Name != words[0]) continue;
    session.Program.PrintLine(each.Read(session.Program.Form1));
    return {};
  }
  return "there is no variable \"" + words[0] + "\"";
}

Complaint CallOperation(ScriptSession& session, const Words& words) {
  for (const Operation& each : kOperations) {
    if (each.Name != words[0]) continue;
    std::string argument = words.size() > 1 ? session.Program.Codec.FromUtf8(words[1]) : std::string();
    const std::string result = each.Call(session.Program.Form1, argument);
    session.Program.PrintLine({result, argument});
    return {};
  }
  return "there is no operation \"" + words[0] + "\"";
}

}  // namespace requite
