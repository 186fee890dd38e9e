// The window in which a place on the network asks. Laid out anew for each question.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

#include "tools/popPlaceQuestion.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class PlaceQuestionWindow : public QDialog, public FormWindow {
 public:
  explicit PlaceQuestionWindow(tools::popPlaceQuestion& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;

 private:
  void AddField(const forms::Label& label, forms::TextBox& box, QLineEdit::EchoMode echo);
  void AddOptions();
  QLayout* MakeButtons();

  struct Field {
    forms::TextBox* Form;
    QLineEdit* Edit;
  };

  tools::popPlaceQuestion& form_;
  QPlainTextEdit* text_;
  QGridLayout* grid_;
  std::vector<Field> fields_;
  std::vector<QRadioButton*> options_;
  QPushButton* default_ = nullptr;
};

}  // namespace tarnwell::ui
