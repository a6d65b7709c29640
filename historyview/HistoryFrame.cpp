#include "historyview/HistoryFrame.h"

#include "base/Paths.h"
#include "historyview/HistoryDetailView.h"
#include "historyview/HistoryTreeView.h"
#include "persist/HistoryStore.h"
#include "resources/ResourceIds.h"

#include "platform/files/FileCalls.h"
#include "platform/files/FileFind.h"
#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

namespace
{

constexpr int kTreeWidth = 200;
constexpr UINT kIndicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM, ID_INDICATOR_SCRL};

// What cannot be deleted stays, in silence.
void DeleteHistoryFiles()
{
    CFileFind find;
    for (BOOL working = find.FindFile(PathInFolder(HistoryFolder(), "*.*")); working;)
    {
        working = find.FindNextFile();
        if (!find.IsDots() && !find.IsDirectory())
            DeleteFileA(find.GetFilePath().c_str());
    }
}

} // namespace

CHistoryFrame::CHistoryFrame(std::function<void()> closed) : m_closed(std::move(closed))
{}

const MessageMap& CHistoryFrame::GetMessageMap() const
{
    static const MessageMap map{&CFrameWnd::StaticMessageMap(),
                                {
                                    On(WM_CREATE, &CHistoryFrame::OnCreate),
                                    On(WM_CLOSE, &CHistoryFrame::OnClose),
                                    OnCommand(ID_CLEAR_HISTORY, &CHistoryFrame::OnClearHistory),
                                    OnCommand(ID_APP_EXIT, &CHistoryFrame::OnExit),
                                }};
    return map;
}

LRESULT CHistoryFrame::OnCreate(WPARAM, LPARAM)
{
    if (Default() == -1 || !CreateBars())
        return -1;
    SetWindowText(AfxLoadString(IDS_HISTORY_WINDOW));
    const HICON icon = AfxGetApp()->LoadIcon(IDI_APPLICATION_ICON);
    SetIcon(icon, TRUE);
    SetIcon(icon, FALSE);
    return 0;
}

bool CHistoryFrame::CreateBars()
{
    if (!m_toolBar.Create(this, IDC_HISTORY_TOOLBAR) || !m_toolBar.LoadToolBar(IDR_HISTORY) ||
        !m_statusBar.Create(this) || !m_statusBar.SetIndicators(kIndicators))
        return false;
    m_toolBar.EnableDocking(CBRS_ALIGN_ANY);
    EnableDocking(CBRS_ALIGN_ANY);
    DockControlBar(&m_toolBar);
    return true;
}

// The detail view finds the tree view in its pane while it is being made.
BOOL CHistoryFrame::OnCreateClient()
{
    return m_splitter.CreateStatic(this, 1, 2) &&
           m_splitter.CreateView(0, 0, std::make_unique<CHistoryTreeView>(), kTreeWidth, 0) &&
           m_splitter.CreateView(0, 1, std::make_unique<CHistoryDetailView>(), 0, 0);
}

void CHistoryFrame::OnClearHistory()
{
    DeleteHistoryFiles();
    MessageBox(AfxLoadString(IDS_HISTORY_REMOVED), GetWindowText());
    if (GetSafeHwnd())
        ShowWhatIsThere();
}

void CHistoryFrame::ShowWhatIsThere()
{
    if (auto* tree = dynamic_cast<CHistoryTreeView*>(m_splitter.GetPane(0, 0)))
    {
        tree->m_store.Clear();
        tree->RebuildTree();
    }
    if (auto* detail = dynamic_cast<CHistoryDetailView*>(m_splitter.GetPane(0, 1)))
    {
        detail->SetColumns(kHistoryLevel);
        detail->SendMessage(WM_SHOW_LEVEL, kHistoryLevel, 0);
    }
}

void CHistoryFrame::OnExit()
{
    SendMessage(WM_CLOSE);
}

void CHistoryFrame::OnClose()
{
    m_closed();
    Default();
}
