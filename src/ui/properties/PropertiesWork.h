// What a properties window has its threads do: reading the facts of its items, counting what they
// hold, changing their permissions.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/ItemFacts.h"
#include "ui/toolkit/Worker.h"

namespace tarnwell::ui {

// Of one item, or what several have in common.
struct ItemsSummary {
  std::uint64_t Count = 0;    // of items whose facts could be read
  platform::ItemFacts First;  // of the first of them
  bool SameType = true;       // as the first one; so too the next three
  bool SameTypeName = true;
  bool SameOwner = true;
  bool SameGroup = true;
  std::uint64_t Files = 0;  // all that is no folder
  std::uint64_t Folders = 0;
  std::uint64_t Bytes = 0;  // of the files
  std::uint64_t OnDisk = 0;
  // Of those whose permissions this user may change; of all where there are none.
  std::uint32_t ModeOfAll = 0;  // bits that each one has
  std::uint32_t ModeOfAny = 0;  // bits that one at least has
  std::uint64_t Changeable = 0;
  std::uint64_t ChangeableFolders = 0;
  std::string WhyFixed;          // of the first that may not be changed
  platform::VolumeFacts Volume;  // of the first
  std::vector<platform::PermissionTrouble> Unread;
};

// `facts` are those of one more item; a file in `counted` adds no bytes.
void AddTo(ItemsSummary& summary, const platform::ItemFacts& facts,
           platform::CountedFiles& counted);

struct FactsReport {
  bool HasSummary = false;
  bool IsCounted = false;
  ItemsSummary Summary;
  // What the folders hold so far. Of several items the items themselves count as well.
  platform::FolderTotal Total;
};
using FactsWork = Worker<FactsReport>::Work;

// What the ports do comes from any thread; they and the paths must outlive the work.
FactsWork ReadFacts(const platform::FileSystem& files, const platform::ItemInspector& inspector,
                    const std::vector<std::string>& paths, bool counts);

// The outcome of a change. Items that this user may not change are passed over.
using ChangeWork = Worker<platform::PermissionOutcome>::Work;
ChangeWork ChangePermissions(const platform::ItemInspector& inspector,
                             const std::vector<std::string>& paths,
                             const platform::PermissionChange& change, bool inside);

}  // namespace tarnwell::ui
