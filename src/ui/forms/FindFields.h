// The fields of the window that finds files: what to look for, and where.
#pragma once

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/frmFind.h"

namespace tarnwell::ui {

class FindFields : public QWidget {
 public:
  // What `makeChoose` makes stands behind the folder.
  FindFields(tools::frmFind& form, const std::function<QPushButton*()>& makeChoose,
             QWidget* parent);

  // Brings the fields up to the form's state.
  void Sync();
  // Puts the keyboard into the field that is most often typed in.
  void Enter();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  using Settings = tools::FindSettings;
  template <typename Widget, typename Value>
  struct Bound {
    Widget* Shown;
    Value Settings::*Member;
  };

  QLineEdit* AddBox(const char* name, std::string Settings::*member, QBoxLayout& row, int letters);
  QCheckBox* AddCheck(const char* caption, bool Settings::*member, QBoxLayout& row);
  QComboBox* AddChoice(const char* name, int Settings::*member,
                       std::span<const std::string_view> texts, QBoxLayout& row);
  // Captions stand for the next field.
  QLabel* AddLabel(const char* caption, QBoxLayout& row);
  void AddField(QWidget* field, QBoxLayout& row, int stretch);
  QHBoxLayout* AddRow(QGridLayout& grid, const char* caption);
  // What is wrong with `field` stands below the last row.
  void AddFault(QGridLayout& grid, tools::FindField at, QLineEdit* field);
  void AddTextRows(QGridLayout& grid);
  void AddFactRows(QGridLayout& grid);
  void SyncFaults();
  void ColourFaults();

  tools::frmFind& form_;
  std::vector<Bound<QLineEdit, std::string>> boxes_;
  std::vector<Bound<QCheckBox, bool>> checks_;
  std::vector<Bound<QComboBox, int>> choices_;
  struct Fault {
    QLabel* Shown = nullptr;
    QLineEdit* Field = nullptr;  // null where it is about several
  };
  std::array<Fault, tools::FindFieldCount> faults_;
  std::vector<QLabel*> captions_;  // that wait for their field
  QLineEdit* name_ = nullptr;
  std::vector<QWidget*> ofRegex_;  // need regular expressions
  std::vector<QWidget*> ofText_;   // mean something with a text alone
  std::vector<QWidget*> ofDates_;  // mean something between dates alone
  QLineEdit* levels_ = nullptr;
  bool showing_ = false;  // what the widgets show comes from the form
};

}  // namespace tarnwell::ui
