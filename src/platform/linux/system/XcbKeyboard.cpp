#include "platform/linux/system/XcbKeyboard.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>

namespace tarnwell::platform {
namespace {

// As X11 numbers keys: the kernel's number (linux/input-event-codes.h) and 8.
constexpr int spaceKey = 65;

template <typename Reply>
using XcbReply = std::unique_ptr<Reply, decltype(&std::free)>;

constexpr std::uint8_t BitOf(int key) {
  return static_cast<std::uint8_t>(1 << (key % 8));
}

}  // namespace

HeldKeys XcbKeyboard::Held() const {
  if (display_ == nullptr) return {};
  const auto keymapAsked = xcb_query_keymap(display_);
  const auto modifiersAsked = xcb_get_modifier_mapping(display_);
  const XcbReply<xcb_query_keymap_reply_t> keymap(
      xcb_query_keymap_reply(display_, keymapAsked, nullptr), &std::free);
  const XcbReply<xcb_get_modifier_mapping_reply_t> modifiers(
      xcb_get_modifier_mapping_reply(display_, modifiersAsked, nullptr), &std::free);
  if (!keymap || !modifiers) return {};
  std::uint8_t* const down = keymap->keys;  // a bit for each key
  HeldKeys held{.Space = (down[spaceKey / 8] & BitOf(spaceKey)) != 0};
  // In groups of equal size, Shift's the first.
  const xcb_keycode_t* const keys = xcb_get_modifier_mapping_keycodes(modifiers.get());
  const int count = xcb_get_modifier_mapping_keycodes_length(modifiers.get());
  for (int at = modifiers->keycodes_per_modifier; at < count; ++at) {
    down[keys[at] / 8] &= static_cast<std::uint8_t>(~BitOf(keys[at]));
  }
  held.Any = std::any_of(std::begin(keymap->keys), std::end(keymap->keys),
                         [](std::uint8_t eight) { return eight != 0; });
  return held;
}

}  // namespace tarnwell::platform
