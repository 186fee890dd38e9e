// The lists of all panes, and that of what was found, by their ids. A pane's two lists come into
// being when it is first set up and live until the program ends.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "lister/ListerControl.h"
#include "lister/list/ListId.h"
#include "workspace/PerPane.h"

namespace tarnwell::workspace {

class ListSet {
 public:
  using Factory = std::function<std::unique_ptr<lister::ListerControl>(lister::ListId)>;
  explicit ListSet(Factory factory) : factory_(std::move(factory)) {}

  // Makes both lists of the pane; those that exist stay.
  void Create(int pane) {
    for (const lister::ListId list : {lister::FolderListOf(pane), lister::FileListOf(pane)}) {
      auto& slot = lists_[list];
      if (!slot) slot = factory_(list);
    }
  }

  // The list of the window that finds files; made by the first call, which has it set up.
  lister::ListerControl& Found() {
    if (!found_) {
      found_ = factory_(lister::FoundList);
      if (SetUpFound) SetUpFound(*found_);
    }
    return *found_;
  }
  std::function<void(lister::ListerControl&)> SetUpFound;

  // Null for a list that does not exist, and for any number that names none.
  lister::ListerControl* Find(lister::ListId list) const {
    if (list == lister::FoundList) return found_.get();
    if (!lister::HasPane(list)) return nullptr;
    return lists_[list].get();
  }

  // Throws std::out_of_range for a list that does not exist.
  lister::ListerControl& operator[](lister::ListId list) const {
    lister::ListerControl* found = Find(list);
    if (found == nullptr) throw std::out_of_range("no list " + std::to_string(list));
    return *found;
  }

  lister::ListerControl& Folders(int pane) const { return (*this)[lister::FolderListOf(pane)]; }
  lister::ListerControl& Files(int pane) const { return (*this)[lister::FileListOf(pane)]; }

 private:
  Factory factory_;
  PerList<std::unique_ptr<lister::ListerControl>> lists_;
  std::unique_ptr<lister::ListerControl> found_;
};

}  // namespace tarnwell::workspace
