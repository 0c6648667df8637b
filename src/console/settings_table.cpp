// SPDX-License-Identifier: MIT
// The table of the settings.
#include "console/settings_table.h"

#include "console/setting_words.h"

namespace requite {
namespace {

constexpr std::string_view kFlag = "0 or 1";
constexpr std::string_view kText = "any text";
constexpr std::string_view kWholeText = "any text, of several lines too";
constexpr std::string_view kRow = "-1 (none) or the number of a row, from 0";
constexpr std::string_view kCount = "0 to 2147483647";

constexpr SettingFacts kSettings[] = {
    {setting::txtTimeout, "0 to 32767", "seconds of silence after which a page is given up"},
    {setting::chkAuto, kFlag, "whether a site ends when the page limit is reached"},
    {setting::cmbAdvance, "0 to 12",
     "the page limit: 1, 10, 50, 100, 500, 1000, 5000, 10000, 20000, 50000, 100000, 200000 or 500000 pages"},
    {setting::chkAuto2, kFlag, "whether a site ends when the expected number of links has been found"},
    {setting::chkRedirect, kFlag, "whether links that lead through a redirect script count"},
    {setting::chkUpdate, kFlag, "whether the page with the link becomes the Website URL of its site"},
    {setting::chkFileTypes, kFlag,
     "whether only pages are read whose address has one of the endings in filetypes.txt"},
    {setting::chkLog, kFlag, "whether rules.log names each page that a rule leaves out"},
    {setting::chkSecure, "1; anything else is off",
     "whether pages are asked for over HTTPS where a site offers it"},
    {setting::txtUserAgent, "one line, or empty",
     "the name given to sites; control characters in it are not sent"},
    {setting::SitesAtATime, "1 to 256", "how many sites are read side by side"},
    {setting::PauseBetweenPages, kCount,
     "milliseconds between two pages of a host, when several sites are read side by side"},
    {setting::chkHistory, "1; anything else is off", "whether scans are recorded in history.db"},
    {setting::ScanType, "0 to 2",
     "what a scan covers: all (0), the selected Main Site (1), the selected Linking Site (2)"},
    {setting::SkipType, "0 or 1", "what Skip skips: a Linking Site (0) or a Main Site (1)"},
    {setting::chkAutoSave, kFlag, "whether the project is saved every 300 seconds of a scan"},
    {setting::txtAutoSave, kText, "minutes that nothing reads"},
    {setting::LastProject, "a path, or empty",
     "the project that the next start loads, the target of auto-save, and the name of the report"},
    {setting::chkAudioEmail, kFlag, "whether a link that is found plays a sound"},
    {setting::chkAudioNext, kFlag, "whether the next site plays a sound"},
    {setting::chkAudioFinished, kFlag, "whether the end of a scan plays a sound"},
    {setting::chkNewWin, kFlag, "whether links of the link page open in a new window"},
    {setting::chkBullet, kFlag, "whether the links of the link page are a list"},
    {setting::txtHTML1, kWholeText, "the HTML before the links of the link page"},
    {setting::txtHTML2, kWholeText, "the HTML of the links"},
    {setting::txtHTML3, kWholeText, "the HTML after the links of the link page"},
    {setting::optAll, kFlag,
     "whether results are posted to one script (0) or to one for each Main Site (1); the choice between the "
     "links of all Main Sites and of one writes it"},
    {setting::optScript, kFlag, "written by the choice of the scripts for posting; nothing reads it"},
    {setting::getUrlOption, "0 or 1", "the source that is chosen in the import windows"},
    {setting::getURL1, kText, "the link page in the import windows"},
    {setting::getURL2, kText, "the script in the import windows"},
    {setting::getURL3, kText, "the script for all results in the import windows"},
    {setting::getURLCombo, kRow, "the delimiter that is chosen in the import windows"},
    {setting::Combo1, kRow, "the chosen search engine"},
    {setting::Combo2, kRow, "the chosen size of a harvest"},
    {setting::cmbLastSearch, kRow, "what is chosen for the end of the last site; nothing acts on it"},
    {setting::lHistWebScanned, kCount, "pages of all scans"},
    {setting::lHistEmailFound, kCount, "links of all scans"},
    {setting::showHelp, kFlag, "whether the next start opens the help"},
    {setting::SimpleView, "True or False", "read at the start and used nowhere"},
};

}  // namespace

std::span<const SettingFacts> AllSettings() { return kSettings; }

std::string WordsFor(const SettingKey& key) {
  std::string words;
  for (const SettingWord& word : SettingWords()) {
    // The page limit has a switch of its own, which its word switches on.
    const bool switches = word.Takes == SettingWord::Kind::Pages && key.Name == setting::chkAuto.Name;
    if (word.Key.Name == key.Name || switches)
      words += (words.empty() ? "" : ", ") + std::string(word.Option);
  }
  return words;
}

}  // namespace requite
