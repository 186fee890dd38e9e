// Attributes of many items of a folder, looked at by threads of their own.
#pragma once

#include <cstddef>
#include <memory>

#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Its thread names the items, takes what comes of them and never touches the file system. A thread
// of the team that hangs is left to itself, and nothing waits for it: what it uses is its own.
class AttributeTeam {
 public:
  // Of an open folder.
  explicit AttributeTeam(int folder);
  // The threads end as soon as they can.
  ~AttributeTeam();
  AttributeTeam(const AttributeTeam&) = delete;
  AttributeTeam& operator=(const AttributeTeam&) = delete;

  // False where the system has none to give.
  bool HasThreads() const { return threads_ > 0; }
  // As OpenedFolder::ReadManyAttributes; to be called once.
  void Run(WantedAttributes& wanted);

 private:
  struct Work;

  bool Fill(WantedAttributes& wanted, std::size_t number);
  bool HandOver(WantedAttributes& wanted, std::size_t number);

  const std::shared_ptr<Work> work_;
  std::size_t threads_ = 0;
  std::size_t batchSize_;
};

}  // namespace tarnwell::platform
