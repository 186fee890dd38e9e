// Folder sizes in a folder list.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lister/list/FolderSizes.h"
#include "lister/tree/FolderTree.h"

namespace tarnwell::lister {

class TreeSizes : public FolderSizes {
 public:
  TreeSizes(ListState& list, FolderTree& tree)
      : FolderSizes(list, known_), tree_(tree), known_(list.Syntax) {}

  // If the folder has been measured.
  std::optional<FolderSize> SizeOf(RowId row) const {
    return known_.IsEmpty() ? std::nullopt : known_.Find(tree_.PathOf(row));
  }
  // The folder was read: if it has changed since it was measured, its size is forgotten.
  void FolderWasRead(RowId row);

 protected:
  std::string Place() const override;
  bool IsFolder(RowId row) const override { return tree_.Has(row) && !tree_.Node(row).IsLink; }
  std::string PathOf(RowId row) const override { return tree_.PathOf(row); }
  // A folder comes behind those that it holds: the root would keep all others waiting.
  std::vector<RowId> Folders() const override;
  void Show(RowId row, const FolderSize& size) override;
  void Finish() override;

 private:
  FolderTree& tree_;
  KnownSizes known_;
};

}  // namespace tarnwell::lister
