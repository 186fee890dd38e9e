#include "ui/operation/OperationWindow.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/CountedTexts.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

// Logical pixels.
constexpr int WindowWidth = 560;
constexpr int LeastWidth = 420;
constexpr int WindowMargin = 4;
constexpr int CornerGap = 24;  // to the edges of the owner
// Of the screen's height; more rows are scrolled to.
constexpr double MostOfScreen = 0.6;

QString TitleOf(const std::vector<const fileops::OperationRecord*>& records,
                const platform::NumberForms& forms) {
  const auto asks = [](const fileops::OperationRecord* each) { return each->IsAsking; };
  const QString mark =
      std::ranges::any_of(records, asks) ? QStringLiteral("Question - ") : QString();
  if (records.size() != 1) {
    return mark +
           ToQString(platform::Counted(forms, platform::CountedText::Operations, records.size()));
  }
  const int percent = fileops::PercentOf(*records.front());
  const QString title = ToWindowTitle(records.front()->Title);
  if (percent < 0 || !mark.isEmpty()) return mark + title;
  return ToQString(platform::Counted(forms, platform::CountedText::PercentOfDeed,
                                     static_cast<std::uint64_t>(percent), {title.toStdString()}));
}

}  // namespace

OperationWindow::OperationWindow(fileops::OperationQueue& queue, const OperationTools& tools,
                                 Actions actions)
    : actions_(std::move(actions)),
      list_(new OperationList(
          queue, tools, [this] { actions_.Leave(); }, this)),
      forms_(tools.Forms) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
  setObjectName(QStringLiteral("OperationWindow"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(WindowMargin, WindowMargin, WindowMargin, WindowMargin);
  column->addWidget(list_);
  list_->Changed = [this] { Fit(); };
  connect(new QShortcut(Qt::CTRL | Qt::Key_J, this), &QShortcut::activated, this,
          [this] { actions_.Leave(); });
  setMinimumWidth(LeastWidth);
  resize(WindowWidth, 0);
}

void OperationWindow::Show(const std::vector<const fileops::OperationRecord*>& records) {
  list_->Show(records);
  if (records.empty()) return;
  const QString title = TitleOf(records, forms_);
  if (windowTitle() != title) setWindowTitle(title);
}

// As high as the rows; what is added goes on the screen.
void OperationWindow::Fit() {
  const int most = static_cast<int>(screen()->availableGeometry().height() * MostOfScreen);
  const int height = std::min(list_->sizeHint().height() + 2 * WindowMargin, most);
  if (height == minimumHeight() && height == maximumHeight()) return;
  setFixedHeight(height);
  const int below = frameGeometry().bottom() - screen()->availableGeometry().bottom();
  if (isVisible() && below > 0) move(x(), std::max(y() - below, 0));
}

void OperationWindow::Open(QWidget* owner) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  winId();  // makes the native window
  windowHandle()->setTransientParent(owner != nullptr ? owner->windowHandle() : nullptr);
  Fit();
  if (!std::exchange(isPlaced_, true)) {
    const QRect room = (owner != nullptr ? owner : this)->screen()->availableGeometry();
    const QRect corner = (owner != nullptr ? owner->frameGeometry() & room : room)
                             .adjusted(0, 0, -CornerGap, -CornerGap);
    move(std::max(room.left(), corner.right() - width()),
         std::max(room.top(), corner.bottom() - height()));
  }
  show();
}

void OperationWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  actions_.Dismiss();
}

void OperationWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  actions_.Shown();
}

}  // namespace tarnwell::ui
