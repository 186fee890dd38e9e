// Measures folders of a list when the user asks for it, one after the other, and tells how far it
// is in the status line. Messages are let through meanwhile; Escape ends it and keeps what is done.
//
// Knows the steps and the words; which rows there are and how they show a size is said by the two
// kinds of list (FileSizes, TreeSizes).
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "lister/list/ListBody.h"
#include "lister/rows/KnownSizes.h"

namespace tarnwell::lister {

class FolderSizes {
 public:
  virtual ~FolderSizes() = default;
  FolderSizes(const FolderSizes&) = delete;
  FolderSizes& operator=(const FolderSizes&) = delete;

  // These two leave a wish, which the next Work takes up if the list still shows the same place.
  // One for all folders is dropped while they are being measured.
  void AskForAll();
  // The folder under the mouse pointer; over anything else there is nothing to wish for.
  void AskForItem();
  bool HasWishes() const { return allAsked_ || !itemsAsked_.empty(); }
  void DropWishes();
  // Does what was asked for; nothing while it is at work already. The list must not be in the
  // middle of a read.
  void Work();

  // To be called before other work takes CancelRequested as its own: Escape may just have come.
  void HeedCancel();

 protected:
  // What is measured is kept in `sizes`.
  FolderSizes(ListState& list, KnownSizes& sizes) : list_(list), sizes_(sizes) {}

  // What the rows belong to. Work on them ends when it becomes another.
  virtual std::string Place() const = 0;
  // Whether the row is there and is a folder, and no link.
  virtual bool IsFolder(RowId row) const = 0;
  virtual std::string PathOf(RowId row) const = 0;
  virtual std::vector<RowId> Folders() const = 0;  // in the order of work
  virtual void Show(RowId row, const FolderSize& size) = 0;
  // All is measured, as far as it goes: the order may have to follow.
  virtual void Finish() {}

  ListState& list_;
  KnownSizes& sizes_;

 private:
  enum class Standing { Going, Cancelled, Superseded };
  struct Job;
  // A folder that is to be measured, or has been. The row may be another's by then.
  struct Target {
    RowId Row = NoRow;
    std::string Path;
  };

  void DropWishesFromElsewhere();
  void Perform(Job& job);
  void Measure(Job& job, const Target& folder);
  bool GoesOn(Job& job);
  void LookAround(Job& job) const;
  void NoteTrouble(Job& job, const Target& folder, const base::Status& status,
                   const platform::FolderTotal& total) const;
  std::string Progress(const Job& job) const;
  std::string Summary(const Job& job) const;

  std::string place_;  // where the wishes are for
  bool allAsked_ = false;
  std::deque<Target> itemsAsked_;
  Job* job_ = nullptr;  // the one that is worked on
};

}  // namespace tarnwell::lister
