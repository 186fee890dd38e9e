#include "ui/forms/DisconnectWindow.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/RoomyRows.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/StatusLabel.h"

namespace tarnwell::ui {

using tools::frmDisconnect;
namespace {

// In logical pixels.
constexpr QSize DisconnectListSize(620, 190);
constexpr int PlaceWidth = 170;
constexpr int SourceWidth = 280;
constexpr int DisconnectStatusLines = 3;

}  // namespace

DisconnectWindow::DisconnectWindow(frmDisconnect& form)
    : form_(form),
      label_(new QLabel(this)),
      places_(new QTreeWidget(this)),
      status_(MakeStatusLabel(DisconnectStatusLines, this)),
      disconnect_(new QPushButton(this)),
      close_(new QPushButton(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  label_->setBuddy(places_);
  places_->setHeaderLabels(
      {QStringLiteral("Place"), QStringLiteral("Address"), QStringLiteral("State")});
  places_->setItemDelegate(new RoomyRows(places_));
  places_->setAccessibleName(QStringLiteral("Places"));
  places_->setRootIsDecorated(false);
  places_->setAllColumnsShowFocus(true);
  places_->setUniformRowHeights(true);
  places_->setTextElideMode(Qt::ElideMiddle);
  places_->setMinimumSize(DisconnectListSize);
  places_->header()->resizeSection(0, PlaceWidth);
  places_->header()->resizeSection(1, SourceWidth);
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(DialogSpacing);
  buttons->addStretch();
  for (QPushButton* const button : {disconnect_, close_}) {
    button->setMinimumWidth(DialogButtonWidth);
    buttons->addWidget(button);
  }
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(label_);
  column->addWidget(places_, 1);
  column->addWidget(status_);
  column->addLayout(buttons);

  connect(places_, &QTreeWidget::itemSelectionChanged, this, [this] {
    const QList<QTreeWidgetItem*> chosen = places_->selectedItems();
    form_.lstPlacesClick(chosen.isEmpty() ? -1 : places_->indexOfTopLevelItem(chosen.constFirst()));
  });
  connect(disconnect_, &QPushButton::clicked, this, [this] { form_.cmdDisconnectClick(); });
  connect(close_, &QPushButton::clicked, this, [this] { form_.cmdCloseClick(); });
}

void DisconnectWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  label_->setText(ToQString(form_.lblPlaces.Caption));
  SyncList();
  ShowStatus(*status_, form_.lblStatus.Caption);
  disconnect_->setText(ToQString(form_.cmdDisconnect.Caption));
  disconnect_->setDefault(form_.cmdDisconnect.Default);
  if (!form_.cmdDisconnect.Enabled && disconnect_->hasFocus()) places_->setFocus();
  disconnect_->setEnabled(form_.cmdDisconnect.Enabled);
  close_->setText(ToQString(form_.cmdClose.Caption));
}

void DisconnectWindow::SyncList() {
  const QSignalBlocker own(places_);
  const int count = static_cast<int>(form_.Rows().size());
  while (places_->topLevelItemCount() > count) delete places_->takeTopLevelItem(count);
  while (places_->topLevelItemCount() < count) new QTreeWidgetItem(places_);
  for (int i = 0; i < count; ++i) {
    const frmDisconnect::Row& row = form_.Rows()[static_cast<std::size_t>(i)];
    QTreeWidgetItem& item = *places_->topLevelItem(i);
    int column = 0;
    for (const std::string* text : {&row.Name, &row.Source, &row.State}) {
      item.setText(column, ToShownQString(*text));
      item.setToolTip(column, PlainToolTip(item.text(column)));
      ++column;
    }
  }
  QTreeWidgetItem* const chosen = places_->topLevelItem(form_.lstPlaces.ListIndex);
  if (places_->currentItem() != chosen) places_->setCurrentItem(chosen);
}

void DisconnectWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void DisconnectWindow::Show(QWidget* owner) {
  if (isVisible()) {
    raise();
    return activateWindow();
  }
  ShowDialog(*this, form_, owner);
  places_->setFocus();
}

void DisconnectWindow::reject() {
  if (!IsClosed()) form_.cmdCloseClick();
}

}  // namespace tarnwell::ui
