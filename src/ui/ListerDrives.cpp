#include "ui/ListerDrives.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "ui/Convert.h"

namespace tarnwell::ui {
namespace {

// On Linux the toolkit gives out the text on show as the name of a list to choose from, and a list
// of drives could not be told from another.
class DrivesAccess : public QAccessibleWidget {
 public:
  explicit DrivesAccess(ListerDrives* drives)
      : QAccessibleWidget(drives, QAccessible::ComboBox), drives_(drives) {
    addControllingSignal(QStringLiteral("activated(int)"));
  }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? drives_->currentText() : QAccessibleWidget::text(kind);
  }
  int childCount() const override { return 1; }
  QAccessibleInterface* child(int number) const override {
    return number == 0 ? QAccessible::queryAccessibleInterface(drives_->view()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && child->object() == drives_->view() ? 0 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QAccessibleInterface* const list = drives_->view()->isVisible() ? child(0) : nullptr;
    return list != nullptr && list->rect().contains(x, y) ? list : nullptr;
  }
  QStringList actionNames() const override { return {showMenuAction()}; }
  void doAction(const QString& action) override {
    if (action != showMenuAction()) return;
    if (drives_->view()->isVisible()) {
      drives_->hidePopup();
    } else {
      drives_->showPopup();
    }
  }

 private:
  ListerDrives* drives_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* const drives = qobject_cast<ListerDrives*>(object);
  return drives == nullptr ? nullptr : new DrivesAccess(drives);
}

}  // namespace

ListerDrives::ListerDrives(const QString& name, QWidget* parent) : QComboBox(parent) {
  QAccessible::installFactory(&MakeAccess);  // once, however often it is asked for
  setAccessibleName(name);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumSize(0, 0);
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

void ListerDrives::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  emit FocusTaken();
}

// Turned over the closed list by chance, the wheel would change the drive.
void ListerDrives::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

}  // namespace tarnwell::ui
