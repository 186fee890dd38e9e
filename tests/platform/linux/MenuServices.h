// The context menu with what it works with, by the names of the tests that every adapter passes.
#pragma once

#include "TestDesktop.h"
#include "fakes/FakePlatform.h"
#include "platform/linux/menu/LinuxContextMenu.h"

namespace tarnwell::platform {

struct MemoryClipboard : FileClipboard {
  ClipboardFiles Files;

  void Put(const ClipboardFiles& files) override { Files = files; }
  bool HasFiles() const override { return !Files.Items.empty() || Files.Foreign > 0; }
  ClipboardFiles Get() const override { return Files; }
  void Clear() override { Files = {}; }
};

struct TestedMenus {
  // One that entries are filled into; null where they are not.
  static std::unique_ptr<PopupMenu> Create() { return nullptr; }

  MemoryClipboard Clipboard;
  fakes::FakeFileOperation Operation;
  NotedDialogs Dialogs;
  NotedWindows Windows;
  fakes::FakeNumberForms Forms;
  LinuxContextMenu Menus{{Clipboard, Operation, Dialogs, Windows, Forms}};
};

}  // namespace tarnwell::platform
