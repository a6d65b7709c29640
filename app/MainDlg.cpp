#include "app/MainDlg.h"

#include "app/SideWindows.h"
#include "harvest/BrowserHints.h"
#include "harvest/BrowserWindows.h"
#include "resources/ResourceIds.h"
#include "tools/ThumbnailAlbum.h"

#include "platform/shell/Shell.h"
#include "platform/window/DataExchange.h"
#include "platform/window/Menu.h"
#include "platform/window/PaintDC.h"
#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

CMainDlg::CMainDlg(CSideWindows& sideWindows)
    : CDialog(IDD_MAIN), m_sideWindows(sideWindows), m_hIcon(AfxGetApp()->LoadIcon(IDI_APPLICATION_ICON))
{}

CMainDlg::~CMainDlg()
{
    StopWorker();
}

const MessageMap& CMainDlg::GetMessageMap() const
{
    static const MessageMap map{&CDialog::StaticMessageMap(),
                                {
                                    On(WM_PAINT, &CMainDlg::OnPaint),
                                    On(WM_QUERYDRAGICON, &CMainDlg::OnQueryDragIcon),
                                    On(WM_CLOSE, &CMainDlg::OnClose),
                                    OnNotify(IDC_WINDOW_LIST, NM_RCLICK, &CMainDlg::OnListRightClick),
                                    OnNotify(IDC_WINDOW_LIST, LVN_ITEMCHANGED, &CMainDlg::OnListItemChanged),
                                    OnCommand(IDC_REFRESH, &CMainDlg::OnRefresh),
                                    OnCommand(IDC_DOWNLOAD, &CMainDlg::OnDownloadNow),
                                    OnCommand(IDC_OPEN_FOLDER, &CMainDlg::OnOpenFolder),
                                    OnCommand(IDC_HISTORY, &CMainDlg::OnHistory),
                                    OnCommand(IDC_ALBUM, &CMainDlg::OnAlbum),
                                    OnCommand(IDC_ADVANCED, &CMainDlg::OnAdvanced),
                                    OnCommand(IDC_SETUP, &CMainDlg::OnSetup),
                                    OnCommand(IDC_HELP_MENU, &CMainDlg::OnHelpMenu),
                                    OnCommand(ID_USER_MANUAL, &CMainDlg::OnUserManual),
                                    OnCommand(ID_CHECK_VERSION, &CMainDlg::OnCheckVersion),
                                    OnCommand(ID_HOME_PAGE, &CMainDlg::OnHomePage),
                                    OnCommand(ID_EMAIL_SUPPORT, &CMainDlg::OnEmailSupport),
                                    OnCommand(ID_ABOUT, &CMainDlg::OnAbout),
                                    OnSysCommand(&CMainDlg::OnSystemCommand),
                                    OnCommand(ID_SELECT_ALL, &CMainDlg::OnSelectAll),
                                    OnCommand(ID_REVERSE_SELECT, &CMainDlg::OnReverseSelect),
                                }};
    return map;
}

void CMainDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_REFRESH, m_refresh);
    DDX_Control(exchange, IDC_HELP_MENU, m_help);
    DDX_Control(exchange, IDC_SETUP, m_setup);
    DDX_Control(exchange, IDCANCEL, m_exit);
    DDX_Control(exchange, IDC_DOWNLOAD, m_download);
    DDX_Control(exchange, IDC_WINDOW_LIST, m_list);
}

BOOL CMainDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    AppendAboutToSystemMenu();
    SetIcon(m_hIcon, TRUE);
    SetIcon(m_hIcon, FALSE);
    m_bReady = 0;
    m_bRunning = 0;
    m_bFetchCurrent = 1;
    m_pShellWindows.Release();
    if (!CreateProgressWindow())
    {
        MessageBox(AfxLoadString(IDS_NO_PROGRESS_WINDOW), GetWindowText());
        return FALSE;
    }
    m_pShellWindows = OpenShellWindows();
    if (!m_pShellWindows)
    {
        MessageBox(AfxLoadString(IDS_NO_WINDOW_COLLECTION), GetWindowText());
        return FALSE;
    }
    m_bReady = 1;
    m_list.Prepare();
    OnRefresh();
    return TRUE;
}

bool CMainDlg::CreateProgressWindow()
{
    auto dialog = std::make_unique<CProgressDlg>(static_cast<IProgressOwner*>(this));
    if (!dialog->Create(IDD_PROGRESS, this))
        return false;
    m_pProgressDlg = dialog.release();
    m_pProgressDlg->CenterWindow(this);
    return true;
}

void CMainDlg::OnPaint()
{
    if (!IsIconic())
    {
        Default();
        return;
    }
    CPaintDC dc(this);
    RECT client;
    GetClientRect(&client);
    dc.DrawIcon((client.right - GetSystemMetrics(SM_CXICON) + 1) / 2,
                (client.bottom - GetSystemMetrics(SM_CYICON) + 1) / 2, m_hIcon);
}

LRESULT CMainDlg::OnQueryDragIcon(WPARAM, LPARAM)
{
    return static_cast<LRESULT>(m_hIcon.resource);
}

void CMainDlg::OnClose()
{
    m_pShellWindows.Release();
    Default();
}

void CMainDlg::OnCancel()
{
    if (m_bLeaving)
        return;
    m_bLeaving = 1;
    StopWorker();
    CDialog::OnCancel();
}

int CMainDlg::RefreshWindowList()
{
    if (!m_bReady)
        return -1;
    m_list.Refill(m_pShellWindows.Get());
    const int count = m_list.GetItemCount();
    m_list.SetPlaceholderText(count > 0 ? std::string() : EmptyListHint(ReportBrowsers()));
    return count;
}

void CMainDlg::UpdateDownloadButton()
{
    const bool enable = m_list.HasTick();
    if (enable != m_download.IsWindowEnabled())
        m_download.EnableWindow(enable);
}

void CMainDlg::OnRefresh()
{
    RefreshWindowList();
    UpdateDownloadButton();
}

LRESULT CMainDlg::OnListItemChanged(NMHDR&)
{
    UpdateDownloadButton();
    return 0;
}

void CMainDlg::OnSelectAll()
{
    m_list.TickAll();
    m_download.EnableWindow();
}

void CMainDlg::OnReverseSelect()
{
    m_list.ReverseTicks();
    UpdateDownloadButton();
}

void CMainDlg::OnOpenFolder()
{
    constexpr int kShowNormal = 1;
    ShellExecuteA({}, "explore", m_setting.GetSaveFolder().c_str(), nullptr, nullptr, kShowNormal);
}

void CMainDlg::OnHistory()
{
    m_sideWindows.ShowHistory();
}

void CMainDlg::OnAlbum()
{
    CreateThumbnailAlbum();
}

void CMainDlg::OnAdvanced()
{
    m_sideWindows.ShowAdvanced();
}

LRESULT CMainDlg::OnListRightClick(NMHDR&)
{
    POINT cursor;
    GetCursorPos(&cursor);
    CMenu menu;
    menu.LoadMenu(IDR_LIST_POPUP);
    CMenu* const popup = menu.GetSubMenu(0);
    if (m_list.GetItemCount() == 0)
    {
        popup->EnableMenuItem(ID_SELECT_ALL, MF_BYCOMMAND | MF_GRAYED);
        popup->EnableMenuItem(ID_REVERSE_SELECT, MF_BYCOMMAND | MF_GRAYED);
    }
    popup->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, cursor.x, cursor.y, this);
    return 0;
}
