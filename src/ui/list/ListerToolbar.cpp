#include "ui/list/ListerToolbar.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <functional>
#include <utility>

#include "base/Caption.h"
#include "lister/ListerUser.h"
#include "ui/list/ListerChoice.h"
#include "ui/list/ListerPlace.h"
#include "ui/toolkit/Convert.h"
#include "workspace/ProgramSettings.h"

namespace tarnwell::ui {

namespace {

constexpr int ToolbarMargin = 4;
constexpr int Gap = 4;
constexpr int IconSide = 16;
constexpr int ListButtonSide = 24;
constexpr int ExtensionsMost = 140;
constexpr int ExtensionsLeast = 76;
constexpr int FilterMost = 260;
constexpr int FilterGood = 130;  // the buttons and the drop-down list leave it as much
constexpr int FilterLeast = 60;
constexpr double Rounding = 3;

enum Button : std::size_t { Calculate, Up, NewFolder, Bookmarks };

}  // namespace

// Its entries are made when they are about to be seen or stepped through, and stay while they are
// seen.
class ExtensionBox : public ListerChoice {
 public:
  using ListerChoice::ListerChoice;
  std::function<void()> Fill;
  bool IsOpen = false;

  void showPopup() override {
    Fill();
    IsOpen = true;
    ListerChoice::showPopup();
  }
  void hidePopup() override {
    ListerChoice::hidePopup();
    IsOpen = false;
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    Fill();
    ListerChoice::keyPressEvent(event);
  }
};

bool FilterField::event(QEvent* event) {
  // Ahead of the window, which has Escape as a shortcut.
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return QLineEdit::event(event);
}

void FilterField::keyPressEvent(QKeyEvent* event) {
  // Keys of the window, which are off here, are not typed either.
  if (event->modifiers().testFlag(Qt::AltModifier) && !event->text().isEmpty()) {
    return event->ignore();
  }
  switch (event->key()) {
    case Qt::Key_Escape:
      clear();
      [[fallthrough]];
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit ListAsked();
      return;
    case Qt::Key_Up:
      emit ExtensionsAsked();
      return;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

void FilterField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  emit FocusChanged();
}

void FilterField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  emit FocusChanged();
}

ListerToolbar::ListerToolbar(const lister::ListerControl& control, const ListerStyle& style,
                             const IconSource& icons, QWidget* parent)
    : QWidget(parent), control_(control), style_(style), filter_(new FilterField(this)) {
  setMinimumSize(0, 0);
  const QString home = PlaceOfList(control.Id());
  setAccessibleName(QStringLiteral("Toolbar of %1").arg(home));
  extensions_ = new ExtensionBox(QStringLiteral("Extensions of %1").arg(home), this);
  extensions_->Fill = [this] { FillExtensions(); };
  extensions_->setToolTip(QStringLiteral("Show files of one extension"));
  connect(extensions_, &QComboBox::activated, this,
          [this](int entry) { emit ExtensionChosen(extensions_->itemData(entry).toByteArray()); });
  connect(extensions_, &ListerChoice::FocusTaken, this, &ListerToolbar::FocusTaken);

  filter_->setAccessibleName(QStringLiteral("Filter of %1").arg(home));
  filter_->setPlaceholderText(QStringLiteral("Filter: * ? #"));
  filter_->setToolTip(
      QStringLiteral("Show names that fit: * any characters, ? one character, # one digit"));
  filter_->setClearButtonEnabled(true);
  for (QToolButton* const button : filter_->findChildren<QToolButton*>()) {
    button->setAccessibleName(QStringLiteral("Clear filter text of %1").arg(home));
  }
  filter_->setFrame(false);
  filter_->setMinimumSize(0, 0);
  filter_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(filter_, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
    QMenu* const menu = filter_->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(filter_->mapToGlobal(place));
  });
  // Not textEdited, since assistive technology sets a text without editing it.
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    update();
    if (text != ToQString(control_.Shown().Filter.Text())) emit FilterTyped(text);
  });
  connect(filter_, &FilterField::ListAsked, this, &ListerToolbar::ListAsked);
  connect(filter_, &FilterField::ExtensionsAsked, this, [this] {
    if (!extensions_->isVisible()) return;
    extensions_->setFocus();
    extensions_->showPopup();
  });
  connect(filter_, &FilterField::FocusChanged, this, [this] {
    update();
    if (filter_->hasFocus()) emit FocusTaken();
  });

  AddButton(Calculate, QStringLiteral("calculate"), QStringLiteral("Calculate folder sizes"),
            &ListerToolbar::CalculateAsked, icons);
  AddButton(Up, QStringLiteral("up"), QStringLiteral("Up one folder"), &ListerToolbar::UpAsked,
            icons);
  AddButton(NewFolder, QStringLiteral("newfolder"), QStringLiteral("New folder"),
            &ListerToolbar::NewFolderAsked, icons);
  AddButton(Bookmarks, QStringLiteral("bookmarks"), QStringLiteral("Bookmarks"),
            &ListerToolbar::OpenBookmarks, icons);
  ShowFilter();
}

void ListerToolbar::AddButton(std::size_t number, const QString& icon, const QString& tip,
                              void (ListerToolbar::*clicked)(), const IconSource& icons) {
  auto* const button = new QToolButton(this);
  button->setAutoRaise(true);
  button->setIcon(icons.Own(icon.toStdString()));
  button->setIconSize(QSize(IconSide, IconSide));
  connect(button, &QToolButton::clicked, this, clicked);
  buttons_[number] = button;
  Name(number, tip);
  // What was found has no folder of its own.
  const bool needsFolder = number == Up || number == NewFolder;
  if (lister::HasPane(control_.Id()) || !needsFolder) placed_.push_back(button);
  button->hide();
}

void ListerToolbar::Name(std::size_t number, const QString& tip) {
  buttons_[number]->setToolTip(tip);
  buttons_[number]->setAccessibleName(
      QStringLiteral("%1 of %2").arg(tip, PlaceOfList(control_.Id())));
}

void ListerToolbar::OpenBookmarks() {
  QToolButton* const button = buttons_[Bookmarks];
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (int slot = 0; slot < workspace::BookmarkCount; ++slot) {
    const std::string folder = control_.Input().Bookmark(slot);
    const std::string path = base::AsCaption(workspace::DisplayPathOf(folder));
    // The last digit of the number is the access key, and with Ctrl the key in the list.
    const int digit = (slot + 1) % 10;
    QAction* const entry = menu->addAction(QStringLiteral("%1&%2  %3\tCtrl+%2")
                                               .arg(slot < 9 ? QString() : QStringLiteral("1"))
                                               .arg(digit)
                                               .arg(ToShownQString(path)));
    entry->setEnabled(!folder.empty() && folder != workspace::EmptyBookmark);
    connect(entry, &QAction::triggered, this, [this, slot] {
      emit ListAsked();
      emit BookmarkChosen(slot);
    });
  }
  menu->popup(button->mapToGlobal(button->rect().bottomLeft()));
  if (button->hasFocus()) menu->setActiveAction(menu->actions().value(0));
}

void ListerToolbar::ShowFilter() {
  const QString text = ToQString(control_.Shown().Filter.Text());
  // The field is left alone while it says the same, for the sake of its cursor.
  if (filter_->text() != text) filter_->setText(text);
  update();
  const bool isFolder = !control_.ShowsFound();
  Name(Up, isFolder ? QStringLiteral("Up one folder") : QStringLiteral("Back to the folder"));
  buttons_[NewFolder]->setEnabled(isFolder);
  if (extensions_->IsOpen) return;
  const std::string& extension = control_.Shown().Filter.Extension();
  const QSignalBlocker blocker(extensions_);
  extensions_->clear();
  extensions_->addItem(QStringLiteral("All files"), QByteArray());
  if (!extension.empty()) {
    extensions_->addItem(QLatin1Char('.') + ToShownQString(extension),
                         QByteArray::fromStdString(extension));
  }
  extensions_->setCurrentIndex(extensions_->count() - 1);
}

void ListerToolbar::FillExtensions() {
  const QSignalBlocker blocker(extensions_);
  extensions_->clear();
  extensions_->addItem(QStringLiteral("All files"), QByteArray());
  for (const lister::ExtensionChoice& choice : control_.User().ExtensionChoices()) {
    extensions_->addItem(
        QStringLiteral(".%1 (%2)")
            .arg(ToShownQString(choice.Extension),
                 ToQString(control_.Forms().Grouped(static_cast<std::uint64_t>(choice.Count)))),
        QByteArray::fromStdString(choice.Extension));
  }
  const QByteArray chosen = QByteArray::fromStdString(control_.Shown().Filter.Extension());
  if (extensions_->findData(chosen) < 0) {
    extensions_->addItem(QLatin1Char('.') + ToShownQString(control_.Shown().Filter.Extension()),
                         chosen);
  }
  extensions_->setCurrentIndex(extensions_->findData(chosen));
}

void ListerToolbar::ShowStyle() {
  setPalette(style_.Toolbar);
  extensions_->setPalette(style_.Toolbar);  // an inherited one does not reach its pop-up
  update();
}

QSize ListerToolbar::sizeHint() const {
  return {200, RowHeight(fontMetrics())};
}

int ListerToolbar::RowHeight(const QFontMetrics& font) {
  return std::max(ListButtonSide, font.height() + 8) + 4;
}

QWidget& ListerToolbar::UpButton() const {
  return *buttons_[Up];
}

void ListerToolbar::EnterFilter() {
  filter_->setFocus();
  filter_->selectAll();
}

// What is least missed gives way first: the width of the extensions, then all of them, then the
// buttons from the right.
void ListerToolbar::PlaceChildren() {
  const int button = ListButtonSide + 2;
  const int room = width() - 2 * ToolbarMargin;
  int count = static_cast<int>(placed_.size());
  const auto left = [&] { return room - count * button; };
  const int spare = left() - FilterGood - 2 * Gap;
  const int extensions = spare >= ExtensionsLeast ? std::min(spare, ExtensionsMost) : 0;
  while (count > 0 && left() < FilterLeast) --count;

  const int top = 2;
  const int high = height() - 2 * top;
  int x = ToolbarMargin;
  extensions_->setVisible(extensions > 0);
  if (extensions > 0) {
    extensions_->setGeometry(x, top, extensions, high);
    x += extensions + Gap + 2;
  }
  // The field leaves room for the frame that is painted round it.
  const int field = std::min(FilterMost, width() - ToolbarMargin - count * button - Gap - x);
  filter_->setGeometry(x + 3, top + 3, std::max(0, field - 6), high - 6);
  for (int number = 0; number < static_cast<int>(placed_.size()); ++number) {
    QToolButton* const each = placed_[static_cast<std::size_t>(number)];
    each->setVisible(number < count);
    each->setGeometry(width() - ToolbarMargin - (count - number) * button + 2,
                      (height() - ListButtonSide) / 2, ListButtonSide, ListButtonSide);
  }
}

void ListerToolbar::resizeEvent(QResizeEvent*) {
  PlaceChildren();
}

void ListerToolbar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  painter.setRenderHint(QPainter::Antialiasing);
  // What filters has a coloured frame; a thick one is where the keyboard is.
  const auto frame = [&](const QRect& place, bool filters, bool thick, const QBrush& fill) {
    QColor line = palette().color(QPalette::Text);
    line.setAlphaF(0.3F);
    painter.setPen(
        QPen(filters || thick ? palette().color(QPalette::Highlight) : line, thick ? 2 : 1));
    painter.setBrush(fill);
    const double half = thick ? 0 : 0.5;
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), Rounding, Rounding);
  };
  frame(filter_->geometry().adjusted(-2, -2, 2, 2), !filter_->text().isEmpty(), filter_->hasFocus(),
        palette().brush(QPalette::Base));
  if (extensions_->isVisible() && !control_.Shown().Filter.Extension().empty()) {
    frame(extensions_->geometry(), true, true, Qt::NoBrush);
  }
}

}  // namespace tarnwell::ui
