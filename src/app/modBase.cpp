// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/modBase.h"

#include "app/Progress.h"
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/modReport.h"
#include "engine/EngineHost.h"
#include "platform/CodePage.h"
#include "platform/HostPath.h"
#include "platform/PrivateProfile.h"

namespace calyvox::modBase {

bool& WriteUnSync() { return Host().WriteUnSync; }

bool& SingleCOMMGenre() { return Host().SingleCOMMGenre; }

std::int16_t ShowMessage(const std::string& text, int buttons, const std::string& title) {
    return static_cast<std::int16_t>(TheServices().MessageBox(text, buttons, title));
}

std::string CleanFileName(const std::string& name) {
    constexpr std::size_t kLongestName = 250;
    return HostPath::Left(HostPath::Clean(name, NameWasCleaned), kLongestName);
}

std::int16_t IniWrite(const std::string& section, const std::string& key, const std::string& value,
                      const std::string& file) {
    return PrivateProfile::WriteValue(section, key, value, file) ? 1 : 0;
}

void IniDeleteSection(const std::string& section, const std::string& file) {
    PrivateProfile::DeleteSection(section, file);
}

std::string IniRead(const std::string& section, const std::string& key, const std::string& fallback,
                    const std::string& file) {
    return PrivateProfile::ReadValue(section, key, fallback, file);
}

std::string IniReadSection(const std::string& section, const std::string& fallback, const std::string& file) {
    return PrivateProfile::ReadKeys(section, fallback, file);
}

void ConnectEngine() {
    Host().ShowMessage = [](const std::string& text, int buttons, const std::string& title) {
        MsgResult = ShowMessage(text, buttons, title);
        return static_cast<int>(MsgResult);
    };
    Host().ReportLine = ReportLine;
    Host().WriteBarMax = Progress::SetWriteMax;
    Host().WriteBarValue = Progress::SetWriteValue;
    Host().NewTagVersion = [] { return CodePage::LeadingByte(ReadSetting("Settings\\ID3V2Ver", "3")); };
}

} // namespace calyvox::modBase
