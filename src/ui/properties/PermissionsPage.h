// The page of a properties window with the permissions: a table of check boxes, which keeps in mind
// what the user has touched. Changes nothing itself.
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/ItemFacts.h"
#include "platform/NumberForms.h"
#include "ui/properties/PropertiesWork.h"
#include "ui/toolkit/ReadOnlyText.h"

namespace tarnwell::ui {

class PermissionsPage : public QWidget {
 public:
  // `touched` runs after each click of the user.
  PermissionsPage(const platform::NumberForms& forms, std::function<void()> touched);

  // Shows the permissions as they are; what was touched is forgotten.
  void Show(const ItemsSummary& summary);
  // What the user wants, by the boxes that he has touched; nothing if that is how it is already.
  std::optional<platform::PermissionChange> Change() const;
  bool IsInside() const { return inside_.isVisibleTo(this) && inside_.isChecked(); }
  // Takes no clicks until the permissions are shown again; `text` tells how far the change is.
  void ShowBusy(const QString& text);
  // Empty takes away what was told.
  void ShowTroubles(const platform::PermissionOutcome& outcome);

 private:
  struct Box {
    QCheckBox* Check;
    std::uint32_t Bit;
    Qt::CheckState Before = Qt::Unchecked;
    bool IsTouched = false;
  };
  void AddTable();
  QWidget* MakeSpecialRow();
  QCheckBox* AddBox(std::uint32_t bit, const QString& caption, const QString& name);
  void Touch(std::size_t at);
  void ShowOctal();
  void Enable(bool on);

  const platform::NumberForms& forms_;
  const std::function<void()> touched_;
  QGridLayout* table_;
  std::vector<Box> boxes_;
  QLabel owner_;
  QLabel group_;
  QLabel octal_;
  QCheckBox inside_;
  QLabel hint_;
  QLabel reason_;
  QLabel troubleHead_;
  ReadOnlyText* troubles_;
  bool mayChange_ = false;
};

}  // namespace tarnwell::ui
