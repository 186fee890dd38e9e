#include "ui/properties/ApplicationChooser.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "lister/rows/CellText.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ElidedLabel.h"

namespace tarnwell::ui {
namespace {

constexpr int ChooserWidth = 440;  // logical pixels, at least
constexpr int ListHeight = 280;
constexpr int EntryPictureSize = 24;
constexpr int RowPadding = 8;         // above and below together
constexpr int IdRole = Qt::UserRole;  // bytes; headings have none

bool IsApplication(const QListWidgetItem* item) {
  return item != nullptr && item->data(IdRole).isValid();
}

QIcon IconOf(const platform::ApplicationChoice& application, const IconSource& icons) {
  QIcon icon = icons.Named(application.Picture);
  if (!icon.pixmap(EntryPictureSize).isNull()) return icon;
  return QIcon::fromTheme(QStringLiteral("application-x-executable"), icons.Own("commandline"));
}

}  // namespace

ApplicationChooser::ApplicationChooser(const std::string& path, const std::string& type,
                                       const std::vector<platform::ApplicationChoice>& applications,
                                       const OperationTools& tools) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(QStringLiteral("Open With"));
  setObjectName(QStringLiteral("ApplicationChooser"));
  auto* const head = new ElidedLabel(this);
  head->ShowText(QStringLiteral("Choose an application for ") +
                 ToQString(lister::NameText(tools.Syntax, path)));
  search_.setPlaceholderText(QStringLiteral("Search"));
  search_.setAccessibleName(QStringLiteral("Search"));
  search_.setClearButtonEnabled(true);
  list_.setAccessibleName(QStringLiteral("Applications"));
  list_.setIconSize(QSize(EntryPictureSize, EntryPictureSize));
  list_.setMinimumWidth(ChooserWidth);
  list_.setFixedHeight(ListHeight);
  list_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_.setTextElideMode(Qt::ElideRight);
  AddSection(QStringLiteral("Recommended"), true, applications);
  AddSection(QStringLiteral("Other applications"), false, applications);
  for (int row = 0; row < list_.count(); ++row) {
    QListWidgetItem& item = *list_.item(row);
    if (!IsApplication(&item)) continue;
    const auto& application = applications[item.data(IdRole).toUInt()];
    item.setIcon(IconOf(application, tools.Icons));
    item.setData(IdRole, QByteArray::fromStdString(application.Id));
  }

  auto* const commandLabel = new QLabel(QStringLiteral("Or a co&mmand:"), this);
  commandLabel->setBuddy(&command_);
  command_.setAccessibleName(QStringLiteral("Command"));
  command_.setPlaceholderText(QStringLiteral("program and its arguments"));
  auto* const commandRow = new QHBoxLayout;
  commandRow->setSpacing(DialogSpacing);
  commandRow->addWidget(commandLabel);
  commandRow->addWidget(&command_);
  always_.setText(QStringLiteral("&Always use for files of type ") +
                  ToShownQString(type).replace('&', QStringLiteral("&&")));

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(DialogSpacing);
  buttons->addStretch();
  ok_.setText(QStringLiteral("&OK"));
  ok_.setDefault(true);
  cancel_.setText(QStringLiteral("Ca&ncel"));
  cancel_.setAutoDefault(false);
  for (QPushButton* const button : {&ok_, &cancel_}) {
    button->setMinimumWidth(DialogButtonWidth);
    buttons->addWidget(button);
  }
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(head);
  column->addWidget(&search_);
  column->addWidget(&list_);
  column->addLayout(commandRow);
  column->addWidget(&always_);
  column->addLayout(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);

  search_.installEventFilter(this);
  connect(&search_, &QLineEdit::textChanged, this, [this](const QString& text) { Narrow(text); });
  connect(&list_, &QListWidget::itemSelectionChanged, this, [this] {
    if (!list_.selectedItems().isEmpty()) command_.clear();
    Follow();
  });
  connect(&list_, &QListWidget::itemDoubleClicked, this, [this](const QListWidgetItem* item) {
    if (IsApplication(item)) accept();
  });
  connect(&command_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!text.isEmpty()) list_.clearSelection();
    Follow();
  });
  connect(&ok_, &QPushButton::clicked, this, [this] { accept(); });
  connect(&cancel_, &QPushButton::clicked, this, [this] { reject(); });
  SelectFirst();
  Follow();
  search_.setFocus();
}

void ApplicationChooser::AddSection(const QString& heading, bool registered,
                                    const std::vector<platform::ApplicationChoice>& applications) {
  bool hasHeading = false;
  for (std::size_t at = 0; at < applications.size(); ++at) {
    const platform::ApplicationChoice& application = applications[at];
    if (application.IsRegistered != registered) continue;
    if (!std::exchange(hasHeading, true)) {
      auto* const head = new QListWidgetItem(heading, &list_);
      head->setFlags(Qt::NoItemFlags);
      QFont bold = list_.font();
      bold.setBold(true);
      head->setFont(bold);
      head->setSizeHint(QSize(0, QFontMetrics(bold).height() + RowPadding));
      head->setForeground(list_.palette().brush(QPalette::Active, QPalette::Text));
    }
    auto* const item = new QListWidgetItem(ToShownQString(application.Name), &list_);
    item->setSizeHint(
        QSize(0, std::max(EntryPictureSize, list_.fontMetrics().height()) + RowPadding));
    item->setToolTip(PlainToolTip(item->text()));
    item->setData(IdRole, static_cast<uint>(at));
  }
}

// A heading is shown as long as anything below it is.
void ApplicationChooser::Narrow(const QString& text) {
  QListWidgetItem* head = nullptr;
  for (int row = 0; row < list_.count(); ++row) {
    QListWidgetItem* const item = list_.item(row);
    if (!IsApplication(item)) {
      head = item;
      head->setHidden(true);
      continue;
    }
    const bool fits = item->text().contains(text.trimmed(), Qt::CaseInsensitive);
    item->setHidden(!fits);
    if (fits && head != nullptr) head->setHidden(false);
  }
  const auto selected = list_.selectedItems();
  if (selected.isEmpty() || selected.front()->isHidden()) SelectFirst();
}

void ApplicationChooser::SelectFirst() {
  list_.clearSelection();
  list_.setCurrentItem(nullptr);
  for (int row = 0; row < list_.count(); ++row) {
    QListWidgetItem* const item = list_.item(row);
    if (item->isHidden() || !IsApplication(item)) continue;
    list_.setCurrentItem(item);
    // With its heading, where that is just above.
    list_.scrollToTop();
    return;
  }
}

void ApplicationChooser::Follow() {
  always_.setEnabled(command_.text().trimmed().isEmpty());
  ok_.setEnabled(Chosen().has_value());
}

std::optional<platform::ChosenApplication> ApplicationChooser::Chosen() const {
  const QString command = command_.text().trimmed();
  if (!command.isEmpty()) return platform::ChosenApplication{{}, command.toStdString()};
  const auto selected = list_.selectedItems();
  if (selected.isEmpty() || selected.front()->isHidden()) return std::nullopt;
  const QByteArray id = selected.front()->data(IdRole).toByteArray();
  return platform::ChosenApplication{id.toStdString(), {}, always_.isChecked()};
}

// From the search box the list is driven without leaving it.
bool ApplicationChooser::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == &search_ && event->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        QCoreApplication::sendEvent(&list_, event);
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(receiver, event);
}

}  // namespace tarnwell::ui
