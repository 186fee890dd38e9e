// Stamps of folders by statx, at once or from a thread of their own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/FolderStamps.h"

namespace tarnwell::platform {

// Each Ask has a thread, since one look may hang for good; the answer comes from the default main
// context of GLib. The program's end waits for none.
class LinuxFolderStamps : public FolderStamps {
 public:
  FolderFacts ReadFacts(const std::string& folder) const override;
  FolderStamp Read(const std::string& folder) const override;
  std::unique_ptr<StampRequest> Ask(std::vector<std::string> folders, Told told) override;
};

}  // namespace tarnwell::platform
