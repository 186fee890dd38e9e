#include "ui/KeyPlaces.h"

#include <QChar>
#include <QGuiApplication>
#include <algorithm>
#include <cstdint>
#include <iterator>

#if QT_CONFIG(xcb)
#include <QtGui/qguiapplication_platform.h>
#include <xcb/xcb.h>

#include <cstdlib>
#endif

namespace tarnwell::ui {
namespace {

// Where keys are, as X11 and Wayland number them: the kernel's numbers (linux/input-event-codes.h)
// and 8.
constexpr int SpacePlace = 65;
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

#if QT_CONFIG(xcb)

template <typename Reply>
using XcbReply = std::unique_ptr<Reply, decltype(&std::free)>;

// False where the server gives no answer.
bool AskServer(xcb_connection_t* server, KeysDown& down) {
  const auto keymapAsked = xcb_query_keymap(server);
  const auto modifiersAsked = xcb_get_modifier_mapping(server);
  const XcbReply<xcb_query_keymap_reply_t> keymap(
      xcb_query_keymap_reply(server, keymapAsked, nullptr), &std::free);
  const XcbReply<xcb_get_modifier_mapping_reply_t> modifiers(
      xcb_get_modifier_mapping_reply(server, modifiersAsked, nullptr), &std::free);
  if (!keymap || !modifiers) return false;
  const auto bit = [&keymap](int place) -> std::uint8_t& { return keymap->keys[place / 8]; };
  const auto mask = [](int place) { return static_cast<std::uint8_t>(1 << (place % 8)); };
  down.Space = (bit(SpacePlace) & mask(SpacePlace)) != 0;
  // Groups of equal size, Shift's the first.
  const xcb_keycode_t* const places = xcb_get_modifier_mapping_keycodes(modifiers.get());
  const int count = xcb_get_modifier_mapping_keycodes_length(modifiers.get());
  for (int at = modifiers->keycodes_per_modifier; at < count; ++at) {
    bit(places[at]) &= static_cast<std::uint8_t>(~mask(places[at]));
  }
  down.Any = std::any_of(std::begin(keymap->keys), std::end(keymap->keys),
                         [](std::uint8_t eight) { return eight != 0; });
  return true;
}

#endif

}  // namespace

std::unique_ptr<QKeyEvent> LatinTwin(const QKeyEvent& event) {
  constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (!(event.modifiers() & commands) || !IsForeignLetter(event.key())) return nullptr;
  const int latin = LatinKeyAt(event.nativeScanCode());
  if (latin == 0) return nullptr;
  return std::make_unique<QKeyEvent>(event.type(), latin, event.modifiers(), event.nativeScanCode(),
                                     event.nativeVirtualKey(), event.nativeModifiers(),
                                     event.text(), event.isAutoRepeat(),
                                     static_cast<quint16>(event.count()));
}

KeysDown QueryKeysDown() {
  KeysDown down;
#if QT_CONFIG(xcb)
  const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 != nullptr && AskServer(x11->connection(), down)) return down;
#endif
  down.Any = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
  return down;
}

}  // namespace tarnwell::ui
