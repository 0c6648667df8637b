// SPDX-License-Identifier: MIT
// What a disk may hold after a power cut: a model of folders and files that is fed with recorded calls.
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "support/file_faults.h"

namespace requite::test {
namespace {

struct Contents {
  std::string Bytes;
  std::string Flushed;
};
using File = std::shared_ptr<Contents>;

/// Names that appear (with a file) or go (with none), in one step; or a folder that appears.
struct Change {
  std::vector<std::pair<std::string, File>> Names;
  std::string Folder;
};

struct Folder {
  std::map<std::string, File> Start;
  std::vector<Change> Changes;
  std::size_t Flushed = 0;  ///< so many changes are on the disk
};

std::string Plain(const std::string& path) {
  std::string plain = std::filesystem::path(path).lexically_normal().string();
  if (plain.ends_with('/')) plain.pop_back();
  return plain;
}

std::string ParentOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

class Model {
 public:
  explicit Model(const DiskState& before) {
    for (const auto& [path, bytes] : before) {
      const std::string name = Plain(path);
      now_[name] = folders_[ParentOf(name)].Start[name] = std::make_shared<Contents>(Contents{bytes, bytes});
    }
  }

  void Apply(const FileEvent& event) {
    const std::string path = Plain(event.Path);
    const std::string target = Plain(event.Target);
    switch (event.Call) {
      case FileCall::Open:
        if (event.Makes && !now_.contains(path)) Add({{{path, std::make_shared<Contents>()}}, {}});
        break;
      case FileCall::Write: now_.at(path)->Bytes += event.Bytes; break;
      case FileCall::Flush: FlushOne(path); break;
      case FileCall::Rename:
        // A rename of one file's name onto its other one does nothing.
        if (now_.contains(target) && now_.at(target) == now_.at(path)) break;
        Add({{{target, now_.at(path)}, {path, nullptr}}, {}});
        break;
      case FileCall::Link: Add({{{target, now_.at(path)}}, {}}); break;
      case FileCall::Unlink: Add({{{path, nullptr}}, {}}); break;
      case FileCall::MakeFolder: folders_[ParentOf(path)].Changes.push_back({{}, path}); break;
      default: break;
    }
  }

  void ForEachState(const std::function<void(const DiskState&)>& check) {
    names_.clear();
    for (auto& [path, folder] : folders_) open_.push_back(&folder);
    ChooseNames(0, check);
    open_.clear();
  }

 private:
  void FlushOne(const std::string& path) {
    const auto file = now_.find(path);
    if (file != now_.end()) {
      file->second->Flushed = file->second->Bytes;
    } else {
      folders_[path].Flushed = folders_[path].Changes.size();
    }
  }

  void Add(Change change) {
    // A move between two folders may reach the disk in one of them only.
    for (auto& [name, file] : change.Names) {
      if (file) {
        now_[name] = file;
      } else {
        now_.erase(name);
      }
      if (ParentOf(name) == ParentOf(change.Names[0].first)) continue;
      folders_[ParentOf(name)].Changes.push_back({{{name, file}}, {}});
      name.clear();
    }
    folders_[ParentOf(change.Names[0].first)].Changes.push_back(std::move(change));
  }

  /// Every number of changes that may be on the disk, folder by folder.
  void ChooseNames(std::size_t at, const std::function<void(const DiskState&)>& check) {
    if (at == open_.size()) return ChooseBytes(check);
    const Folder& folder = *open_[at];
    for (std::size_t kept = folder.Flushed; kept <= folder.Changes.size(); ++kept) {
      const auto before = names_;
      names_.insert(folder.Start.begin(), folder.Start.end());
      for (std::size_t i = 0; i < kept; ++i) {
        for (const auto& [name, file] : folder.Changes[i].Names) {
          if (!name.empty()) names_[name] = file;
        }
        if (!folder.Changes[i].Folder.empty()) names_[folder.Changes[i].Folder + "/"] = nullptr;
      }
      ChooseNames(at + 1, check);
      names_ = before;
    }
  }

  /// A file in a folder that did not reach the disk is not there.
  [[nodiscard]] bool FolderIsThere(const std::string& name) const {
    for (const auto& [path, folder] : folders_) {
      for (const Change& change : folder.Changes) {
        if (change.Folder == ParentOf(name) && !names_.contains(change.Folder + "/")) return false;
      }
    }
    return true;
  }

  void ChooseBytes(const std::function<void(const DiskState&)>& check) const {
    for (const int part : {0, 1, 2}) {
      DiskState state;
      for (const auto& [name, file] : names_) {
        if (!file || !FolderIsThere(name)) continue;
        // Of a file that grows, what was flushed before cannot go again.
        const std::size_t kept = file->Bytes.starts_with(file->Flushed) ? file->Flushed.size() : 0;
        const std::string half = file->Bytes.substr(0, (kept + file->Bytes.size()) / 2);
        const bool safe = file->Flushed == file->Bytes;
        state[name] = safe || part == 2 ? file->Bytes : part == 1 ? half : file->Flushed;
      }
      check(state);
    }
  }

  std::map<std::string, File> now_;
  std::map<std::string, Folder> folders_;
  std::vector<const Folder*> open_;    // while states are gone through
  std::map<std::string, File> names_;  // on the disk in the state that is being built
};

}  // namespace

void ForEachPowerCut(const DiskState& before, const std::vector<FileEvent>& events, std::size_t count,
                     const std::function<void(const DiskState&)>& check) {
  Model model(before);
  for (std::size_t i = 0; i < count; ++i) model.Apply(events[i]);
  model.ForEachState(check);
}

}  // namespace requite::test
