// Folder sizes in a file list.
#pragma once

#include <string>
#include <vector>

#include "lister/files/FileListState.h"
#include "lister/files/FileReader.h"
#include "lister/list/FolderSizes.h"

namespace tarnwell::lister {

class FileSizes : public FolderSizes {
 public:
  FileSizes(FileListState& files, FileReader& reader)
      : FolderSizes(files.List, files.Sizes), files_(files), reader_(reader) {}

 protected:
  std::string Place() const override { return list_.Folder; }
  bool IsFolder(RowId row) const override;
  std::string PathOf(RowId row) const override;
  std::vector<RowId> Folders() const override;  // those that the user sees first
  void Show(RowId row, const FolderSize& size) override;
  void Finish() override;

 private:
  FileListState& files_;
  FileReader& reader_;
};

}  // namespace tarnwell::lister
