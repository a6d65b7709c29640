// The history of downloads in memory: what each page of a run gave, and which of its files were really fetched.
//
// A store is used by one thread at a time: the one of a run by the run's worker.
#pragma once

#include "base/FixedText.h"

#include <cstdint>
#include <string>
#include <vector>

// One file of a page.
struct CHistoryFile
{
    bool m_bDone = false; // the file was really fetched
    FixedText<260> m_szUrl;
    FixedText<260> m_szLocalPath; // full path of the saved file

    void SetUrl(const std::string& url);
    void SetLocalPath(const std::string& path);
};

// One record: what one page gave.
class CHistoryItem
{
public:
    // A record of the present time, without page and files.
    CHistoryItem();

    void SetPageUrl(const std::string& url);
    std::string GetPageUrl() const;
    // Seconds since 1970 in UTC.
    void SetTime(std::int32_t time);
    std::int32_t GetTime() const;
    void AddFile(const CHistoryFile& file);

    std::vector<CHistoryFile> m_files; // in the order of the harvest

private:
    FixedText<520> m_szPageUrl;
    std::int32_t m_time;
};

class CHistoryStore
{
public:
    void Clear();
    // Appends a copy of the record, or its files to the record that the page has already.
    void AddItem(const CHistoryItem& item);
    // Marks the first file with exactly this address as fetched to `path`. An address that was cut when it was stored
    // equals none.
    void MarkFileDone(const std::string& url, const std::string& path);

    std::vector<CHistoryItem> m_items; // no two of the same page
};
