// Asks the update server whether there is a newer version of the program, and offers the page to download it from.
#pragma once

#include "base/Flag.h"
#include "base/Guarded.h"
#include "base/Product.h"

#include "platform/internet/Internet.h"
#include "platform/system/Thread.h"
#include "platform/window/Controls.h"
#include "platform/window/Dialog.h"

#include <memory>
#include <string>

// One check for each DoModal. The user may close the dialog while the worker is at work: its exchange is broken off
// then, and it has left when DoModal returns. Until that the worker reaches the dialog by its handle alone.
class CVersionDlg : public CDialog
{
public:
    explicit CVersionDlg(CWnd* parent = nullptr, std::string updateHost = UpdateHost());

    INT_PTR DoModal() override;

protected:
    const MessageMap& GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;

private:
    enum Outcome : int
    {
        kNone, // yet, or a failure
        kNewer,
        kLatest,
    };

    LRESULT OnRefreshFields(WPARAM, LPARAM);
    void OnDownloadNow();
    void OfferDownload();

    // The worker's, which uses m_window, m_updateHost, m_info and m_nOutcome.
    friend UINT CheckVersionThread(void* dialog);
    void QueryLatestVersion();
    void ReadVersion(HINTERNET request);
    void ShowInfo(UINT textId);
    void Refresh() const;

    const std::string m_updateHost;
    HWND m_window;
    CButton m_cancel;
    CButton m_downloadNow;
    std::string m_version;
    CGuarded<std::string> m_info;
    CFlag m_nOutcome = kNone;
    std::unique_ptr<CWinThread> m_worker;
};

// The body of the worker; `dialog` is the CVersionDlg. 0.
UINT CheckVersionThread(void* dialog);
