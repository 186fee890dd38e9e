#include "ui/forms/MapDriveWindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/RoomyRows.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/StatusLabel.h"

namespace tarnwell::ui {

using tools::frmMapDrive;
namespace {

// In logical pixels.
constexpr int AddressWidth = 420;
constexpr int PlacesHeight = 150;
constexpr int MapStatusLines = 3;

// The toolkit moves on from the row that it frames, chosen or not: a single one was out of reach.
class PlacesList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool moves =
        event->key() == Qt::Key_Down || event->key() == Qt::Key_Up || event->key() == Qt::Key_Home;
    if (moves && currentItem() != nullptr && selectedItems().isEmpty()) {
      return currentItem()->setSelected(true);
    }
    QListWidget::keyPressEvent(event);
  }
};

}  // namespace

MapDriveWindow::MapDriveWindow(frmMapDrive& form)
    : form_(form),
      kindLabel_(new QLabel(this)),
      kind_(new QComboBox(this)),
      addressLabel_(new QLabel(this)),
      address_(new QLineEdit(this)),
      example_(new QLabel(this)),
      placesLabel_(new QLabel(this)),
      places_(new PlacesList(this)),
      status_(MakeStatusLabel(MapStatusLines, this)),
      forget_(AddButton(&frmMapDrive::cmdForgetClick)),
      connect_(AddButton(&frmMapDrive::cmdConnectClick)),
      cancel_(AddButton(&frmMapDrive::cmdCancelClick)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  kindLabel_->setBuddy(kind_);
  addressLabel_->setBuddy(address_);
  placesLabel_->setBuddy(places_);
  example_->setTextFormat(Qt::PlainText);
  address_->setMinimumWidth(AddressWidth);
  places_->setItemDelegate(new RoomyRows(places_));
  places_->setAccessibleName(QStringLiteral("Places"));
  places_->setMinimumHeight(PlacesHeight);
  places_->setTextElideMode(Qt::ElideMiddle);
  places_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  LayOut();

  connect(kind_, &QComboBox::activated, this, [this](int index) { form_.lstKindClick(index); });
  connect(address_, &QLineEdit::textChanged, this, [this](const QString& text) {
    shownAddress_ = FromEditedQString(text);
    form_.txtAddressChange(shownAddress_);
    SyncAddress();  // at once: what the form took out is for no eyes
  });
  connect(places_, &QListWidget::itemSelectionChanged, this, [this] {
    form_.lstPlacesClick(places_->selectedItems().isEmpty() ? -1 : places_->currentRow());
  });
  connect(places_, &QListWidget::itemDoubleClicked, this, [this] { form_.lstPlacesDblClick(); });
  auto* const forget = new QShortcut(Qt::Key_Delete, places_);
  forget->setContext(Qt::WidgetShortcut);
  connect(forget, &QShortcut::activated, this, [this] { form_.cmdForgetClick(); });
}

QPushButton* MapDriveWindow::AddButton(void (frmMapDrive::*click)()) {
  auto* const widget = new QPushButton(this);
  widget->setMinimumWidth(DialogButtonWidth);
  connect(widget, &QPushButton::clicked, this, [this, click] { (form_.*click)(); });
  return widget;
}

void MapDriveWindow::LayOut() {
  auto* const grid = new QGridLayout;
  grid->setSpacing(DialogSpacing);
  grid->addWidget(kindLabel_, 0, 0);
  grid->addWidget(kind_, 0, 1);
  grid->addWidget(addressLabel_, 1, 0);
  grid->addWidget(address_, 1, 1);
  grid->addWidget(example_, 2, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(DialogSpacing);
  buttons->addWidget(forget_);
  buttons->addStretch();
  buttons->addWidget(connect_);
  buttons->addWidget(cancel_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addLayout(grid);
  column->addWidget(placesLabel_);
  column->addWidget(places_, 1);
  column->addWidget(status_);
  column->addLayout(buttons);
}

void MapDriveWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  kindLabel_->setText(ToQString(form_.lblKind.Caption));
  addressLabel_->setText(ToQString(form_.lblAddress.Caption));
  example_->setText(ToQString(form_.lblExample.Caption));
  placesLabel_->setText(ToQString(form_.lblPlaces.Caption));
  if (shownKinds_ != form_.lstKind.Items) {
    const QSignalBlocker own(kind_);
    shownKinds_ = form_.lstKind.Items;
    kind_->clear();
    for (const std::string& kind : shownKinds_) kind_->addItem(ToQString(kind));
  }
  kind_->setCurrentIndex(form_.lstKind.ListIndex);
  kind_->setEnabled(form_.lstKind.Enabled && !shownKinds_.empty());
  SyncAddress();
  SyncList();
  ShowStatus(*status_, form_.lblStatus.Caption);

  forget_->setText(ToQString(form_.cmdForget.Caption));
  forget_->setToolTip(ToQString(form_.cmdForget.ToolTip));
  connect_->setText(ToQString(form_.cmdConnect.Caption));
  connect_->setDefault(form_.cmdConnect.Default);
  cancel_->setText(ToQString(form_.cmdCancel.Caption));
  const bool hadKeyboard = address_->hasFocus() || connect_->hasFocus() || places_->hasFocus();
  if (form_.IsConnecting() && hadKeyboard) cancel_->setFocus();
  const bool wasOff = !address_->isEnabled();
  address_->setEnabled(form_.txtAddress.Enabled);
  places_->setEnabled(form_.lstPlaces.Enabled);
  connect_->setEnabled(form_.cmdConnect.Enabled);
  forget_->setEnabled(form_.cmdForget.Enabled);
  if (wasOff && address_->isEnabled()) address_->setFocus();
}

void MapDriveWindow::SyncAddress() {
  if (shownAddress_ == form_.txtAddress.Text) return;
  shownAddress_ = form_.txtAddress.Text;
  const QSignalBlocker own(address_);
  address_->setText(ToEditedQString(shownAddress_));
}

void MapDriveWindow::SyncList() {
  const QSignalBlocker own(places_);
  if (shownPlaces_ != form_.lstPlaces.Items) {
    shownPlaces_ = form_.lstPlaces.Items;
    places_->clear();
    for (const std::string& place : shownPlaces_) {
      auto* const item = new QListWidgetItem(ToShownQString(place), places_);
      item->setToolTip(PlainToolTip(item->text()));
    }
  }
  const int chosen = form_.lstPlaces.ListIndex;
  if (places_->currentRow() != chosen) places_->setCurrentRow(chosen);
}

void MapDriveWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void MapDriveWindow::Show(QWidget* owner) {
  if (isVisible()) {
    raise();
    return activateWindow();
  }
  ShowDialog(*this, form_, owner);
  address_->setFocus();
  address_->end(false);
}

void MapDriveWindow::reject() {
  if (!IsClosed()) form_.cmdCancelClick();
}

void MapDriveWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form takes the window away
  if (!IsClosed()) form_.CloseClick();
}

}  // namespace tarnwell::ui
