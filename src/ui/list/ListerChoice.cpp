#include "ui/list/ListerChoice.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QWheelEvent>

namespace tarnwell::ui {
namespace {

// On Linux the toolkit gives out the text on show as the name of a list to choose from, and one of
// them could not be told from another.
class ChoiceAccess : public QAccessibleWidget {
 public:
  explicit ChoiceAccess(ListerChoice* choice)
      : QAccessibleWidget(choice, QAccessible::ComboBox), choice_(choice) {
    addControllingSignal(QStringLiteral("activated(int)"));
  }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? choice_->currentText() : QAccessibleWidget::text(kind);
  }
  int childCount() const override { return 1; }
  QAccessibleInterface* child(int number) const override {
    return number == 0 ? QAccessible::queryAccessibleInterface(choice_->view()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && child->object() == choice_->view() ? 0 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QAccessibleInterface* const list = choice_->view()->isVisible() ? child(0) : nullptr;
    return list != nullptr && list->rect().contains(x, y) ? list : nullptr;
  }
  QStringList actionNames() const override { return {showMenuAction()}; }
  void doAction(const QString& action) override {
    if (action != showMenuAction()) return;
    if (choice_->view()->isVisible()) {
      choice_->hidePopup();
    } else {
      choice_->showPopup();
    }
  }

 private:
  ListerChoice* choice_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* const choice = qobject_cast<ListerChoice*>(object);
  return choice == nullptr ? nullptr : new ChoiceAccess(choice);
}

}  // namespace

ListerChoice::ListerChoice(const QString& name, QWidget* parent) : QComboBox(parent) {
  QAccessible::installFactory(&MakeAccess);  // once, however often it is asked for
  setAccessibleName(name);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumSize(0, 0);
}

void ListerChoice::showPopup() {
  // What unfolds is a window, and those do not inherit it.
  view()->parentWidget()->setPalette(palette());
  view()->setPalette(palette());
  QComboBox::showPopup();
}

void ListerChoice::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  emit FocusTaken();
}

// Turned over the closed list by chance, the wheel would choose another entry.
void ListerChoice::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

}  // namespace tarnwell::ui
