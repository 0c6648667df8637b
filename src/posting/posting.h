// SPDX-License-Identifier: MIT
// Sends the results to the user's script, one request for each result row.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "model/record_list.h"
#include "model/records.h"
#include "model/settings.h"
#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// The window that shows what was requested and what came back.
class PostLog {
 public:
  virtual ~PostLog() = default;
  /// Loads and shows the window Form5.
  virtual void ShowForm5() = 0;
  /// Its text box. Loads the window without showing it if it is not loaded. The reference is valid while
  /// the window lives, so call this again at each use.
  [[nodiscard]] virtual TextBox& Text4() = 0;
  /// A request was sent, and its row is in the log.
  virtual void Posted(bool answered) { static_cast<void>(answered); }
};

/// What posting needs besides the controls of its tab.
struct PostingNeeds {
  const RecordList<LinkResult>& List3;
  requite::Settings Settings;
  requite::Internet& Internet;
  requite::EventLoop& EventLoop;
  requite::Dialogs& Dialogs;
  PostLog& Log;
  std::function<bool()> Ended;  ///< the program is closing: no more rows are posted
};

/// The controls of a posting tab. They must outlive every run of PostLinks.
struct PostingTab {
  OptionGroup& optScript;
  TextBox& txtPost;
  RecordList<ScriptUrlEntry>& lstMulti;
  ComboBox& cmbSites;
  TextBox& txtPost2;
  Button& cmdScriptAdd;
  Button& cmdScriptDel;
  Button& cmdPost;
  Button& cmdVariables;
  Button& cmdExample;
  StatusBar& StatusBar1;
};

/// The script URL of a Main Site: that of the first entry whose trimmed text equals the trimmed argument;
/// empty without one.
[[nodiscard]] std::string FindScriptUrl(const RecordList<ScriptUrlEntry>& lstMulti,
                                        std::string_view mainSite);

/// What both posting tabs have in common. The import windows have a weaker form than the main window; the
/// private functions below are the differences. Keep all of them: scripts were written for both.
class Posting {
 public:
  Posting(PostingNeeds needs, const PostingTab& tab)
      : needs_(std::move(needs)), tab_(tab), gets_(needs_.Internet) {}
  virtual ~Posting() = default;
  Posting(const Posting&) = delete;
  Posting& operator=(const Posting&) = delete;

  /// Sets the handlers of all controls of the tab except txtPost's change.
  void Wire();

  /// Requests the script URL once for each row of List3, in the order of the view. Lets events run, and
  /// nothing prevents a second press meanwhile: it posts all rows inside the first run. A run ends when
  /// the list has no next row, however the list changed meanwhile.
  void PostLinks();
  /// Ends all runs in progress and the request that is waited for.
  void Stop() {
    ++stops_;
    gets_.Abort();
  }
  /// How many rows of List3, as it is now, PostLinks would request a URL for.
  [[nodiscard]] int RowsToPost() const;
  /// Called after each request with the encoded Linking field of the row, the URL, and whether there was
  /// a reply.
  std::function<void(const std::string& linkingSite, const std::string& url, bool answered)> OnPosted;

  void optScript_Click(int index);
  void cmdScriptAdd();
  /// Removes the selected entry; failures are passed over.
  void cmdScriptDel();
  void cmdVariables();
  void cmdExample();

 protected:
  /// The values of one row, as they go into a script URL.
  struct Values {
    std::string MainSite;
    std::string LinkingSite;
    std::string Status;
    std::string FoundOn;
  };

  /// Replaces the four variables of a script URL.
  [[nodiscard]] static std::string FillAll(std::string url, const Values& values);
  /// The same, but "$MainSite" stays: the scripts of the import windows' users were written for that.
  [[nodiscard]] static std::string FillAllButMainSite(std::string url, const Values& values);
  /// FillAll with the values of the example.
  [[nodiscard]] static std::string WithSamples(std::string script);

  PostingNeeds needs_;
  PostingTab tab_;

 private:
  virtual void ShowWindow() = 0;
  /// The script URL for a row, or nothing to skip the row. `atStart` is the text of txtPost when the run
  /// started.
  [[nodiscard]] virtual std::optional<std::string> ScriptFor(const LinkResult& row,
                                                             const std::string& atStart) const = 0;
  [[nodiscard]] virtual std::string BuildUrl(const std::string& script, const Values& values) const = 0;
  [[nodiscard]] virtual bool MayAdd() const = 0;
  /// What follows the words of a help box's title.
  [[nodiscard]] virtual std::string TitleTail(std::string_view sentence) const = 0;
  [[nodiscard]] virtual std::string PersonalExample() const = 0;

  [[nodiscard]] bool EndedSince(int stops) const { return stops != stops_ || needs_.Ended(); }
  [[nodiscard]] std::optional<std::string> UrlFor(const LinkResult& row, const std::string& atStart,
                                                  std::string& linkingSite) const;
  void ShowStatus(std::string text);
  void Log(const std::string& text);

  Gets gets_;
  int stops_ = 0;
};

/// The "Post" tab of the main window.
class MainPosting : public Posting {
 public:
  using Posting::Posting;

 private:
  void ShowWindow() override;
  [[nodiscard]] std::optional<std::string> ScriptFor(const LinkResult& row,
                                                     const std::string& atStart) const override;
  [[nodiscard]] std::string BuildUrl(const std::string& script, const Values& values) const override;
  [[nodiscard]] bool MayAdd() const override;
  [[nodiscard]] std::string TitleTail(std::string_view sentence) const override;
  [[nodiscard]] std::string PersonalExample() const override { return {}; }
};

/// The "Post Links" tab of an import window. Its own URL, read when the run starts, is the only script;
/// "$MainSite" is not replaced; the log is filled but not shown.
class ImportPosting : public Posting {
 public:
  /// `showForm4` shows the window Form4, which both import windows do.
  ImportPosting(PostingNeeds needs, const PostingTab& tab, std::function<void()> showForm4)
      : Posting(std::move(needs), tab), showForm4_(std::move(showForm4)) {}

 private:
  void ShowWindow() override { showForm4_(); }
  [[nodiscard]] std::optional<std::string> ScriptFor(const LinkResult&,
                                                     const std::string& atStart) const override {
    return atStart;
  }
  [[nodiscard]] std::string BuildUrl(const std::string& script, const Values& values) const override;
  [[nodiscard]] bool MayAdd() const override { return true; }
  [[nodiscard]] std::string TitleTail(std::string_view) const override { return {}; }
  [[nodiscard]] std::string PersonalExample() const override;

  std::function<void()> showForm4_;
};

}  // namespace requite
