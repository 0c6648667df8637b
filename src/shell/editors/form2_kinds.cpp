// SPDX-License-Identifier: MIT
// The table of differences between the three editors.
#include "shell/editors/form2.h"

namespace requite {
namespace {

constexpr std::string_view kLinkTextTip =
    "Optional - Enter the link text you would to use for this site in your generated HTML pages.";

constexpr EditorField kLinkingSiteFields[] = {
    {"Website URL:", "Enter the URL of the website/page you want to search for links.", EnterKey::Acts},
    {"Links expected:", "Optional - Enter the number of links you expect to be on this site.  Default is 1.",
     EnterKey::Acts},
    {"Link Page URL:",
     "Optional - Enter the URL you would to use for this site in your generated HTML pages.", EnterKey::Acts},
    {"Link Page Text:", kLinkTextTip, EnterKey::Acts},
    // The description shares the words of the link text, and is the one box in which Enter does nothing.
    {"Description:", kLinkTextTip, EnterKey::Nothing},
};

constexpr EditorField kMainSiteFields[] = {{"Main Site URL:", "", EnterKey::Acts}};

}  // namespace

const EditorKind kForm2{
    "Form2", "Edit an entry", "Edit rules for this remote site:", "", kLinkingSiteFields, true,
    true,    EnterKey::Acts};

// Enter in the value adds a rule in the Linking Site's editor only. Kept as it is.
const EditorKind kForm2a{"Form2a",
                         "Edit an entry",
                         "Edit rules for this main site:",
                         "These rules will apply to all Linking Sites grouped with this Main Site",
                         kMainSiteFields,
                         true,
                         false,
                         EnterKey::Nothing};

const EditorKind kForm2b{"Form2b",
                         "Global Rules Editor",
                         "Edit Global Rules",
                         "These rules will apply globally to all sites",
                         {},
                         false,
                         false,
                         EnterKey::Nothing};

}  // namespace requite
