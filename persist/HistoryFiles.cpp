// The history on disk.

#include "persist/HistoryStore.h"

#include "base/Paths.h"
#include "base/TextFile.h"
#include "persist/DayFile.h"
#include "persist/XmlDoc.h"

#include "platform/files/FileCalls.h"
#include "platform/files/FileFind.h"
#include "platform/system/Time.h"

#include <new>
#include <optional>

namespace
{

std::string DayPath(const std::string& folder, std::int32_t time)
{
    return PathInFolder(folder, CTime(time).Format("%Y-%m-%d"));
}

std::string RecordOf(const CHistoryItem& item)
{
    CXmlDoc document;
    document.AppendElement("DOWNLOAD");
    document.AppendChild("DOWNLOAD_TIME", std::to_string(item.GetTime()).c_str());
    document.AppendChild("REFERRER_URL", item.GetPageUrl().c_str());
    for (const CHistoryFile& file : item.m_files)
    {
        if (!file.m_bDone)
            continue;
        document.AppendChild("DOWNLOAD_ITEM");
        document.EnterChild();
        document.AppendChild("DOWNLOAD_FILE", file.m_szUrl.c_str());
        document.AppendChild("LOCAL_FILE", file.m_szLocalPath.c_str());
        document.LeaveElement();
    }
    return document.GetText();
}

CHistoryFile ReadFileEntry(CXmlDoc& document)
{
    CHistoryFile file;
    document.EnterChild();
    if (document.FindNextChild("DOWNLOAD_FILE"))
        file.SetUrl(document.GetChildText());
    if (document.FindNextChild("LOCAL_FILE"))
        file.SetLocalPath(document.GetChildText());
    document.LeaveElement();
    return file;
}

CHistoryItem ReadRecord(CXmlDoc& document)
{
    CHistoryItem item;
    document.EnterChild();
    if (document.FindNextChild("DOWNLOAD_TIME"))
        item.SetTime(ToNumber(document.GetChildText()));
    if (document.FindNextChild("REFERRER_URL"))
        item.SetPageUrl(document.GetChildText());
    while (document.FindNextChild("DOWNLOAD_ITEM"))
        item.AddFile(ReadFileEntry(document));
    document.LeaveElement();
    return item;
}

} // namespace

std::string HistoryFolder()
{
    const std::string home = GetInstallFolder();
    return home.empty() ? home : PathInFolder(home, "History");
}

void CHistoryStore::SaveItems() const
{
    const std::string folder = HistoryFolder();
    if (folder.empty())
        return;
    std::optional<CDayFile> day;
    for (const CHistoryItem& item : m_items)
    {
        CreateDirectoryA(folder.c_str(), nullptr);
        const std::string path = DayPath(folder, item.GetTime());
        if (!day || day->GetPath() != path)
        {
            day.reset();
            day.emplace(path);
        }
        day->Append(RecordOf(item));
    }
}

void CHistoryStore::LoadAll()
{
    Clear();
    CFileFind find;
    for (BOOL working = find.FindFile(PathInFolder(HistoryFolder(), "*.*")); working;)
    {
        working = find.FindNextFile();
        if (find.IsDots() || find.IsDirectory())
            continue;
        m_dayNames.push_back(find.GetFileTitle());
        LoadFile(find.GetFilePath());
    }
}

void CHistoryStore::LoadFile(const std::string& path)
{
    GlobalPtr<char> content;
    if (ReadTextFile(path, content) != ReadResult::Read)
        return;
    try
    {
        // The records become one document.
        std::string text = std::string("<ROOT>\n") + content.get() + "\n</ROOT>";
        content.reset();
        CXmlDoc document;
        document.SetText(text.c_str());
        ReadRecords(document);
    }
    catch (const std::bad_alloc&)
    {}
}

void CHistoryStore::ReadRecords(CXmlDoc& document)
{
    if (!document.FindNext("ROOT"))
        return;
    while (document.FindNextChild("DOWNLOAD"))
    {
        CHistoryItem item = ReadRecord(document);
        if (!item.m_files.empty())
            AddItem(std::move(item));
    }
}
