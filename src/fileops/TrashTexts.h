// What the window of the trash says of items, in words for people. Pure rules; the texts are valid
// UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "fileops/TrashRows.h"
#include "platform/Clock.h"
#include "platform/NumberForms.h"

namespace tarnwell::fileops {

struct TrashForms {
  const platform::NumberForms& Numbers;
  const platform::Clock& Clock;
};

// What stands in the column. Where an item cannot be put back, its folder's cell says why.
std::string TrashCellText(const platform::TrashedItem& item, TrashColumn column,
                          const TrashForms& forms);

// What is the matter with the item, and what can be done with it; empty where it is whole.
std::string TrashNote(const platform::TrashedItem& item);

// "12.3 MiB", "at least 2.0 KiB".
std::string TrashBytesText(const TrashSum& sum, const TrashForms& forms);
// "2 items, 12.3 MiB".
std::string TrashSumText(const TrashSum& sum, const TrashForms& forms);

// "The trash /media/stick/.Trash-1000 cannot be read: permission denied."
std::string TrashTroubleText(const platform::TrashTrouble& trouble);

}  // namespace tarnwell::fileops
