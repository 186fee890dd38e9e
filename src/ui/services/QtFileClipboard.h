// Files on the desktop's clipboard, by the formats of its file managers.
#pragma once

#include <QMimeData>
#include <QObject>
#include <QPointer>
#include <functional>
#include <string>

#include "platform/FileClipboard.h"

namespace tarnwell::ui {

class QtFileClipboard : public platform::FileClipboard {
 public:
  // `cutByShell` gives what the system's own menu has cut for this program, a base::ItemList; empty
  // where that puts nothing on the clipboard by itself.
  explicit QtFileClipboard(std::function<std::string()> cutByShell = {});

  void Put(const platform::ClipboardFiles& files) override;
  bool HasFiles() const override;
  platform::ClipboardFiles Get() const override;
  void Clear() override;

  // Called with the items that were cut here, a base::ItemList, and with none once they are no
  // longer on the clipboard. What others cut is theirs, and asking them may take its time.
  std::function<void(const std::string& items)> CutChanged;

 private:
  void TellCut();

  QObject context_;
  const std::function<std::string()> cutByShell_;
  QPointer<QMimeData> own_;  // what was put last
  std::string cut_;          // and the items in it, where they are cut
  std::string told_;
};

}  // namespace tarnwell::ui
