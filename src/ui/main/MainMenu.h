// The menu bar of the main window: shows the entries behind which a command stands, and the
// submenus that hold one.
#pragma once

#include <QMenuBar>
#include <map>
#include <memory>
#include <string>

#include "shell/Master.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class MainMenu {
 public:
  MainMenu(shell::Master& master, const IconSource& icons, QMenuBar& bar);

  // What shows its entry already is not touched.
  void Sync();

 private:
  struct Entry {
    QAction* Action = nullptr;
    std::string Image;  // that the action shows
  };

  void Build();

  shell::Master& master_;
  const IconSource& icons_;
  QMenuBar& bar_;
  std::unique_ptr<QObject> keyKeeper_;
  std::map<std::string, Entry> entries_;  // by the names of the form's
};

}  // namespace tarnwell::ui
