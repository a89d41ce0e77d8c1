// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/KeyedCollection.h"
#include "engine/MP3.h"

namespace calyvox {

/// The files of a list, in order; rows find theirs by its 1-based position.
using MP3s = KeyedCollection<MP3>;

} // namespace calyvox
