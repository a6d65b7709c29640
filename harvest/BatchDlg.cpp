#include "harvest/BatchDlg.h"

#include "download/ProgressDlg.h"
#include "harvest/BrowserWindows.h"
#include "resources/ResourceIds.h"
#include "settings/SettingsSheet.h"

#include "platform/com/ComError.h"
#include "platform/window/Calls.h"
#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

namespace
{

constexpr UINT_PTR kCloseTimer = 1;
constexpr UINT kCloseInterval = 100; // milliseconds

} // namespace

CBatchDlg::CBatchDlg() : CDialog(IDD_BATCH)
{}

INT_PTR CBatchDlg::DoModal()
{
    const INT_PTR result = CDialog::DoModal();
    m_worker.reset();
    return result;
}

void CBatchDlg::SetPageList(const CUrlList& pages)
{
    m_pageUrls = pages;
}

const MessageMap& CBatchDlg::GetMessageMap() const
{
    static const MessageMap map{&CDialog::StaticMessageMap(),
                                {
                                    On(WM_REFRESH_FIELDS, &CBatchDlg::OnRefreshFields),
                                    OnCommand(IDC_CANCEL_CURRENT, &CBatchDlg::OnCancelCurrent),
                                    ::OnTimer(&CBatchDlg::OnTimer),
                                }};
    return map;
}

void CBatchDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    m_fields.DoDataExchange(exchange);
}

BOOL CBatchDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetIcon(AfxGetApp()->LoadIcon(IDI_APPLICATION_ICON), TRUE);
    m_hBoxOwner = GetSafeHwnd();
    m_bFinished = 0;
    m_bRunning = 1;
    m_bFetchCurrent = 1;
    m_nTimer = 0;
    m_pShellWindows = OpenShellWindows();
    if (!m_pShellWindows)
    {
        MessageBox(AfxLoadString(IDS_NO_WINDOW_COLLECTION), GetWindowText());
        EndDialog(IDOK);
        return FALSE;
    }
    if (m_bScanAllWindows != 0)
        CollectOpenPages();
    m_fields.SetTitle(IDS_GETTING_LIST);
    m_worker = AfxBeginThread(&HarvestPagesProc, static_cast<IHarvestOwner*>(this), THREAD_PRIORITY_NORMAL, 0);
    if (!m_worker)
        OnRunEnds();
    m_nTimer = SetTimer(kCloseTimer, kCloseInterval);
    return TRUE;
}

// What a collection gave before it failed is the list.
void CBatchDlg::CollectOpenPages()
{
    if (!m_pShellWindows)
        return;
    try
    {
        const LONG count = CountWindows(*m_pShellWindows.Get());
        for (LONG index = 0; index < count; ++index)
        {
            if (const CComPtr<IHTMLDocument2> document = DocumentOfWindow(*m_pShellWindows.Get(), index))
                m_pageUrls.AddTailOnce(ReadText(*document.Get(), &IHTMLDocument2::get_URL));
        }
    }
    catch (const _com_error&)
    {}
}

void CBatchDlg::OnOK()
{
    OnCancel();
}

void CBatchDlg::OnCancel()
{
    if (m_bRunning != 0 && !ConfirmCancel(*this))
        return;
    m_bFinished = 1;
    m_bCloseRequested = 1;
}

void CBatchDlg::OnTimer(UINT_PTR)
{
    if (m_bRunning == 0 && m_bFinished != 0 && m_bCloseRequested != 0)
    {
        CDialog::OnOK();
        KillTimer(m_nTimer);
    }
    Default();
}

LRESULT CBatchDlg::OnRefreshFields(WPARAM, LPARAM)
{
    UpdateData(FALSE);
    return 0;
}

void CBatchDlg::OnCancelCurrent()
{
    m_bFetchCurrent = 0;
}

CProgressFields& CBatchDlg::ProgressFields()
{
    return m_fields;
}

bool CBatchDlg::IsStopRequested() const
{
    return m_bRunning == 0 || m_bFinished != 0;
}

void CBatchDlg::OnFetchEnds()
{
    m_bFinished = 1;
}

void CBatchDlg::OnSetup()
{
    RunSettingsSheet(m_setting);
}

CDownloadRun& CBatchDlg::Run()
{
    return *this;
}

const CUrlList& CBatchDlg::PageUrls() const
{
    return m_pageUrls;
}

void CBatchDlg::OnNothingCollected()
{
    ShowNothingToDo();
    m_bFinished = 1;
    MessageBoxA(m_hBoxOwner, AfxLoadString(IDS_NO_FILES).c_str(), AfxLoadString(IDS_NO_PAGE).c_str(), MB_OK);
}

void CBatchDlg::ShowNothingToDo()
{
    m_bRunning = 0; // before the button says "OK", whose press asks no question
    m_fields.SetCancelAllText(IDS_OK);
    m_fields.ShowCancelCurrent(false);
    m_fields.SetTitle(IDS_NO_PAGE);
}

// A worker that the browser has failed has told nobody of its end.
void CBatchDlg::OnRunEnds()
{
    if (m_bRunning != 0)
        ShowNothingToDo();
    m_bFinished = 1;
}
