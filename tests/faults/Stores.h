// What the program keeps on the disk, written and read by the program's own means.
#pragma once

#include "persist/DownloadSetting.h"
#include "persist/HistoryStore.h"

#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

inline void SetValue(const std::string& text)
{
    HKEY key = HKEY::Null;
    if (RegCreateKeyA(HKEY_CURRENT_USER, "Software\\Faults", &key) != ERROR_SUCCESS)
        return;
    RegSetValueExA(key, "value", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>(text.size() + 1));
    RegCloseKey(key);
}

inline std::string GetValue()
{
    HKEY key = HKEY::Null;
    char text[100] = {};
    DWORD size = sizeof text;
    if (RegOpenKeyA(HKEY_CURRENT_USER, "Software\\Faults", &key) != ERROR_SUCCESS)
        return {};
    RegQueryValueExA(key, "value", nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(key);
    return text;
}

inline constexpr unsigned kSettingLines = 100;

// The version stands in each line.
inline void SaveSettings(unsigned version)
{
    CDownloadSetting setting;
    const auto side = static_cast<LONG>(version);
    setting.m_bLimitResolution = 1;
    setting.m_resolutions.Set(std::vector<CResolution>(kSettingLines, CResolution{side, side}));
    setting.Save();
}

// -1 if what stands there is not of one piece.
inline long SettingsVersion()
{
    const auto lines = CDownloadSetting().m_resolutions.Get();
    const bool whole = lines->size() == kSettingLines && std::ranges::count(*lines, lines->front()) == kSettingLines;
    return whole ? lines->front().m_nWidth : -1;
}

// One record, with the addresses of its files and their paths.
inline void SaveHistory(const std::string& page, const std::vector<std::pair<std::string, std::string>>& files)
{
    CHistoryStore store;
    CHistoryItem item;
    item.SetPageUrl(page);
    item.SetTime(1056441600);
    for (const auto& [url, path] : files)
    {
        CHistoryFile file;
        file.SetUrl(url);
        item.AddFile(file);
    }
    store.AddItem(item);
    for (const auto& [url, path] : files)
        store.MarkFileDone(url, path);
    store.SaveItems();
}
