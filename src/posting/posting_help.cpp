// SPDX-License-Identifier: MIT
// The two help boxes of the posting tabs.
#include "platform/schemes.h"
#include "platform/text.h"
#include "posting/posting.h"

namespace requite {
namespace {

// Example hosts, which nobody owns.
constexpr std::string_view kMainHost = "main-site.example";
constexpr std::string_view kLinkingHost = "linking-site.example";
constexpr std::string_view kScriptUrl =
    "http://script-host.example/getlinks.asp?mySite=$MainSite&&myURL=$LinkingSite&&myStatus=$Status"
    "&&myLinkPage=$FoundOn";

constexpr std::string_view kEncoded =
    "These values will be URL Encoded in order to keep the integrity of the posting link.";
constexpr std::string_view kByCreating =
    "By creating a script enabled page (getlinks.asp in the above example) you can grab the results from "
    "the URL when it is hit, and manipulate items in a link database or create an entire link page on the "
    "fly based on these values.";

std::string LinkPage() { return std::string(kLinkingHost) + "/links.htm"; }

/// `filled` is the script URL with its variables replaced.
std::string FixedExample(const std::string& filled) {
  return "Each place there is a variable (starting with a $) in your script URL it will be replaced by "
         "actual "
         "information from your results list.  The software will modify and hit your URL once for each item "
         "in your results list, triggering your script for each item.\r\n"
         "\r\n"
         "For example, if your results list contained the following four items:\r\n"
         "\r\n"
         "Main Site: " +
         std::string(kMainHost) + "\r\nLinking Site: " + std::string(kLinkingHost) +
         "\r\nStatus: Direct Link\r\nActual Link URL: " + LinkPage() + "\r\n\r\n" + std::string(kScriptUrl) +
         "\r\nwould become\r\n" + filled + "\r\n\r\n";
}

}  // namespace

std::string Posting::WithSamples(std::string script) {
  return FillAll(std::move(script), {std::string(kMainHost), std::string(kLinkingHost), "True", LinkPage()});
}

void Posting::cmdVariables() {
  needs_.Dialogs.Show(
      {"Where ever you place the following variables in your link, the software will replace them with the "
       "actual results of your scan, and hit the resulting url once, for each item in your results list."
       "\r\n\r\n"
       "$MainSite - Inserts the Domain/URL of your Main Site \r\n"
       "$LinkingSite - Inserts the Domain/URL from your Remote Site List\r\n"
       "$Status - Inserts 'True' if a reciprocal link was found, otherwise inserts 'False'\r\n"
       "$FoundOn - Inserts the Domain/URL of the page a reciprocal link was found on"
       "\r\n\r\n",
       "URL Variables" + TitleTail(kEncoded), Buttons::Ok, BoxIcon::None});
}

void Posting::cmdExample() {
  needs_.Dialogs.Show({FixedExample(WithSamples(std::string(kScriptUrl))) + PersonalExample(),
                       "URL Example" + TitleTail(kByCreating), Buttons::Ok, BoxIcon::None});
}

// The main window shows the second sentence in the title instead of the text; the import windows leave it
// out.
std::string MainPosting::TitleTail(std::string_view sentence) const {
  return "\r\n\r\n" + std::string(sentence);
}

std::string ImportPosting::PersonalExample() const {
  const std::string& script = tab_.txtPost.Text();
  if (script.empty() || script == kHttp) {
    return "\r\n\r\nEnter a test URL and click this button again to see it's variables replaced.";
  }
  return "\r\n\r\nIf the same site existed in your results list, the URL you entered\r\n" + script +
         "\r\nwould become\r\n" + WithSamples(script) + "\r\nAfter replacing all variables in your URL.";
}

}  // namespace requite
