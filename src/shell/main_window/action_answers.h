// SPDX-License-Identifier: MIT
// Says in words what each command of the user did.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace requite {

struct Form1;
struct Form2;
struct Form4;
struct ProgramWindow;
struct frmChanges;
struct frmOptions;
class Posting;
class Button;

/// Follows the commands by their handlers: it looks at what they work on before and after, and changes
/// nothing. Commands that show their effect themselves, such as the start of a scan, have no answer here.
class ActionAnswers {
 public:
  /// `words` are plain text in the code page; `path`, which may be empty, is to be shown after them.
  using Receiver = std::function<void(const std::string& words, const std::string& path)>;

  /// The form must outlive this object, which takes over the handlers of its commands until it ends.
  ActionAnswers(Form1& form, Receiver receiver);
  ~ActionAnswers();
  ActionAnswers(const ActionAnswers&) = delete;
  ActionAnswers& operator=(const ActionAnswers&) = delete;

  /// The program has started. Until then the commands are its own and have no answers.
  void Begin() { begun_ = true; }
  void Say(const std::string& words, const std::string& path = {}) const;

 private:
  /// How many sites there are, and how many different ones.
  struct SiteCount {
    std::size_t Rows = 0;
    std::size_t Different = 0;
  };

  using Act = std::function<void()>;

  /// Puts `around` in the place of a handler, which it gets as `act` before the handler's arguments.
  template <class Around, class... Arguments>
  static void Replace(std::function<void(Arguments...)>& handler, Around around) {
    handler = [own = handler, around = std::move(around)](Arguments... arguments) {
      around(
          [&] {
            if (own) own(arguments...);
          },
          arguments...);
    };
  }
  /// The same for a handler of the main window, which gets its own back in the end.
  template <class Around, class... Arguments>
  void Wrap(std::function<void(Arguments...)>& handler, Around around) {
    unwrap_.push_back([&handler, own = handler] { handler = own; });
    Replace(handler, std::move(around));
  }

  void WrapSites();
  void WrapScan();
  void WrapResults();
  void WrapPages();
  void WrapPosting();

  void AddLinkingSite(const Act& act);
  void AddMainSite(const Act& act);
  void ClickResult(const Act& act, int index);
  void GenerateLinks(const Act& act);
  void Post(Posting& posting, const Act& act);

  void Made(ProgramWindow& window);
  void FollowEditor(Form2& editor);
  void FollowImport(Form4& import);
  void FollowOptions(frmOptions& options);
  void FollowChanges(frmChanges& changes);
  void SaveEditor(Form2& editor, const Act& act);
  void Import(const Act& act);
  void SayAdded(SiteCount before, SiteCount after, const std::string& where) const;

  [[nodiscard]] SiteCount LinkingSites() const;
  [[nodiscard]] SiteCount MainSites() const;
  [[nodiscard]] std::string CurrentMainSite() const;

  Form1& form_;
  Receiver receiver_;
  bool begun_ = false;
  std::vector<std::function<void()>> unwrap_;
};

}  // namespace requite
