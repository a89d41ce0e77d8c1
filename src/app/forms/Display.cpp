// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Display.h"

#include <QByteArray>
#include <QDir>
#include <QLibraryInfo>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <memory>

namespace calyvox::Display {

namespace {

using Connection = std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)>;

// A server without other clients may start anew when its last one leaves, and refuses whoever comes
// meanwhile. So a connection that answers stays until the process ends.
bool XServerAnswers() {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) return false;
    static const Connection kConnection(xcb_connect(nullptr, nullptr), xcb_disconnect);
    return xcb_connection_has_error(kConnection.get()) == 0;
}

bool HasWaylandPlugin() {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QLatin1String("/platforms"));
    return !plugins.entryList({QStringLiteral("libqwayland*")}).isEmpty();
}

bool WaylandAnswers() {
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    if (name.isEmpty() || !HasWaylandPlugin()) return false;
    const QByteArray path = name.startsWith('/') ? name : qgetenv("XDG_RUNTIME_DIR") + '/' + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path)) return false;
    std::copy(path.begin(), path.end(), address.sun_path);
    const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers =
        handle >= 0 && ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    if (handle >= 0) ::close(handle);
    return answers;
}

} // namespace

bool IsUsable() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.startsWith("xcb")) return XServerAnswers();
    if (platform.startsWith("wayland")) return WaylandAnswers();
    return platform.isEmpty() && (XServerAnswers() || WaylandAnswers());
}

} // namespace calyvox::Display
