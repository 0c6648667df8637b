// SPDX-License-Identifier: MIT
// The records of a project. Every field is a text, and records refer to sites by their texts.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace requite {

/// One column of a view: its caption and the field that it shows.
template <class Record>
struct Column {
  std::string_view Caption;
  std::string Record::*Field;
};

/// One of the user's own sites, as typed.
struct MainSite {
  std::string Text;

  static constexpr std::array<Column<MainSite>, 1> Columns() { return {{{"Main Site", &MainSite::Text}}}; }
};

/// A remote site that should link back.
struct LinkingSite {
  std::string WebsiteUrl;
  std::string LinksExpected = "1";
  std::string LinkPageUrl;
  std::string LinkPageText;
  std::string Description;

  static constexpr std::array<Column<LinkingSite>, 5> Columns() {
    return {{{"Website", &LinkingSite::WebsiteUrl},
             {"#", &LinkingSite::LinksExpected},
             {"HTML Link", &LinkingSite::LinkPageUrl},
             {"HTML Name", &LinkingSite::LinkPageText},
             {"Description", &LinkingSite::Description}}};
  }
};

/// In a site field of a rule: every site.
inline constexpr std::string_view kGlobal = "Global";

/// One crawl rule.
struct Rule {
  std::string MainSite;    ///< the text of a Main Site, or kGlobal
  std::string RemoteSite;  ///< a Website URL, or kGlobal
  std::string RuleType;
  std::string RuleValue;

  static constexpr std::array<Column<Rule>, 4> Columns() {
    return {{{"MainSite", &Rule::MainSite},
             {"RemoteSite", &Rule::RemoteSite},
             {"RuleType", &Rule::RuleType},
             {"RuleValue", &Rule::RuleValue}}};
  }
};

/// One row of what a scan found.
struct LinkResult {
  std::string Main;
  std::string Linking;
  std::string Status;
  std::string No;
  std::string LinkUrl;

  static constexpr std::array<Column<LinkResult>, 5> Columns() {
    return {{{"Main", &LinkResult::Main},
             {"Linking", &LinkResult::Linking},
             {"Status", &LinkResult::Status},
             {"No.", &LinkResult::No},
             {"Link URL", &LinkResult::LinkUrl}}};
  }
};

/// All values of LinkResult::Status. Some are followed by more text.
namespace status {
inline constexpr std::string_view kDirect = "Direct Link";
inline constexpr std::string_view kIndirect = "Indirect Link";  // only in files, no scan writes it
inline constexpr std::string_view kRedirect = "Redirect Link";
inline constexpr std::string_view kDomain = "Domain Link";
inline constexpr std::string_view kNoneFound = "None Found";
inline constexpr std::string_view kMissing = "Missing ";
}  // namespace status

inline constexpr int kIconBad = 1;
inline constexpr int kIconGood = 2;

/// One row of the Errors/Warnings list.
struct ErrorEntry {
  std::string Error;
  std::string Url;

  static constexpr std::array<Column<ErrorEntry>, 2> Columns() {
    return {{{"Error", &ErrorEntry::Error}, {"URL", &ErrorEntry::Url}}};
  }
};

/// The script URL of one Main Site.
struct ScriptUrlEntry {
  std::string MainSite;
  std::string ScriptUrl;

  static constexpr std::array<Column<ScriptUrlEntry>, 2> Columns() {
    return {{{"Main Site", &ScriptUrlEntry::MainSite}, {"Script URL", &ScriptUrlEntry::ScriptUrl}}};
  }
};

/// A page to be scanned.
struct QueuedPage {
  std::string Url;

  static constexpr std::array<Column<QueuedPage>, 1> Columns() { return {{{"Page", &QueuedPage::Url}}}; }
};

}  // namespace requite
