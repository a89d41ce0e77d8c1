// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Progress.h"

#include "app/modBase.h"
#include "platform/Failure.h"

#include <gtest/gtest.h>

using namespace calyvox;

TEST(ProgressTest, APassBeginsUncancelledAndEndsHoweverItIsLeft) {
    std::int64_t bar = 0;
    TheServices().PaintProgress = [&](auto& state) { bar = state.WriteValue; };
    modBase::CancelRun = true;
    for (int pass = 1; pass <= 2; ++pass) { // the second one fails where it begins
        Skip([] {
            Progress progress;
            Progress::SetWriteValue(5);
            progress.SetCanCancel(false);
            throw Failure(Failure::kPathAccess);
        });
        EXPECT_FALSE(Progress::Running() || modBase::CancelRun || bar != 5) << pass;
        TheServices().LoadProgress = [] { throw Failure(Failure::kOutOfMemory); };
    }
    TheServices() = Services();
}
