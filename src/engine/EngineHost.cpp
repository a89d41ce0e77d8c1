// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineHost.h"

namespace calyvox {

EngineHost& Host() {
    static EngineHost host;
    return host;
}

} // namespace calyvox
