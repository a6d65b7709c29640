#include "historyview/HistoryDetailView.h"

#include "base/FormatText.h"
#include "historyview/HistorySplitter.h"
#include "historyview/HistoryTreeView.h"
#include "resources/ResourceIds.h"

#include "platform/files/File.h"
#include "platform/files/Path.h"
#include "platform/text/Mbcs.h"
#include "platform/window/Resource.h"

#include <algorithm>
#include <span>
#include <unordered_set>

namespace
{

constexpr std::int64_t kKb = 1024;

struct Column
{
    UINT caption;
    int width;
};

constexpr Column kNameColumn[] = {{IDS_HISTORY, 300}};
constexpr Column kFileColumns[] = {
    {IDS_COLUMN_FILE, 120}, {IDS_COLUMN_SIZE, 70}, {IDS_COLUMN_PATH, 240}, {IDS_COLUMN_ADDRESS, 300}};

std::span<const Column> ColumnsOf(int level)
{
    return level == kPageLevel ? std::span<const Column>(kFileColumns) : std::span<const Column>(kNameColumn);
}

// Empty for a file that is not there any more.
std::string SizeText(const std::string& path)
{
    CFileStatus status;
    if (!CFile::GetStatus(path, status))
        return {};
    return FormatText(IDS_SIZE_KB, "%d", std::to_string(std::max(status.m_size, kKb) / kKb));
}

// What stands behind the last separator; empty for a path without one.
std::string FileName(const std::string& path)
{
    const std::size_t separator = path.rfind(kPathSeparator);
    return separator == std::string::npos ? std::string() : path.substr(separator + 1);
}

} // namespace

const MessageMap& CHistoryDetailView::GetMessageMap() const
{
    static const MessageMap map{&CView::StaticMessageMap(),
                                {
                                    On(WM_CREATE, &CHistoryDetailView::OnCreate),
                                    On(WM_SIZE, &CHistoryDetailView::OnSize),
                                    On(WM_SHOW_LEVEL, &CHistoryDetailView::OnShowLevel),
                                    OnNotify(IDC_HISTORY_LIST, NM_DBLCLK, &CHistoryDetailView::OnDoubleClick),
                                }};
    return map;
}

LRESULT CHistoryDetailView::OnCreate(WPARAM, LPARAM)
{
    RECT client;
    GetClientRect(&client);
    if (Default() == -1 || !m_list.Create(client, this, IDC_HISTORY_LIST))
        return -1;
    m_list.SetExtendedStyle(m_list.GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    m_list.SetWindowText(AfxLoadString(IDS_HISTORY));
    m_images.Create(IDR_HISTORY_LEVELS, kLevelImageSize);
    m_list.SetImageList(m_images);
    m_pTree = dynamic_cast<CHistoryTreeView*>(CHistorySplitter::PaneBeside(*this, 0, 0));
    SetColumns(kHistoryLevel);
    OnShowLevel(kHistoryLevel, 0);
    return 0;
}

LRESULT CHistoryDetailView::OnSize(WPARAM, LPARAM size)
{
    const auto [width, height] = SizeFromLParam(size);
    m_list.MoveWindow({0, 0, width, height});
    return 0;
}

// The list covers it all.
void CHistoryDetailView::OnDraw(CDC&)
{}

void CHistoryDetailView::SetColumns(int level)
{
    for (int column = m_list.GetColumnCount(); column-- > 0;)
        m_list.DeleteColumn(column);
    m_list.DeleteAllItems();
    for (const Column& column : ColumnsOf(level))
        m_list.InsertColumn(m_list.GetColumnCount(), AfxLoadString(column.caption), column.width);
}

LRESULT CHistoryDetailView::OnShowLevel(WPARAM level, LPARAM)
{
    if (!m_pTree)
        return -1;
    m_level = static_cast<int>(level);
    m_list.SetRedraw(FALSE);
    SetColumns(m_level);
    if (m_level == kHistoryLevel)
        ShowDays();
    else if (m_level == kDayLevel)
        ShowPages();
    else
        ShowFiles();
    m_list.SetRedraw(TRUE);
    return 0;
}

void CHistoryDetailView::ShowDays()
{
    for (const std::string& name : m_pTree->m_store.GetDayNames())
        m_list.InsertItem(m_list.GetItemCount(), name, kDayLevel);
}

void CHistoryDetailView::ShowPages()
{
    for (const CHistoryItem& item : m_pTree->m_store.GetItems())
    {
        if (DayOf(item) == m_pTree->m_selectedText)
            m_list.InsertItem(m_list.GetItemCount(), item.GetPageUrl(), kPageLevel);
    }
}

// Of several files of one name, in capitals or not, the first is shown.
void CHistoryDetailView::ShowFiles()
{
    for (const CHistoryItem& item : m_pTree->m_store.GetItems())
    {
        if (item.GetPageUrl() != m_pTree->m_selectedText)
            continue;
        std::unordered_set<std::string> shown;
        for (const CHistoryFile& file : item.m_files)
        {
            const std::string path = file.m_szLocalPath.c_str();
            const std::string name = FileName(path);
            if (name.empty() || !shown.insert(CharLowerA(name)).second)
                continue;
            const int row = m_list.InsertItem(m_list.GetItemCount(), name, kFileImage);
            m_list.SetItemText(row, 1, SizeText(path));
            m_list.SetItemText(row, 2, path);
            m_list.SetItemText(row, 3, file.m_szUrl.c_str());
        }
    }
}

LRESULT CHistoryDetailView::OnDoubleClick(NMHDR&)
{
    const int row = m_list.GetFirstSelectedItem();
    if (m_level >= kPageLevel || row < 0 || !m_pTree)
        return 0;
    m_pTree->m_selectedText = m_list.GetItemText(row, 0);
    OnShowLevel(static_cast<WPARAM>(m_level + 1), 0);
    return 0;
}
