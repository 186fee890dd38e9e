#include "ui/main/CommandStrip.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <limits>
#include <utility>

#include "ui/toolkit/ControlGeometry.h"

namespace tarnwell::ui {

namespace {

class CommandField : public QLineEdit {
 public:
  explicit CommandField(std::function<void(bool shift)> enter) : enter_(std::move(enter)) {
    setMaxLength(std::numeric_limits<int>::max());  // a command that is cut is another command
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    // Keys of the window, which are off here, neither type nor start anything.
    if (event->modifiers().testFlag(Qt::AltModifier) && !event->text().isEmpty()) {
      return event->ignore();
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
      return QLineEdit::keyPressEvent(event);
    }
    if (!event->isAutoRepeat()) enter_(event->modifiers().testFlag(Qt::ShiftModifier));
  }

 private:
  std::function<void(bool shift)> enter_;
};

}  // namespace

CommandStrip::CommandStrip(workspace::MainForm& form, QWidget& area,
                           std::function<void(bool shift)> enter)
    : form_(form), path_(new QLineEdit(&area)), command_(new QComboBox(&area)) {
  path_->setReadOnly(true);
  path_->setFrame(false);
  path_->setTextMargins(0, 0, 0, 4);  // in line with what is typed beside it
  path_->setFocusPolicy(Qt::ClickFocus);
  path_->setAccessibleName(QStringLiteral("Current path"));
  command_->setLineEdit(new CommandField(std::move(enter)));
  command_->setInsertPolicy(QComboBox::NoInsert);
  command_->setCompleter(nullptr);
  command_->setCursor(Qt::ArrowCursor);
  command_->setAccessibleName(QStringLiteral("Command line"));
  QObject::connect(command_, &QComboBox::editTextChanged, command_, [this](const QString& text) {
    shown_ = text.toStdString();
    form_.cboCommand.Text = shown_;
  });
  path_->hide();
  command_->hide();
}

void CommandStrip::Sync(const std::optional<PaletteColours>& skin) {
  const forms::TextBox& path = form_.txtCurrentPath;
  PlaceAt(*path_, RectOf(path), IsPlaced(path));
  const QString text = ToShownQString(path.Text);
  if (path_->text() != text) {
    path_->setText(text);
    path_->setToolTip(PlainToolTip(text));
  }
  pathColours_.Show(*path_, BoxColours(path, skin));

  const forms::ComboBox& command = form_.cboCommand;
  PlaceAt(*command_, RectOf(command), IsPlaced(command));
  if (shown_ != command.Text) {
    const QSignalBlocker blocker(command_);
    shown_ = command.Text;
    command_->setEditText(ToShownQString(shown_));
  }
  commandColours_.Show(*command_, BoxColours(command, skin));
}

bool CommandStrip::HoldsCommand(const QWidget* widget) const {
  return widget == command_ || command_->isAncestorOf(widget);
}

}  // namespace tarnwell::ui
