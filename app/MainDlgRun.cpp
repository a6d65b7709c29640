// The run of the main dialog: its start, its end, and what differs here from a batch run.

#include "app/MainDlg.h"

#include "resources/ResourceIds.h"
#include "settings/SettingsSheet.h"

#include "platform/window/Resource.h"

void CMainDlg::OnDownloadNow()
{
    if (!m_bReady || m_bLeaving || m_bStarting)
        return;
    if (IsWorkerInTheWay())
    {
        MessageBox(AfxLoadString(IDS_TERMINATING), GetWindowText());
        return;
    }
    // Messages are served meanwhile: the user may press again, or leave.
    m_bStarting = true;
    m_worker.reset();
    m_bStarting = false;
    if (m_bLeaving)
        return;
    m_pProgressDlg->m_fields.SetCancelAllText(IDS_CANCEL_ALL);
    m_download.EnableWindow(FALSE);
    m_pageUrls.RemoveAll();
    m_list.AddTickedPages(m_pageUrls);
    m_pProgressDlg->m_fields.SetTitle(IDS_GETTING_LIST);
    m_bWorkerDone = 0;
    m_worker = AfxBeginThread(&HarvestPagesProc, static_cast<IHarvestOwner*>(this), THREAD_PRIORITY_NORMAL, 0);
    if (!m_worker)
        m_download.EnableWindow();
}

// A worker that has done its work and only returns is waited for by the next run's start.
bool CMainDlg::IsWorkerInTheWay() const
{
    return m_bRunning || (m_worker && m_worker->IsRunning() && !m_bWorkerDone);
}

// The worker may wait for this thread, so messages are served while it leaves.
void CMainDlg::StopWorker()
{
    if (!m_worker)
        return;
    m_bRunning = 0;
    m_worker->CancelSynchronousIo();
    m_worker->Wait();
}

CProgressFields& CMainDlg::ProgressFields()
{
    return m_pProgressDlg->m_fields;
}

// The worker may raise the running flag just after leaving has cleared it.
bool CMainDlg::IsStopRequested() const
{
    return m_bRunning == 0 || m_bLeaving != 0;
}

// The end of the last run has hidden the button.
void CMainDlg::OnFetchBegins()
{
    ProgressFields().ShowCancelCurrent(true);
}

void CMainDlg::OnFileStored(const std::string& url, const std::string& path)
{
    m_history.MarkFileDone(url, path);
}

void CMainDlg::OnFetchEnds()
{
    m_bWorkerDone = 1;
    m_history.SaveItems();
}

void CMainDlg::OnSetup()
{
    RunSettingsSheet(m_setting);
}

CDownloadRun& CMainDlg::Run()
{
    return *this;
}

const CUrlList& CMainDlg::PageUrls() const
{
    return m_pageUrls;
}

void CMainDlg::OnHarvestBegins()
{
    m_bRunning = m_bLeaving == 0;
    m_history.Clear();
}

void CMainDlg::OnPageBegins(const std::string& pageUrl)
{
    m_historyItem = CHistoryItem();
    m_historyItem.SetPageUrl(pageUrl);
}

void CMainDlg::OnUrlTaken(const std::string& url)
{
    CHistoryFile file;
    file.SetUrl(url);
    m_historyItem.AddFile(file);
}

void CMainDlg::OnPageEnds()
{
    if (!m_historyItem.m_files.empty())
        m_history.AddItem(m_historyItem);
}

void CMainDlg::OnNothingCollected()
{
    if (!m_bLeaving)
        MessageBox(AfxLoadString(IDS_NO_FILES), GetWindowText());
}

void CMainDlg::OnCollected()
{
    if (!m_bLeaving)
        m_pProgressDlg->ShowWindow(SW_SHOW);
}

void CMainDlg::OnRunEnds()
{
    m_bRunning = 0;
    m_bWorkerDone = 1;
    if (m_download.IsWindowVisible())
        m_download.EnableWindow();
}

bool CMainDlg::IsRunning() const
{
    return m_bRunning != 0;
}

void CMainDlg::CancelCurrent()
{
    m_bFetchCurrent = 0;
}

void CMainDlg::CancelAll()
{
    m_bRunning = 0;
    m_download.EnableWindow();
}
