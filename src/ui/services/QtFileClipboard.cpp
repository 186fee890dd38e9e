#include "ui/services/QtFileClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "ui/toolkit/FileUris.h"

namespace tarnwell::ui {

QtFileClipboard::QtFileClipboard(std::function<std::string()> cutByShell)
    : cutByShell_(std::move(cutByShell)) {
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context_,
                   [this] { TellCut(); });
}

void QtFileClipboard::Put(const platform::ClipboardFiles& files) {
  own_ = ClipboardDataOf(files).release();
  cut_ = files.IsCut ? files.Items : std::string();
  QGuiApplication::clipboard()->setMimeData(own_);
}

void QtFileClipboard::TellCut() {
  const QClipboard* const clipboard = QGuiApplication::clipboard();
  const bool isOwn = own_ && clipboard->ownsClipboard() && clipboard->mimeData() == own_;
  std::string items;
  if (isOwn) {
    items = cut_;
  } else if (cutByShell_) {
    items = cutByShell_();
  }
  if (items == told_) return;
  told_ = items;
  if (CutChanged) CutChanged(items);
}

bool QtFileClipboard::HasFiles() const {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && ui::HasFiles(*data);
}

platform::ClipboardFiles QtFileClipboard::Get() const {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr ? FilesOf(*data) : platform::ClipboardFiles();
}

void QtFileClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

}  // namespace tarnwell::ui
