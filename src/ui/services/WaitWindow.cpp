#include "ui/services/WaitWindow.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ElidedLabel.h"

namespace tarnwell::ui {
namespace {

constexpr int WaitWindowWidth = 360;  // logical pixels

}  // namespace

WaitWindow::WaitWindow(const std::string& place, std::function<void()> cancel)
    : cancel_(std::move(cancel)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(QStringLiteral("Waiting"));
  setObjectName(QStringLiteral("WaitWindow"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  auto* const text = new ElidedLabel(this);
  text->ShowText(ToQString("Waiting for " + place + " to answer..."));
  column->addWidget(text);
  auto* const bar = new QProgressBar;
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setAccessibleName(QStringLiteral("Waiting"));
  column->addWidget(bar);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* const button = new QPushButton(QStringLiteral("Ca&ncel"));
  button->setMinimumWidth(DialogButtonWidth);
  button->setAutoDefault(false);
  buttons->addWidget(button);
  column->addLayout(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
  bar->setMinimumWidth(WaitWindowWidth - 2 * DialogMargin);
  // Whoever was typing when the window came presses no button.
  bar->setFocusPolicy(Qt::StrongFocus);
  bar->setFocus();
  connect(button, &QPushButton::clicked, this, [this] { reject(); });
}

}  // namespace tarnwell::ui
