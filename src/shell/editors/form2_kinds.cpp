// SPDX-License-Identifier: MIT
// Titles, fields and tool tips of the three editors.
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
    // The description has the tool tip of the link text and is the only box in which Enter does nothing.
    // Scripts that print tool tips or press Enter depend on both.
    {"Description:", kLinkTextTip, EnterKey::Nothing},
};

constexpr EditorField kMainSiteFields[] = {{"Main Site URL:", "", EnterKey::Acts}};

}  // namespace

const EditorKind kForm2{
    "Form2", "Edit an entry", "Edit rules for this remote site:", "", kLinkingSiteFields, true,
    true,    EnterKey::Acts};

// Enter in the value adds a rule only in the editor of a Linking Site. Scripts that press Enter in the
// other two count on nothing being added.
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
