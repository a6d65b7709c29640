// Histories of any size.
#pragma once

#include "persist/HistoryStore.h"

#include "platform/testing/TempHome.h"

#include <string>

CHistoryItem PageWithFiles(int page, int files);
// Marks all files of the pages 0 .. pages - 1 as saved in the folder.
void MarkAll(CHistoryStore& store, int pages, int files, const std::string& folder);

// Whether what a history tells of is there.
enum class Files
{
    Missing,
    Stored,
};

// The day files of distinct pages, spread over the days of a year, with so many files each. Making one takes longer
// than what is measured with it.
class StoredHistory
{
public:
    StoredHistory(int pages, int filesOfPage, Files files = Files::Missing);

    // Has the program read this history from now on.
    void Enter() const;
    int Pages() const
    {
        return m_pages;
    }
    int FilesOfPage() const
    {
        return m_filesOfPage;
    }

private:
    void WriteFiles() const;

    const TempHome m_home;
    const int m_pages;
    const int m_filesOfPage;
};
