// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

#include <functional>
#include <string>

class QWidget;

/// Text between bytes and controls, and the places of windows.
namespace calyvox {

class Form;

namespace Dialogs {

/// Form units: a logical pixel has 15 twips.
inline constexpr int kTwips = 15;

/// Code page bytes as a control shows them; exact both ways for all 256.
QString TagText(const std::string& bytes);
/// Back; a character that the page lacks becomes "?".
std::string TagBytes(const QString& text);
/// The same as TagText for names and paths (see HostPath): escapes show what they stand for.
QString NameText(const std::string& path);
/// A name for a box that it is edited in, and back; exact whatever the name's bytes are.
QString NameEditText(const std::string& name);
std::string NameBytes(const QString& text);

/// A dialog's place in "Settings\Dialogs\<name>Top" and "...Left", in twips. Where the window system tells
/// no places the stored one stays; a store that fails is passed over.
void SaveDialogPosition(const Form& form);
void LoadDialogPosition(Form& form);
/// Whether windows know their place on the screen. It is that of what is inside the frame, with which alone
/// window managers are of one mind: by the frame windows would creep from start to start.
bool PlacesAreKnown();
/// Of a window that was not shown yet; the size stays.
void Place(QWidget& window, QPoint place);

/// Runs a handler of an event; a failure that comes out of it is shown in a box.
void Guarded(const std::function<void()>& handler);

} // namespace Dialogs
} // namespace calyvox
