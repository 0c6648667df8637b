// SPDX-License-Identifier: MIT
// A scan as the XML by which build servers show tests.
#include <algorithm>

#include "platform/quoting.h"
#include "platform/text.h"
#include "results/outcome.h"

namespace requite {
namespace {

using Site = ScanOutcome::Site;
using Sites = std::vector<Site>::const_iterator;

/// What a build server counts.
struct Tally {
  int Tests = 0;
  int Failures = 0;
  int Errors = 0;
  int Skipped = 0;
  std::chrono::milliseconds Took{0};

  void Add(const Tally& more) {
    Tests += more.Tests;
    Failures += more.Failures;
    Errors += more.Errors;
    Skipped += more.Skipped;
    Took += more.Took;
  }
};

std::string Attribute(const char* name, const std::string& utf8) {
  return std::string(" ") + name + "=\"" + XmlText(utf8) + '"';
}

std::string Seconds(std::chrono::milliseconds time) {
  constexpr int kInSecond = 1000;
  return std::to_string(time.count() / kInSecond) + '.' + ZeroPadded(time.count() % kInSecond, 3);
}

std::string Attributes(const Tally& tally) {
  return Attribute("tests", std::to_string(tally.Tests)) +
         Attribute("failures", std::to_string(tally.Failures)) +
         Attribute("errors", std::to_string(tally.Errors)) +
         Attribute("skipped", std::to_string(tally.Skipped)) + Attribute("time", Seconds(tally.Took));
}

std::string Message(const Site& site) {
  const std::string links = std::to_string(site.Found) + " of " + std::to_string(site.Expected) + " links";
  return site.Reason.empty() ? links : links + ": " + site.Reason;
}

/// The element that says why the site is no success, and the count that it raises.
std::string Verdict(const Site& site, Tally& tally) {
  if (site.LinksBack) return {};
  if (site.Skipped) {
    ++tally.Skipped;
    return "   <skipped" + Attribute("message", Message(site)) + "/>\n";
  }
  ++(site.Reached ? tally.Failures : tally.Errors);
  return std::string(site.Reached ? "   <failure" : "   <error") + Attribute("message", Message(site)) +
         Attribute("type", site.Reached ? "missing" : "not reached") + "/>\n";
}

std::string TestCase(const Site& site, Tally& tally) {
  ++tally.Tests;
  tally.Took += site.Took;
  std::string content = Verdict(site, tally);
  std::string links;
  for (const ScanOutcome::Link& link : site.Links) links += XmlText(link.Status + ": " + link.Url) + '\n';
  if (!links.empty()) content += "   <system-out>" + links + "</system-out>\n";
  return "  <testcase" + Attribute("classname", site.MainSite) + Attribute("name", site.LinkingSite) +
         Attribute("time", Seconds(site.Took)) + ">\n" + content + "  </testcase>\n";
}

std::string Suite(const std::string& name, const std::string& cases, const Tally& tally,
                  const ScanOutcome& outcome) {
  std::string timestamp = outcome.Finished;
  if (timestamp.ends_with('Z')) timestamp.pop_back();  // the form has no time zone
  return " <testsuite" + Attribute("name", name) + Attribute("timestamp", timestamp) + Attributes(tally) +
         ">\n" + cases + " </testsuite>\n";
}

}  // namespace

std::string JUnitOfOutcome(const ScanOutcome& outcome) {
  std::string suites;
  Tally all;
  for (Sites site = outcome.Sites.begin(); site != outcome.Sites.end();) {
    const std::string& main = site->MainSite;
    std::string cases;
    Tally tally;
    for (; site != outcome.Sites.end() && site->MainSite == main; ++site) cases += TestCase(*site, tally);
    suites += Suite(main, cases, tally, outcome);
    all.Add(tally);
  }
  if (!outcome.Complete) {
    const Tally early{1, 0, 1, 0, {}};
    suites += Suite("scan",
                    "  <testcase classname=\"scan\" name=\"all sites\" time=\"0.000\">\n"
                    "   <error message=\"the scan ended before its last site\" type=\"incomplete\"/>\n"
                    "  </testcase>\n",
                    early, outcome);
    all.Add(early);
  }
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + Attribute("name", outcome.Project) +
         Attributes(all) + ">\n" + suites + "</testsuites>\n";
}

}  // namespace requite
