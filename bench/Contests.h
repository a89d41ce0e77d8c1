// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Contest.h"
#include "Library.h"

#include <string>

namespace calyvox::Bench {

/// Each contestant changes files of its own.
struct Libraries {
    Libraries(const std::string& hostFolder, const Layout& layout)
        : Ours(hostFolder + "/ours", layout), Peer(hostFolder + "/peer", layout),
          Floor(hostFolder + "/floor", layout) {}
    Library Ours;
    Library Peer;
    Library Floor;
};

// The libraries must outlive the contests.

/// Tags and audio properties are read. The floor is the first 16 KiB and the last 128 bytes.
Contest Listing(const std::string& name, const Libraries& files);
/// A title of another text and the same length. The floor reads and writes the tag. Reading is not timed,
/// but for the floor.
Contest SavingInPlace(const Libraries& files);
/// A title that the tag has no room for. The floor copies the file, flushes and renames; the peer does not
/// flush, nor is the file whole if it is stopped on the way.
Contest Growing(const Libraries& files);
/// A title of another text for every file of a data file, which is made in the host folder.
Contest UpdatingAll(const Libraries& files, const std::string& hostFolder);

} // namespace calyvox::Bench
