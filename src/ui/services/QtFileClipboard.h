// Files on the desktop's clipboard, by the formats of its file managers.
#pragma once

#include "platform/FileClipboard.h"

namespace tarnwell::ui {

class QtFileClipboard : public platform::FileClipboard {
 public:
  void Put(const platform::ClipboardFiles& files) override;
  bool HasFiles() const override;
  platform::ClipboardFiles Get() const override;
  void Clear() override;
};

}  // namespace tarnwell::ui
