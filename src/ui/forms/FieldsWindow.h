// The window of a small dialog: labelled boxes one below another, a check box maybe, and buttons.
//
// Laid out once from the form's controls, shows how they stand, and calls the form.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <vector>

#include "forms/Controls.h"
#include "ui/toolkit/FormWindow.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {

class FieldsWindow : public QDialog, public FormWindow {
 public:
  using Click = std::function<void()>;

  // `cancel` answers Escape and the frame's close button.
  FieldsWindow(forms::Form& form, Click cancel);

  // From the top down. A fixed box shows its text and takes none.
  QLineEdit& AddBox(const forms::Label& label, forms::TextBox& box, bool fixed);
  void AddCheck(forms::CheckBox& check, const forms::Label& label);
  // From left to right.
  void AddButton(const forms::Button& button, Click click);

  // Runs once the window is on the screen; without it the first box that can be changed, or else
  // the default button, has the keyboard.
  Click OnShown;

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;

 private:
  struct Box {
    const forms::Label* Label;
    forms::TextBox* Form;
    QLabel* Caption;
    QLineEdit* Edit;
    std::string Shown;  // what of the form's text the edit stands for
    WidgetColours Colours;
  };
  struct Check {
    forms::CheckBox* Form;
    const forms::Label* Label;
    QCheckBox* Widget;
  };
  struct ButtonPair {
    const forms::Button* Form;
    QPushButton* Widget;
  };
  void SyncBox(Box& box);

  forms::Form& form_;
  Click cancel_;
  QGridLayout* grid_;
  QHBoxLayout* buttonRow_;
  std::vector<Box> boxes_;
  std::vector<Check> checks_;
  std::vector<ButtonPair> buttons_;
};

}  // namespace tarnwell::ui
