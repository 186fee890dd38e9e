#include "ui/services/QtFileClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ui/toolkit/FileUris.h"

namespace tarnwell::ui {

void QtFileClipboard::Put(const platform::ClipboardFiles& files) {
  QGuiApplication::clipboard()->setMimeData(ClipboardDataOf(files).release());
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
