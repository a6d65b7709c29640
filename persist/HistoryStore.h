// The history of downloads: what each page of a run gave, which of its files were really fetched, and the files on disk
// that keep it.
//
// They stand in the folder History of the program's folder, one for each day, named by the local date ("2003-06-24"),
// each a sequence of records with no root around it, every element on a line of its own:
//
//     <DOWNLOAD>
//     <DOWNLOAD_TIME>seconds since 1970 in UTC</DOWNLOAD_TIME>
//     <REFERRER_URL>page</REFERRER_URL>
//     <DOWNLOAD_ITEM>                           for each fetched file
//     <DOWNLOAD_FILE>address</DOWNLOAD_FILE>
//     <LOCAL_FILE>path</LOCAL_FILE>
//     </DOWNLOAD_ITEM>
//     </DOWNLOAD>
//
// A store is used by one thread at a time: the one of a run by the run's worker. Stores meet in the files alone.
#pragma once

#include "base/FixedText.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CXmlDoc;

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

// The folder of the files; empty if nobody knows where the program lives. It is there once something was written.
std::string HistoryFolder();

class CHistoryStore
{
public:
    CHistoryStore() = default;
    CHistoryStore(const CHistoryStore&) = delete;
    CHistoryStore& operator=(const CHistoryStore&) = delete;

    // The records, no two of the same page.
    const std::vector<CHistoryItem>& GetItems() const
    {
        return m_items;
    }
    // The titles of the files that LoadAll found, damaged ones too.
    const std::vector<std::string>& GetDayNames() const
    {
        return m_dayNames;
    }

    // Forgets everything; no file is touched.
    void Clear();
    // Appends a copy of the record, or its files to the record that the page has already.
    void AddItem(CHistoryItem item);
    // Marks the first file with exactly this address as fetched to `path`. An address that was cut when it was stored
    // equals none.
    void MarkFileDone(const std::string& url, const std::string& path);

    // Appends every record, with the files that are marked, to the file of its day. What cannot be written is left out
    // in silence; no record is ever written half.
    void SaveItems() const;
    // Replaces the content by what all files of the folder hold, whoever made them.
    void LoadAll();
    // Adds what a file holds, but for records without files; nothing from one that cannot be read or is damaged
    // anywhere.
    void LoadFile(const std::string& path);

private:
    using FilePlace = std::pair<std::size_t, std::size_t>; // of the item, of the file in it

    void ReadRecords(CXmlDoc& document);
    void IndexFiles();

    std::vector<CHistoryItem> m_items;
    std::vector<std::string> m_dayNames;
    std::unordered_map<std::string, std::size_t> m_pageIndex; // page to its item
    std::unordered_map<std::string_view, FilePlace>
        m_fileIndex; // address to its first file; the keys point into m_items
    bool m_bFilesIndexed = false;
};
