// SPDX-License-Identifier: MIT
// Where a scan keeps the files that it writes again and again.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace requite {

/// The work files are html0.txt and html20.txt, the page as it was read last, and tempreport.html, the report
/// as it was shown last. They lie in the program's folder under these names, so two scans there at a time
/// would write over one another: the second one keeps its own in a private folder below, to the end of its
/// program. Reports under the name of a project, the log of the rules and all else are shared.
class WorkFolder {
 public:
  explicit WorkFolder(const ProgramFolder& program) : program_(program) {}
  /// Removes the private folder with what is in it.
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  /// A scan begins: takes the program's folder, or makes the private one when another scan has it. Where
  /// neither can be done the program's folder is used as it is. Nothing changes while a scan has a folder.
  void Claim();
  /// The scan has ended, its report too. The files stay where they are.
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
