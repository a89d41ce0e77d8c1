// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"

namespace calyvox {

Services& TheServices() {
    static Services services;
    return services;
}

} // namespace calyvox
