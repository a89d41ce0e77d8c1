// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

/// The text boxes of the ID3V2 editor that show one frame of the same name as it stands.
namespace calyvox::FrameControls {

enum class Group { Names, Media, Details, Owner, Addresses, Dates };

struct Control {
    std::string_view ID;
    Group SavedWith;
};

/// In the order in which the frames of a group are saved.
inline constexpr std::array<Control, 32> kControls = {{
    {"TPE1", Group::Names},     {"TPE2", Group::Names},     {"TPE3", Group::Names},
    {"TPE4", Group::Names},     {"TIT1", Group::Names},     {"TIT2", Group::Names},
    {"TIT3", Group::Names},     {"TALB", Group::Names},     {"TMED", Group::Media},
    {"TBPM", Group::Details},   {"TCOM", Group::Details},   {"TCOP", Group::Details},
    {"TENC", Group::Details},   {"TEXT", Group::Details},   {"TOAL", Group::Details},
    {"TOFN", Group::Details},   {"TOLY", Group::Details},   {"TOPE", Group::Details},
    {"TOWN", Group::Owner},     {"TPUB", Group::Owner},     {"WCOP", Group::Addresses},
    {"WOAF", Group::Addresses}, {"WOAR", Group::Addresses}, {"WOAS", Group::Addresses},
    {"WORS", Group::Addresses}, {"WPAY", Group::Addresses}, {"WPUB", Group::Addresses},
    {"TYER", Group::Dates},     {"TDAT", Group::Dates},     {"TIME", Group::Dates},
    {"TRDA", Group::Dates},     {"TORY", Group::Dates},
}};

inline bool Shows(std::string_view id) {
    return std::any_of(kControls.begin(), kControls.end(), [&](const Control& one) { return one.ID == id; });
}

} // namespace calyvox::FrameControls
