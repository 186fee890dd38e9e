#include "ui/main/CommandStrip.h"

#include <QGuiApplication>
#include <QSignalBlocker>
#include <utility>

#include "ui/toolkit/ControlGeometry.h"
#include "ui/toolkit/Palettes.h"

namespace tarnwell::ui {
namespace {

QPalette PaletteOf(const forms::TextBox& box, bool skinned) {
  return skinned ? PlainPalette(ToQColor(box.BackColour), ToQColor(box.ForeColour))
                 : QGuiApplication::palette();
}

}  // namespace

CommandStrip::CommandStrip(workspace::MainForm& form, QWidget& area, std::function<void()> enter)
    : form_(form), path_(new QLineEdit(&area)), command_(new QComboBox(&area)) {
  path_->setReadOnly(true);
  path_->setFrame(false);
  path_->setTextMargins(0, 0, 0, 4);  // in line with what is typed beside it
  path_->setFocusPolicy(Qt::ClickFocus);
  path_->setAccessibleName(QStringLiteral("Current path"));
  command_->setEditable(true);
  command_->setInsertPolicy(QComboBox::NoInsert);
  command_->setCompleter(nullptr);
  command_->setCursor(Qt::ArrowCursor);
  command_->setAccessibleName(QStringLiteral("Command line"));
  QObject::connect(command_, &QComboBox::editTextChanged, command_, [this](const QString& text) {
    shown_ = text.toStdString();
    form_.cboCommand.Text = shown_;
  });
  QObject::connect(command_->lineEdit(), &QLineEdit::returnPressed, command_, std::move(enter));
  path_->hide();
  command_->hide();
}

void CommandStrip::Sync(bool skinned) {
  const forms::TextBox& path = form_.txtCurrentPath;
  PlaceAt(*path_, RectOf(path), IsPlaced(path));
  const QString text = ToShownQString(path.Text);
  if (path_->text() != text) {
    path_->setText(text);
    path_->setToolTip(PlainToolTip(text));
  }
  if (const QPalette colours = PaletteOf(path, skinned); path_->palette() != colours) {
    path_->setPalette(colours);
  }

  const forms::ComboBox& command = form_.cboCommand;
  PlaceAt(*command_, RectOf(command), IsPlaced(command));
  if (shown_ != command.Text) {
    const QSignalBlocker blocker(command_);
    shown_ = command.Text;
    command_->setEditText(ToShownQString(shown_));
  }
  if (const QPalette colours = PaletteOf(command, skinned); command_->palette() != colours) {
    command_->setPalette(colours);
  }
}

bool CommandStrip::HoldsCommand(const QWidget* widget) const {
  return widget == command_ || command_->isAncestorOf(widget);
}

}  // namespace tarnwell::ui
