#include "ui/forms/FindWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/StatusLabel.h"

namespace tarnwell::ui {

using tools::frmFind;

namespace {

// In logical pixels.
constexpr QSize UsualFindSize(960, 680);
constexpr int LeastListHeight = 120;
constexpr int SearchLetters = 80;  // of an entry of the menu of searches

constexpr int FindStatusLines = 2;
constexpr int FoundNewsTime = 10;  // milliseconds between two changes of the list

}  // namespace

FindWindow::FindWindow(frmFind& form, const MakeList& makeList)
    : form_(form),
      fields_(new FindFields(
          form, [this] { return AddButton(form_.cmdChoose, [this] { form_.cmdChooseClick(); }); },
          this)),
      recent_(new QPushButton(QStringLiteral("&Recent"))),
      searches_(new QMenu(recent_)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
  setSizeGripEnabled(false);
  news_.setSingleShot(true);
  news_.setInterval(FoundNewsTime);
  connect(&news_, &QTimer::timeout, this, [this] {
    if (!IsClosed()) Guarded([this] { form_.ShowNews(); });
  });
  auto* const upper = new QHBoxLayout;
  upper->setSpacing(DialogMargin);
  upper->addWidget(fields_, 1);
  upper->addLayout(MakeUpperButtons());
  QWidget* const list = makeList(*this);
  list->setMinimumHeight(LeastListHeight);
  status_ = MakeStatusLabel(FindStatusLines, this);
  note_ = new ElidedLabel(this);
  auto* const lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(status_);
  lines->addWidget(note_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addLayout(upper);
  column->addWidget(list, 1);
  column->addLayout(lines);
  column->addLayout(MakeLowerButtons());
  auto* const show = new QShortcut(Qt::CTRL | Qt::Key_Return, this);
  show->setKeys({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter});
  connect(show, &QShortcut::activated, this, [this] { TakeToPane(&frmFind::cmdShowInPaneClick); });
}

QPushButton* FindWindow::AddButton(const forms::Button& button, std::function<void()> click) {
  auto* const widget = new QPushButton(this);
  widget->setMinimumWidth(DialogButtonWidth);
  widget->setAutoDefault(false);
  connect(widget, &QPushButton::clicked, this, [click = std::move(click)] { Guarded(click); });
  buttons_.push_back({&button, widget});
  return widget;
}

QLayout* FindWindow::MakeUpperButtons() {
  recent_->setAutoDefault(false);
  recent_->setToolTip(QStringLiteral("The last searches, with all their settings"));
  searches_->setToolTipsVisible(true);
  recent_->setMenu(searches_);
  connect(searches_, &QMenu::aboutToShow, this, &FindWindow::FillRecent);
  auto* const column = new QVBoxLayout;
  column->setSpacing(DialogSpacing);
  column->addWidget(AddButton(form_.cmdFind, [this] { form_.cmdFindClick(); }));
  column->addWidget(AddButton(form_.cmdStop, [this] { form_.cmdStopClick(); }));
  column->addWidget(recent_);
  column->addStretch();
  return column;
}

QLayout* FindWindow::MakeLowerButtons() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addWidget(
      AddButton(form_.cmdShowInPane, [this] { TakeToPane(&frmFind::cmdShowInPaneClick); }));
  row->addWidget(
      AddButton(form_.cmdListInPane, [this] { TakeToPane(&frmFind::cmdListInPaneClick); }));
  row->addWidget(AddButton(form_.cmdNotRead, [this] { form_.cmdNotReadClick(); }));
  row->addStretch();
  row->addWidget(AddButton(form_.cmdClose, [this] { form_.cmdCloseClick(); }));
  return row;
}

void FindWindow::FillRecent() {
  searches_->clear();
  const int room = fontMetrics().averageCharWidth() * SearchLetters;
  const std::vector<std::string>& searches = form_.lstRecent.Items;
  for (std::size_t at = 0; at < searches.size(); ++at) {
    const QString whole = ToShownQString(searches[at]);
    QString text = fontMetrics().elidedText(whole, Qt::ElideMiddle, room);
    QAction* const action = searches_->addAction(text.replace('&', QStringLiteral("&&")));
    if (text != whole) action->setToolTip(PlainToolTip(whole));
    connect(action, &QAction::triggered, this, [this, at] { form_.lstRecentClick(at); });
  }
  searches_->addSeparator();
  connect(searches_->addAction(QStringLiteral("&Forget All")), &QAction::triggered, this,
          [this] { form_.ForgetRecent(); });
}

// --- What the form has

void FindWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  fields_->Sync();
  for (const auto& [button, widget] : buttons_) {
    widget->setText(ToShownQString(button->Caption));
    widget->setToolTip(ToShownQString(button->ToolTip));
    widget->setVisible(button->Visible);
    widget->setEnabled(button->Enabled);
    widget->setDefault(button->Default);
  }
  recent_->setEnabled(!form_.lstRecent.Items.empty());
  status_->setText(ToShownQString(form_.lblStatus.Caption));
  note_->ShowText(ToShownQString(form_.lblNote.Caption));
  if (form_.HasNews() && !news_.isActive()) news_.start();
}

void FindWindow::Measure() {
  if (form_.Width > 0) return resize(ToPixels(form_.Width), ToPixels(form_.Height));
  const QSize room = screen()->availableGeometry().size() * 9 / 10;
  resize(UsualFindSize.expandedTo(minimumSizeHint()).boundedTo(room));
  NotePlace();
}

void FindWindow::Show(QWidget* owner) {
  if (isVisible()) {
    raise();
    activateWindow();
  } else {
    ShowDialog(*this, form_, owner);
  }
  fields_->Enter();
}

// --- What the user does

// The pane has the keyboard then.
void FindWindow::TakeToPane(bool (frmFind::*click)()) {
  Guarded([&] {
    if ((form_.*click)() && !IsClosed() && parentWidget() != nullptr) {
      parentWidget()->window()->activateWindow();
    }
  });
}

void FindWindow::NotePlace() {
  if (IsClosed()) return;
  ui::NotePlace(*this, form_);
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void FindWindow::moveEvent(QMoveEvent* event) {
  NotePlace();
  QDialog::moveEvent(event);
}

void FindWindow::resizeEvent(QResizeEvent* event) {
  NotePlace();
  QDialog::resizeEvent(event);
}

void FindWindow::reject() {
  if (!IsClosed()) form_.EscapeKey();
}

// Unloading the form takes the window away.
void FindWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!IsClosed()) form_.cmdCloseClick();
}

}  // namespace tarnwell::ui
