#include "ui/list/ListerKeys.h"

#include "lister/list/ListInput.h"

namespace tarnwell::ui {
namespace {

struct KeyPair {
  int Key;
  int Code;
};

constexpr KeyPair KeyPairs[] = {
    {Qt::Key_Backspace, lister::BackspaceKey},
    {Qt::Key_Return, lister::EnterKey},
    {Qt::Key_Enter, lister::EnterKey},
    {Qt::Key_Escape, lister::EscapeKey},
    {Qt::Key_Space, lister::SpaceKeyCode},
    {Qt::Key_PageUp, lister::PageUpKey},
    {Qt::Key_PageDown, lister::PageDownKey},
    {Qt::Key_End, lister::EndKey},
    {Qt::Key_Home, lister::HomeKey},
    {Qt::Key_Left, lister::LeftKey},
    {Qt::Key_Up, lister::UpKey},
    {Qt::Key_Right, lister::RightKey},
    {Qt::Key_Down, lister::DownKey},
    {Qt::Key_F3, lister::F3Key},
    {Qt::Key_Insert, lister::InsertKey},
    {Qt::Key_Delete, lister::DeleteKey},
    {Qt::Key_F1, lister::F1Key},
    {Qt::Key_F2, lister::F2Key},
};

bool IsCommand(Qt::KeyboardModifiers modifiers) {
  return modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

}  // namespace

int KeyCodeOf(const QKeyEvent& event) {
  const int key = event.key();
  for (const KeyPair& pair : KeyPairs) {
    if (pair.Key == key) return pair.Code;
  }
  const bool isLetterOrDigit =
      (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
  return isLetterOrDigit && IsCommand(event.modifiers()) ? key : 0;
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? lister::ShiftDown : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? lister::CtrlDown : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? lister::AltDown : 0);
}

QString TypedText(const QKeyEvent& event) {
  const QString text = event.text();
  if (text.isEmpty() || IsCommand(event.modifiers())) return {};
  const QChar first = text.at(0);
  return first.isPrint() || first.isSurrogate() ? text : QString();
}

}  // namespace tarnwell::ui
