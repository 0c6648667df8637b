// SPDX-License-Identifier: MIT
// The folder for the files that a scan writes again and again.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace requite {

/// The work files are html0.txt and html20.txt, the page read last, and tempreport.html, the
/// report shown last. They are in the program's folder under these names, so two scans there at a time
/// would overwrite each other's: the second uses a private folder below it until its program ends.
/// Reports under a project's name, the rules' log and everything else are shared.
class WorkFolder {
 public:
  explicit WorkFolder(const ProgramFolder& program) : program_(program) {}
  /// Removes the private folder with its files.
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  /// A scan begins: takes the program's folder, or makes the private one when another scan has it. When
  /// neither works, the program's folder is used without a lock. Does nothing while a scan has a folder.
  void Claim();
  /// The scan and its report have ended. The files stay where they are.
  void Release();

  /// The full path of a work file.
  [[nodiscard]] std::string File(std::string_view name) const;

 private:
  void MakePrivate();
  void RemoveLeftovers() const;

  const ProgramFolder& program_;
  std::string private_;  // the path of the private folder, once there is one
  int claim_ = -1;       // a lock on the folder in use; the system drops it when the process ends
};

}  // namespace requite
