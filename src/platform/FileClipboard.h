// Port: files on the desktop's clipboard, as all its file managers put and take them.
#pragma once

#include <string>

namespace tarnwell::platform {

struct ClipboardFiles {
  std::string Items;   // full paths, as a base::ItemList
  bool IsCut = false;  // to be moved, not copied
  int Foreign = 0;     // items that are no files of this computer, and not among Items
};

class FileClipboard {
 public:
  virtual ~FileClipboard() = default;
  virtual void Put(const ClipboardFiles& files) = 0;
  // Cheap; true when Get would find something.
  virtual bool HasFiles() const = 0;
  virtual ClipboardFiles Get() const = 0;
  // Takes away what is there: files that were cut have been moved.
  virtual void Clear() = 0;
};

}  // namespace tarnwell::platform
