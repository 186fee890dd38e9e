#include "ui/toolkit/LatinKeys.h"

#include <QChar>

namespace tarnwell::ui {
namespace {

// Where keys are, as X11 and Wayland number them: the kernel's numbers (linux/input-event-codes.h)
// and 8.
struct LetterRow {
  quint32 First;
  const char* Letters;  // from there to the right
};
constexpr LetterRow Rows[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

int LatinKeyAt(quint32 place) {
  for (const LetterRow& row : Rows) {
    const quint32 count = static_cast<quint32>(qstrlen(row.Letters));
    if (place >= row.First && place - row.First < count) return row.Letters[place - row.First];
  }
  return 0;
}

bool IsForeignLetter(int key) {
  // Keys that are no characters have numbers beyond those of all characters.
  if (key < 0x80 || key > static_cast<int>(QChar::LastValidCodePoint)) return false;
  const auto letter = static_cast<char32_t>(key);
  return QChar::isLetter(letter) && QChar::script(letter) != QChar::Script_Latin;
}

}  // namespace

std::unique_ptr<QKeyEvent> LatinKeyEvent(const QKeyEvent& event) {
  constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (!(event.modifiers() & commands) || !IsForeignLetter(event.key())) return nullptr;
  const int latin = LatinKeyAt(event.nativeScanCode());
  if (latin == 0) return nullptr;
  return std::make_unique<QKeyEvent>(event.type(), latin, event.modifiers(), event.nativeScanCode(),
                                     event.nativeVirtualKey(), event.nativeModifiers(),
                                     event.text(), event.isAutoRepeat(),
                                     static_cast<quint16>(event.count()));
}

}  // namespace tarnwell::ui
