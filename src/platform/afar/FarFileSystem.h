// Folders and files, with those of other machines kept from the window's thread.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

// Hands each call on, as FarCalls says. A change of which the answer did not come in time may still
// be made.
class FarFileSystem : public FileSystem {
 public:
  FarFileSystem(std::shared_ptr<FileSystem> files, FarCalls calls)
      : files_(std::move(files)), calls_(std::move(calls)) {}

  const base::PathSyntax& Syntax() const override { return files_->Syntax(); }
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
  base::Status MeasureAt(const FarPlace& place, const std::string& folder, const GoOn& goOn,
                         FolderTotal& total) const;

  const std::shared_ptr<FileSystem> files_;
  const FarCalls calls_;
};

}  // namespace tarnwell::platform
