// Folders and files by the calls of Windows.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Reads and writes what it is asked for, each time from the disk. Keeps nothing, follows links as
// the port says, and takes paths of any length. Whatever exists can be reached, whatever its name;
// nothing is made under a name that other programs could not open.
class WindowsFileSystem : public FileSystem {
 public:
  // From now on the folder of the program's own files is one of the items that ProtectedItems
  // tells, which are not renamed. It is found by these calls.
  void ProtectProgram(std::string folder) { programFolder_ = std::move(folder); }
  // How the program lets go of what it has open itself below a folder, until what the call gives is
  // let go of; null for nothing.
  using LetGo = std::function<std::shared_ptr<void>(const std::string& folder)>;
  void LetGoBy(LetGo letGo) { letGo_ = std::move(letGo); }

  const base::PathSyntax& Syntax() const override;
  std::unique_ptr<OpenedFolder> OpenFolder(const std::string& folder,
                                           base::Status& status) const override;
  base::Status ReadAttributes(const std::string& folder, const std::string& name,
                              ItemAttributes& attributes) const override;
  bool FolderExists(const std::string& path) const override;
  bool Exists(const std::string& path) const override;
  std::string ReadLink(const std::string& path) const override;
  base::Status CheckTarget(const std::string& path) const override;
  base::Status MeasureFolder(const std::string& folder, const GoOn& goOn,
                             FolderTotal& total) const override;
  base::Status ReadSpace(const std::string& folder, Space& space) const override;
  base::Status WriteExtendedAttribute(const std::string& path, ExtendedAttribute attribute,
                                      const std::string& text) override;
  base::Status MakeFolder(const std::string& path) override;
  base::Status Rename(const std::string& from, const std::string& to) override;
  base::Status ReadFile(const std::string& path, std::string& content) const override;
  base::Status WriteFile(const std::string& path, const std::string& content) override;
  base::Status RemoveFile(const std::string& path) override;

 private:
  std::string programFolder_;
  LetGo letGo_;  // may be empty
};

}  // namespace tarnwell::platform
