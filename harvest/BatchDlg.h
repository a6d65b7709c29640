// The window of the run modes that ask nothing: it starts its one run as it opens, shows its progress on itself, and
// closes behind it. It keeps no history.
#pragma once

#include "base/UrlList.h"
#include "download/DownloadRun.h"
#include "download/ProgressFields.h"
#include "harvest/PageHarvest.h"

#include "platform/browser/ObjectModel.h"
#include "platform/system/Thread.h"
#include "platform/window/Dialog.h"

#include <memory>

// The worker never closes the window: the user's press of Cancel All or OK asks for it, and the first tick of the timer
// after the end of the run does it. Cancelling leaves the walk and the item in hand to their end.
class CBatchDlg : public CDialog, public CDownloadRun, private IHarvestOwner
{
public:
    CBatchDlg();

    CFlag m_bScanAllWindows = 0; // the pages are those of all open windows; set before the dialog runs

    // The pages of the run, without duplicates, if they are not those of all open windows.
    void SetPageList(const CUrlList& pages);

    // Returns when the window has closed and the worker, which may still be at its last message box, has left.
    INT_PTR DoModal() override;

protected:
    const MessageMap& GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    // As OnCancel: nothing but the timer ends the dialog.
    void OnOK() override;
    // Cancel All, OK at the end of the run, Esc and the close box.
    void OnCancel() override;

    // CDownloadRun, on the worker thread.
    CProgressFields& ProgressFields() override;
    bool IsStopRequested() const override;
    void OnFetchEnds() override;
    void OnSetup() override;

private:
    LRESULT OnRefreshFields(WPARAM, LPARAM);
    void OnCancelCurrent();
    void OnTimer(UINT_PTR id);

    // IHarvestOwner, on the worker thread.
    CDownloadRun& Run() override;
    const CUrlList& PageUrls() const override;
    void OnNothingCollected() override;
    void OnRunEnds() override;

    void CollectOpenPages();
    void ShowNothingToDo();

    CFlag m_bFinished = 0;       // the run counts as over
    CFlag m_bCloseRequested = 0; // the user has pressed the cancel button
    UINT_PTR m_nTimer = 0;       // that closes the window
    HWND m_hBoxOwner;            // the window, for the worker: it may have gone when the worker asks for its box
    CUrlList m_pageUrls;
    CProgressFields m_fields;
    CComPtr<IShellWindows> m_pShellWindows; // of the user-interface thread
    std::unique_ptr<CWinThread> m_worker;
};
