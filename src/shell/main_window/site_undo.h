// SPDX-License-Identifier: MIT
// Takes back the deletion of a Main Site or a Linking Site.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "model/records.h"

namespace requite {

struct Form1;

/// Follows the commands that delete sites. The last deletions can be taken back one after the other, the
/// newest first.
class SiteUndo {
 public:
  /// The form must outlive this object, which takes over the handlers of the commands until it ends.
  explicit SiteUndo(Form1& form);
  ~SiteUndo();
  SiteUndo(const SiteUndo&) = delete;
  SiteUndo& operator=(const SiteUndo&) = delete;

  /// A site was deleted; Words() tell which.
  std::function<void()> OnDeleted;

  [[nodiscard]] bool Empty() const { return deletions_.empty(); }
  /// "partner.example was deleted with its 2 rules."
  [[nodiscard]] std::string Words() const;
  /// Takes the last deletion back, and the project is as it was before, its rules and the order of all rows
  /// included. When the project has changed since, a Main Site comes back after the others. Returns what was
  /// done, in words. Does nothing while a scan runs.
  std::string Undo();
  /// The project was replaced: nothing can be taken back any more.
  void Forget() { deletions_.clear(); }
  /// The project was saved without the sites that were deleted.
  void ProjectIsSaved();

 private:
  using Colours = std::vector<std::uint32_t>;

  /// The project before a Main Site was deleted, which the deletion itself takes through a file.
  struct WholeProject {
    std::string Text;
    std::vector<Colours> Sites;  ///< of the rows of List1(1), List1(2) and so on
    Colours Results;
    std::string HalfTyped;  ///< in txtDomain
    std::string ScriptUrl;  ///< in txtPost2
    std::size_t AfterDeletion = 0;
  };

  struct Deletion {
    std::string MainSite;
    std::string Name;                                 ///< of the site that was deleted
    std::vector<std::pair<std::size_t, Rule>> Rules;  ///< by their rows, in rising order
    bool OfMainSite = false;
    int MainSiteNumber = 0;  ///< from 1
    bool ProjectSaved = false;
    bool SavedSince = false;
    std::size_t BeforeDeletion = 0;  ///< fingerprint of the project, if it counted as saved

    std::size_t Row = 0;             ///< of a Linking Site
    std::vector<LinkingSite> Sites;  ///< the one that was deleted, or those of the Main Site
    Colours SiteColours;             ///< of their rows
    WholeProject Before;             ///< of a Main Site
  };

  void DeleteMainSite(const std::function<void()>& act);
  void DeleteLinkingSite(const std::function<void()>& act);
  void Take(Deletion deletion);
  [[nodiscard]] bool RestoreProject(const Deletion& deletion);
  void AppendMainSite(const Deletion& deletion);
  [[nodiscard]] bool InsertLinkingSite(const Deletion& deletion);
  void InsertRules(const Deletion& deletion);
  void SetSavedFlag(const Deletion& deletion);
  [[nodiscard]] int NumberOfMainSite(const Deletion& deletion) const;

  Form1& form_;
  std::function<void()> mainDelete_;
  std::function<void()> linkingDelete_;
  std::function<void(int)> popupDelete_;
  std::vector<Deletion> deletions_;  ///< the newest last
};

}  // namespace requite
