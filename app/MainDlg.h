// The window of the plain run mode: the list of browser windows, the start of a run, and the way to everything else.
#pragma once

#include "base/UrlList.h"
#include "download/DownloadRun.h"
#include "download/ProgressDlg.h"
#include "harvest/PageHarvest.h"
#include "harvest/WindowList.h"
#include "persist/HistoryStore.h"

#include "platform/system/Thread.h"
#include "platform/window/Dialog.h"

#include <memory>

class CSideWindows;

// A run's worker lives at most as long as the dialog: leaving stops it, serves messages until it has left, and joins
// it. A run starts only when the last one's worker has left.
class CMainDlg : public CDialog, public CDownloadRun, private IHarvestOwner, private IProgressOwner
{
public:
    // `sideWindows` must outlive the dialog.
    explicit CMainDlg(CSideWindows& sideWindows);
    ~CMainDlg() override;

    // Empties and refills the list of browser windows. The number of rows; -1 while the dialog is not ready.
    int RefreshWindowList();

protected:
    const MessageMap& GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    // Exit, Esc and the close box.
    void OnCancel() override;

    // CDownloadRun, on the worker thread.
    CProgressFields& ProgressFields() override;
    bool IsStopRequested() const override;
    void OnFetchBegins() override;
    void OnFileStored(const std::string& url, const std::string& path) override;
    void OnFetchEnds() override;
    void OnSetup() override;

private:
    // Messages and commands.
    void OnPaint();
    LRESULT OnQueryDragIcon(WPARAM, LPARAM);
    void OnClose();
    LRESULT OnListRightClick(NMHDR&);
    LRESULT OnListItemChanged(NMHDR&);
    void OnRefresh();
    void OnDownloadNow();
    void OnOpenFolder();
    void OnHistory();
    void OnAlbum();
    void OnAdvanced();
    void OnHelpMenu();
    void OnUserManual();
    void OnCheckVersion();
    void OnHomePage();
    void OnEmailSupport();
    void OnAbout();
    void OnSystemCommand(UINT id, LPARAM);
    void OnSelectAll();
    void OnReverseSelect();

    // IHarvestOwner, on the worker thread.
    CDownloadRun& Run() override;
    const CUrlList& PageUrls() const override;
    void OnHarvestBegins() override;
    void OnPageBegins(const std::string& pageUrl) override;
    void OnUrlTaken(const std::string& url) override;
    void OnPageEnds() override;
    void OnNothingCollected() override;
    void OnCollected() override;
    void OnRunEnds() override;

    // IProgressOwner.
    bool IsRunning() const override;
    void CancelCurrent() override;
    void CancelAll() override;

    void AppendAboutToSystemMenu();
    bool CreateProgressWindow();
    void UpdateDownloadButton();
    bool IsWorkerInTheWay() const;
    void StopWorker();

    CSideWindows& m_sideWindows;
    CFlag m_bReady = 0;                     // the progress window and the window collection exist
    CComPtr<IShellWindows> m_pShellWindows; // of the user-interface thread
    CUrlList m_pageUrls;                    // pages of the present run
    CProgressDlg* m_pProgressDlg = nullptr; // deletes itself with its window, which is a child of this one
    CHistoryStore m_history;                // of the present run
    CHistoryItem m_historyItem;             // of the page that is being walked
    std::unique_ptr<CWinThread> m_worker;
    CFlag m_bWorkerDone = 0;  // the worker has no more to do than to keep the history and to enable Download Now
    CFlag m_bLeaving = 0;     // the dialog waits for its worker and then goes
    bool m_bStarting = false; // a start waits for the last worker's return

    CButton m_refresh;
    CButton m_help;
    CButton m_setup;
    CButton m_exit;
    CButton m_download;
    CWindowList m_list;
    HICON m_hIcon;
};
