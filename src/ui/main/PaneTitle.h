// The title row of a pane: its path, a picture, and the close button.
#pragma once

#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <functional>
#include <optional>

#include "ui/toolkit/SkinPalettes.h"
#include "workspace/MainForm.h"

namespace tarnwell::ui {

class PaneTitle : public QFrame {
 public:
  struct Actions {
    std::function<void()> Click;
    std::function<void()> MouseDown;
    std::function<void()> MouseMove;  // over the path, with no button down
    std::function<void()> Close;
  };
  // `pane` counts from 0.
  PaneTitle(int pane, const QIcon& picture, Actions actions, QWidget* parent);

  // Shows the pane's controls of the form in one row, as high as the pictures, that ends with the
  // pane. A picture that does not fit in whole is left out. Without a skin the
  // title's colours do not hold.
  void Sync(const forms::TextBox& title, const forms::Picture& picture, const forms::Picture& close,
            const forms::Shape& pane, const std::optional<PaletteColours>& skin);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Actions actions_;
  QLineEdit path_;
  QLabel picture_;
  QToolButton close_;
  WidgetColours colours_;
};

}  // namespace tarnwell::ui
