// The window of the skin chooser.
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QListWidget>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "settings/frmSkinChooser.h"
#include "ui/forms/ColourSwatch.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/ScrollPage.h"

namespace tarnwell::ui {

class SkinChooserWindow : public QDialog, public FormWindow {
 public:
  explicit SkinChooserWindow(settings::frmSkinChooser& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  struct Row {
    QLabel* Label;
    ColourSwatch* Swatch;
    QPushButton* Choose;
  };
  QPushButton* AddButton(const forms::Button& button, void (settings::frmSkinChooser::*click)());
  QWidget* MakeSkins();
  QWidget* MakeColours();
  QLayout* MakeButtons();
  void LayRows(int columns);
  void SyncList();
  void SyncHeld();
  void NotePlace();

  settings::frmSkinChooser& form_;
  QListWidget* list_;
  std::vector<std::string> shownSkins_;
  QGridLayout* grid_ = nullptr;  // of the rows
  ScrollPage* page_ = nullptr;   // which it lies on
  std::array<Row, settings::SkinColourCount> rows_{};
  QLabel* sample_;     // of the colour that is held
  ElidedLabel* hint_;  // beside it
  std::optional<base::Colour> shownHeld_;
};

}  // namespace tarnwell::ui
