// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/forms/LockKeys.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>

namespace calyvox {

namespace {

constexpr xcb_keysym_t kNumLock = 0xFF7F;

template <typename Reply>
using Owned = std::unique_ptr<Reply, void (*)(void*)>;

} // namespace

LockKeys::LockKeys() {
    if (QGuiApplication::platformName() != QLatin1String("xcb")) return;
    connection_ = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection_) != 0) return;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    numMask_ = FindNumMask();
}

LockKeys::~LockKeys() {
    if (connection_) xcb_disconnect(connection_);
}

unsigned LockKeys::FindNumMask() const {
    const xcb_setup_t* setup = xcb_get_setup(connection_);
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const Owned<xcb_get_keyboard_mapping_reply_t> keys(
        xcb_get_keyboard_mapping_reply(connection_, xcb_get_keyboard_mapping(connection_, first, count),
                                       nullptr),
        std::free);
    const Owned<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection_, xcb_get_modifier_mapping(connection_), nullptr),
        std::free);
    if (!keys || !modifiers) return 0;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    for (int i = 0; i < xcb_get_modifier_mapping_keycodes_length(modifiers.get()); ++i) {
        if (codes[i] < first) continue;
        for (int level = 0; level < keys->keysyms_per_keycode; ++level)
            if (symbols[(codes[i] - first) * keys->keysyms_per_keycode + level] == kNumLock)
                return 1U << (i / modifiers->keycodes_per_modifier);
    }
    return 0;
}

std::optional<LockKeys::State> LockKeys::Read() const {
    if (!connection_ || xcb_connection_has_error(connection_) != 0) return std::nullopt;
    const Owned<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(connection_, xcb_query_pointer(connection_, root_), nullptr), std::free);
    if (!pointer) return std::nullopt;
    return State{(pointer->mask & numMask_) != 0, (pointer->mask & XCB_MOD_MASK_LOCK) != 0};
}

} // namespace calyvox
