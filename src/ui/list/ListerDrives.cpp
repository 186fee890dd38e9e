#include "ui/list/ListerDrives.h"

#include <QSignalBlocker>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

ListerDrives::ListerDrives(const QString& name, QWidget* parent) : ListerChoice(name, parent) {
  connect(this, &QComboBox::activated, this,
          [this](int position) { emit Chosen(itemData(position).toByteArray()); });
}

void ListerDrives::Show(const std::vector<platform::Drive>& choices, const std::string& shown,
                        const IconSource& icons) {
  const QSignalBlocker blocker(this);
  clear();
  for (const platform::Drive& drive : choices) Add(drive, icons);
  const QByteArray name = QByteArray::fromStdString(shown);
  if (!name.isEmpty() && findData(name) < 0) Add({shown, shown}, icons);
  // Last, since the first entry that comes in is chosen by the toolkit.
  const int position = name.isEmpty() ? -1 : findData(name);
  setCurrentIndex(position);
  setToolTip(itemData(position, Qt::ToolTipRole).toString());
  // The name says which list this is, so what it shows stands here.
  setAccessibleDescription(currentText());
}

void ListerDrives::Add(const platform::Drive& drive, const IconSource& icons) {
  addItem(icons.Drive(), ToShownQString(drive.Label), QByteArray::fromStdString(drive.Name));
  setItemData(count() - 1, PlainToolTip(ToShownQString(drive.Name)), Qt::ToolTipRole);
}

}  // namespace tarnwell::ui
