// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

namespace calyvox {

/// An icon from an SVG resource, drawn at exactly the pixels that are asked for. In the SVG the colour
/// "currentColor" stands for the palette's ButtonText and "accent" for its Highlight, both of the time of
/// drawing, so that the icon follows a change of palette; other colours stay. A disabled icon is drawn in the
/// disabled ButtonText alone, and a hovered one in ButtonText alone, as it may lie on Highlight in a menu.
/// A null icon if the resource cannot be read.
QIcon SvgIcon(const QString& resource);

} // namespace calyvox
