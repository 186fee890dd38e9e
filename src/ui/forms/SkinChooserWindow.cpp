#include "ui/forms/SkinChooserWindow.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {

using settings::frmSkinChooser;
using settings::SkinColourCount;
namespace {

// In logical pixels.
constexpr int SkinListWidth = 220;
constexpr int LeastListWidth = 120;  // where the screen is narrow
constexpr int SkinListSpacing = 2;
constexpr int RowSpacing = 3;
constexpr int SwatchRowGap = 8;      // between what stands in a row
constexpr int SwatchColumnGap = 26;  // between the columns of rows
constexpr int ChooseWidth = 34;
constexpr int SampleSize = 18;
constexpr int FocusWidth = 2;

constexpr int MostColumns = 4;  // of rows
constexpr int ColumnParts = 4;  // label, swatch, button, and the gap to the next column

struct ChooserButton {
  forms::Button frmSkinChooser::*Button;
  void (frmSkinChooser::*Click)();
};
constexpr ChooserButton SkinButtons[] = {
    {&frmSkinChooser::cmdLoad, &frmSkinChooser::cmdLoadClick},
    {&frmSkinChooser::cmdSave, &frmSkinChooser::cmdSaveClick},
    {&frmSkinChooser::cmdResave, &frmSkinChooser::cmdResaveClick},
    {&frmSkinChooser::cmdRename, &frmSkinChooser::cmdRenameClick},
    {&frmSkinChooser::cmdDel, &frmSkinChooser::cmdDelClick},
    {&frmSkinChooser::cmdImport, &frmSkinChooser::cmdImportClick},
    {&frmSkinChooser::cmdExport, &frmSkinChooser::cmdExportClick},
};

// With the keyboard in the list.
struct ListKey {
  Qt::Key Key;
  void (frmSkinChooser::*Act)();
};
constexpr ListKey ListKeys[] = {
    {Qt::Key_Return, &frmSkinChooser::lstSkinsDblClick},
    {Qt::Key_Enter, &frmSkinChooser::lstSkinsDblClick},
    {Qt::Key_F2, &frmSkinChooser::cmdRenameClick},
    {Qt::Key_Delete, &frmSkinChooser::cmdDelClick},
};

// Tells, like the swatches, that it has the keyboard.
class SkinList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QListWidget::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Text), FocusWidth));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
  }
  void scrollContentsBy(int dx, int dy) override {
    QListWidget::scrollContentsBy(dx, dy);
    viewport()->update();  // the mark stays where it is
  }
};

}  // namespace

SkinChooserWindow::SkinChooserWindow(frmSkinChooser& form)
    : form_(form),
      list_(new SkinList(this)),
      sample_(new QLabel(this)),
      hint_(new ElidedLabel(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  auto* const upper = new QHBoxLayout;
  upper->setSpacing(PageSpacing);
  upper->addWidget(MakeSkins());
  upper->addWidget(MakeColours());
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addLayout(upper);
  column->addLayout(MakeButtons());
  column->setSizeConstraint(QLayout::SetFixedSize);
}

QPushButton* SkinChooserWindow::AddButton(const forms::Button& button,
                                          void (frmSkinChooser::*click)()) {
  auto* const widget = new QPushButton(ToQString(button.Caption), this);
  widget->setMinimumWidth(DialogButtonWidth);
  widget->setDefault(button.Default);
  connect(widget, &QPushButton::clicked, this, [this, click] { (form_.*click)(); });
  return widget;
}

QWidget* SkinChooserWindow::MakeSkins() {
  list_->setAccessibleName(ToQString(form_.TabStrip1.Caption));
  list_->setFixedWidth(SkinListWidth);
  list_->setSpacing(SkinListSpacing);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setTextElideMode(Qt::ElideMiddle);
  // As high as what stands beside it.
  list_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  connect(list_, &QListWidget::itemSelectionChanged, this, [this] {
    const bool none = list_->selectedItems().isEmpty();
    form_.lstSkinsClick(none ? -1 : list_->currentRow());
  });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { form_.lstSkinsDblClick(); });
  for (const ListKey& key : ListKeys) {
    auto* const shortcut = new QShortcut(key.Key, list_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, act = key.Act] { (form_.*act)(); });
  }
  auto* const page = new QWidget(this);
  auto* const row = new QHBoxLayout(page);
  row->setSpacing(DialogSpacing);
  row->addWidget(list_);
  auto* const buttons = new QVBoxLayout;
  for (const ChooserButton& each : SkinButtons) {
    buttons->addWidget(AddButton(form_.*each.Button, each.Click));
  }
  buttons->addStretch();
  row->addLayout(buttons);
  auto* const tabs = new QTabWidget(this);
  tabs->addTab(page, ToQString(form_.TabStrip1.Caption));
  tabs->tabBar()->setFocusPolicy(Qt::NoFocus);  // there is no other tab to go to
  return tabs;
}

QWidget* SkinChooserWindow::MakeColours() {
  auto* const rows = new QWidget(this);
  grid_ = new QGridLayout(rows);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setVerticalSpacing(RowSpacing);
  grid_->setHorizontalSpacing(SwatchRowGap);
  // The arrows go to the nearest button that way.
  auto* const arrows = new QButtonGroup(this);
  arrows->setExclusive(false);
  for (std::size_t index = 0; index < SkinColourCount; ++index) {
    const QString name = ToQString(form_.lblItem[index].Caption);
    auto* const label = new QLabel(name, rows);
    auto* const swatch = new ColourSwatch(name, rows);
    auto* const choose = new QPushButton(ToQString(form_.cmdChoose[index].Caption), rows);
    choose->setFixedWidth(ChooseWidth);
    choose->setAccessibleName(QStringLiteral("Choose %1...").arg(name));
    choose->setToolTip(choose->accessibleName());
    connect(swatch, &QPushButton::clicked, this, [this, index] { form_.Picture1Click(index); });
    connect(choose, &QPushButton::clicked, this, [this, index] { form_.cmdChooseClick(index); });
    arrows->addButton(swatch);
    arrows->addButton(choose);
    rows_.at(index) = {label, swatch, choose};
  }
  page_ = new ScrollPage(rows, this);
  for (QAbstractButton* const each : arrows->buttons()) page_->KeepInSight(*each);
  auto* const frame = new QGroupBox(ToQString(form_.Frame1.Caption), this);
  auto* const inside = new QVBoxLayout(frame);
  inside->addWidget(page_);
  return frame;
}

QLayout* SkinChooserWindow::MakeButtons() {
  sample_->setFixedSize(SampleSize, SampleSize);
  sample_->setFrameShape(QFrame::Box);
  sample_->setAutoFillBackground(true);
  sample_->setAccessibleName(QStringLiteral("Held color"));
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addWidget(sample_);
  row->addWidget(hint_, 1);
  row->addWidget(AddButton(form_.cmdOK, &frmSkinChooser::cmdOKClick));
  row->addWidget(AddButton(form_.cmdCancel, &frmSkinChooser::cmdCancelClick));
  return row;
}

// From the top down, one column after another.
void SkinChooserWindow::LayRows(int columns) {
  const int perColumn = (static_cast<int>(SkinColourCount) + columns - 1) / columns;
  for (int i = 0; i < static_cast<int>(SkinColourCount); ++i) {
    const int row = i % perColumn;
    const int column = i / perColumn * ColumnParts;
    const Row& each = rows_.at(static_cast<std::size_t>(i));
    QWidget* const parts[] = {each.Label, each.Swatch, each.Choose};
    for (int part = 0; part < 3; ++part) {
      grid_->removeWidget(parts[part]);
      grid_->addWidget(parts[part], row, column + part);
    }
  }
  for (int column = 1; column < MostColumns; ++column) {
    grid_->setColumnMinimumWidth(column * ColumnParts - 1,
                                 column < columns ? SwatchColumnGap - 2 * SwatchRowGap : 0);
  }
}

void SkinChooserWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  SyncList();
  for (std::size_t index = 0; index < SkinColourCount; ++index) {
    rows_.at(index).Swatch->ShowColour(ToQColor(form_.Picture1.at(index).BackColour));
  }
  SyncHeld();
}

void SkinChooserWindow::SyncList() {
  const QSignalBlocker own(list_);
  if (shownSkins_ != form_.lstSkins.Items) {
    shownSkins_ = form_.lstSkins.Items;
    list_->clear();
    for (const std::string& name : shownSkins_) {
      auto* const item = new QListWidgetItem(ToShownQString(name), list_);
      item->setToolTip(PlainToolTip(item->text()));
    }
  }
  const int chosen = form_.lstSkins.ListIndex;
  const int shown = list_->selectedItems().isEmpty() ? -1 : list_->currentRow();
  if (shown != chosen) list_->setCurrentRow(chosen);
}

void SkinChooserWindow::SyncHeld() {
  const base::Colour held = form_.HeldColour();
  if (shownHeld_ == held) return;
  shownHeld_ = held;
  const bool holds = held != frmSkinChooser::NoColour;
  sample_->setVisible(holds);
  if (!holds) {
    unsetCursor();
    hint_->ShowText(
        QStringLiteral("Click a color to pick it up, then the one to be changed to it."));
    return;
  }
  const QColor colour = ToQColor(held);
  QPalette palette;
  palette.setColor(QPalette::Window, colour);
  sample_->setPalette(palette);
  sample_->setAccessibleDescription(colour.name());
  setCursor(PointerHolding(colour, devicePixelRatioF()));
  hint_->ShowText(
      QStringLiteral("Holding %1. Click the color to be changed to it, or press Escape.")
          .arg(colour.name()));
}

void SkinChooserWindow::Measure() {
  const int room = screen()->availableGeometry().width();
  const auto fit = [this, room](int columns, bool mayScroll) {
    LayRows(columns);
    // Else the outer layouts would hear of it from the event loop.
    page_->updateGeometry();
    page_->parentWidget()->updateGeometry();
    layout()->activate();
    const bool scrolls = page_->sizeHint().height() < page_->widget()->sizeHint().height();
    return sizeHint().width() <= room && (mayScroll || !scrolls);
  };
  if (!fit(2, false) && !fit(3, false) && !fit(MostColumns, false) && !fit(2, true)) {
    list_->setFixedWidth(LeastListWidth);
    fit(1, true);
  }
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void SkinChooserWindow::Show(QWidget* owner) {
  const bool isNew = !isVisible();
  ShowDialog(*this, form_, owner);
  NotePlace();
  if (isNew) list_->setFocus();
}

void SkinChooserWindow::NotePlace() {
  if (!IsClosed()) ui::NotePlace(*this, form_);
}

void SkinChooserWindow::moveEvent(QMoveEvent* event) {
  NotePlace();
  QDialog::moveEvent(event);
}

void SkinChooserWindow::reject() {
  if (IsClosed()) return;
  if (form_.HeldColour() == frmSkinChooser::NoColour) {
    form_.CloseClick();
  } else {
    form_.DropHeldColour();
  }
}

void SkinChooserWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form takes the window away
  if (!IsClosed()) form_.CloseClick();
}

}  // namespace tarnwell::ui
