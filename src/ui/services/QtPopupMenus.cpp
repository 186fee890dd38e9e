#include "ui/services/QtPopupMenus.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <string>
#include <string_view>
#include <utility>

#include "base/Caption.h"
#include "commands/KeyTable.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/ShownKeys.h"

namespace tarnwell::ui {
namespace {

// What a caption may take of the screen's width; a picture and an arrow stand beside it.
constexpr int MostPercent = 75;

// What keys are known by. A caption may go on with what the entry is for: "Undo: Copy of 3 items".
std::string EntryBeside(const std::string& caption) {
  const std::string text = base::WithoutMarks(caption);
  return text.substr(0, text.find(':'));
}

}  // namespace

void QtPopupMenus::SetWindow(QMainWindow* window) {
  if (window_) window_->removeEventFilter(this);
  window_ = window;
  if (window_) window_->installEventFilter(this);
}

std::unique_ptr<platform::PopupMenu> QtPopupMenus::Create() {
  if (!window_) return nullptr;
  return std::make_unique<QtPopupMenu>(*this, *window_);
}

int QtPopupMenus::Track(QMenu& menu, QPoint place) {
  if (!window_ || open_ || window_->centralWidget() == nullptr) return 0;
  open_ = &menu;
  const QAction* const chosen = menu.exec(window_->centralWidget()->mapToGlobal(place));
  const int id = chosen != nullptr && !then_ ? chosen->data().toInt() : 0;
  if (open_) open_->close();  // the loop may have been ended from outside
  open_ = nullptr;
  if (then_) {
    QMetaObject::invokeMethod(qApp, std::exchange(then_, nullptr), Qt::QueuedConnection);
  }
  return id;
}

void QtPopupMenus::CloseThen(std::function<void()> then) {
  if (!open_) {
    then();
    return;
  }
  then_ = std::move(then);
  // The submenus close with it.
  open_->close();
}

platform::MenuLook QtPopupMenus::Look() const {
  platform::MenuLook look;
  look.PlaceInWindow = [this](int x, int y) {
    if (!window_ || window_->centralWidget() == nullptr) return std::pair(x, y);
    const QPointF place = window_->centralWidget()->mapTo(window_, QPointF(x, y));
    const qreal scale = window_->devicePixelRatioF();
    return std::pair(qRound(place.x() * scale), qRound(place.y() * scale));
  };
  look.Picture = [this](const std::string& name, int size) {
    const QImage image = icons_.Named(name)
                             .pixmap(QSize(size, size), 1)
                             .toImage()
                             .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    platform::MenuPicture picture{image.width(), image.height(), {}};
    for (int row = 0; row < image.height(); ++row) {
      const auto* const pixels = reinterpret_cast<const std::uint32_t*>(image.constScanLine(row));
      picture.Pixels.insert(picture.Pixels.end(), pixels, pixels + image.width());
    }
    return picture;
  };
  look.Keys = [](const std::string& caption) {
    return KeysOf(commands::KeysBeside(EntryBeside(caption)))
        .toString(QKeySequence::NativeText)
        .toStdString();
  };
  return look;
}

bool QtPopupMenus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Close || !open_ || watched != window_) return false;
  event->ignore();
  CloseThen([window = window_] {
    if (window) window->close();
  });
  return true;
}

QtPopupMenu::QtPopupMenu(QtPopupMenus& menus, QMainWindow& window)
    : menus_(menus), menu_(new QMenu(&window)) {}

bool QtPopupMenu::InsertOnTop(const platform::ContextEntry& entry) {
  if (!menu_) return false;
  Add(*menu_, entry, menu_->actions().value(0));
  // Not in submenus, which have the names of applications in them.
  ShowKeys(*menu_->actions().constFirst(), EntryBeside(entry.Caption));
  return true;
}

void QtPopupMenu::Remove(int id) {
  if (!menu_) return;
  for (QAction* const action : menu_->actions()) {
    if (action->data() == id) delete action;
  }
}

int QtPopupMenu::Track(int x, int y) {
  return menu_ ? menus_.Track(*menu_, QPoint(x, y)) : 0;
}

void QtPopupMenu::Add(QMenu& menu, const platform::ContextEntry& entry, QAction* before) const {
  if (entry.IsSeparator) {
    menu.insertSeparator(before);
    return;
  }
  QAction* action = nullptr;
  if (entry.Children.empty()) {
    action = new QAction(&menu);
  } else {
    auto* const submenu = new QMenu(&menu);
    for (const platform::ContextEntry& child : entry.Children) Add(*submenu, child, nullptr);
    action = submenu->menuAction();
  }
  const QString caption = ToShownQString(entry.Caption);
  const int room = menu.screen()->availableGeometry().width() * MostPercent / 100;
  const QString text =
      menu.fontMetrics().elidedText(caption, Qt::ElideMiddle, room, Qt::TextShowMnemonic);
  action->setText(text);
  if (text != caption) {
    menu.setToolTipsVisible(true);
    action->setToolTip(PlainToolTip(caption));
  }
  action->setObjectName(QStringLiteral("entry %1").arg(entry.Id));
  action->setData(entry.Id);
  action->setEnabled(entry.Enabled);
  action->setCheckable(entry.IsChecked);
  action->setChecked(entry.IsChecked);
  action->setIcon(menus_.icons_.Named(entry.Picture));
  menu.insertAction(before, action);
  if (entry.IsDefault) menu.setDefaultAction(action);
}

}  // namespace tarnwell::ui
