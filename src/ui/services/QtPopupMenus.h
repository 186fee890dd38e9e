// Menus that pop up over the main window.
#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "platform/PopupMenu.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

// The menus look as those of the window's menu bar do. Places are in pixels of its inside.
class QtPopupMenus : public QObject, public platform::PopupMenus {
 public:
  explicit QtPopupMenus(const IconSource& icons) : icons_(icons) {}

  // Without a window there are no menus.
  void SetWindow(QMainWindow* window);
  std::unique_ptr<platform::PopupMenu> Create() override;
  // A menu that is up also comes before the closing of the window.
  void CloseThen(std::function<void()> then) override;

  // For menus of the system over the same window.
  platform::MenuLook Look() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  friend class QtPopupMenu;
  int Track(QMenu& menu, QPoint place);

  const IconSource& icons_;
  QPointer<QMainWindow> window_;
  QPointer<QMenu> open_;
  std::function<void()> then_;
};

class QtPopupMenu : public platform::PopupMenu {
 public:
  QtPopupMenu(QtPopupMenus& menus, QMainWindow& window);
  ~QtPopupMenu() override { delete menu_; }

  bool InsertOnTop(const platform::ContextEntry& entry) override;
  void Remove(int id) override;
  std::uintptr_t Handle() const override { return 0; }
  int Track(int x, int y) override;

 private:
  void Add(QMenu& menu, const platform::ContextEntry& entry, QAction* before) const;

  QtPopupMenus& menus_;
  QPointer<QMenu> menu_;  // the window may take it along
};

}  // namespace tarnwell::ui
