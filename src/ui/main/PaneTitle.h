// The title row of a pane: its path, the picture that opens its menu, and the close button.
#pragma once

#include <QFrame>
#include <QIcon>
#include <QToolButton>
#include <functional>
#include <optional>

#include "ui/main/TitlePath.h"
#include "ui/toolkit/SkinPalettes.h"
#include "workspace/MainForm.h"
#include "workspace/PaneAccent.h"

namespace tarnwell::ui {

class PaneTitle : public QFrame {
 public:
  struct Actions {
    std::function<void()> Click;
    std::function<void()> PictureClick;  // returns when the menu is closed
    std::function<void()> MouseDown;
    std::function<void()> MouseMove;  // over the path, with no button down
    std::function<void()> Close;
  };
  // `pane` counts from 0.
  PaneTitle(int pane, const QIcon& picture, Actions actions, QWidget* parent);

  // Shows the pane's controls of the form in one row, as high as the pictures, that ends with the
  // pane. A picture that does not fit in whole is left out. `accent` may be null. Without a skin
  // the title's colours do not hold.
  void Sync(const forms::TextBox& title, const forms::Picture& picture, const forms::Picture& close,
            const forms::Shape& pane, const workspace::PaneAccent* accent,
            const std::optional<PaletteColours>& skin);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void OpenMenu();
  void ShowAccent(const workspace::PaneAccent* accent);

  Actions actions_;
  TitlePath path_;
  QToolButton picture_;
  QToolButton close_;
  WidgetColours colours_;
};

}  // namespace tarnwell::ui
