// Stamps of folders by their handles, at once or from a thread of their own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/FolderStamps.h"

namespace tarnwell::platform {

// Each Ask has a thread, since one look may hang for good; the answer comes from the loop of
// messages. The program's end waits for none.
class WindowsFolderStamps : public FolderStamps {
 public:
  FolderFacts ReadFacts(const std::string& folder) const override;
  FolderStamp Read(const std::string& folder) const override;
  std::unique_ptr<StampRequest> Ask(std::vector<std::string> folders, Told told) override;
};

}  // namespace tarnwell::platform
