// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/modBase.h"

#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "support/HostScope.h"

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

TEST(ModBaseTest, NamesAreCleanedAndCutByCharactersAndOnlyCleaningIsTold) {
    modBase::NameWasCleaned = false;
    EXPECT_EQ(modBase::CleanFileName(std::string(300, 'x')), std::string(250, 'x'));
    EXPECT_FALSE(modBase::NameWasCleaned);
    const std::string longest = std::string(249, '_') + "\x1A" + "0001046"; // one that the page lacks
    EXPECT_EQ(modBase::CleanFileName(":" + longest.substr(1) + ":"), longest);
    EXPECT_TRUE(modBase::NameWasCleaned);
}

TEST(ModBaseTest, TheEngineAsksThroughBoxesAndSettings) {
    const HostScope host;
    WriteSetting("Settings\\ID3V2Ver", "4", RegistryStore::kNumber);
    modBase::ConnectEngine();
    EXPECT_EQ(Host().NewTagVersion(), 4);
    EXPECT_EQ(Host().ShowMessage("Text", MsgBox::kYesNo, "Title"), MsgBox::kOk); // where nobody shows it
}

} // namespace
