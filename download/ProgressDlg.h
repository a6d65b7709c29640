// The modeless progress window of the main window's runs. It is made once, hidden, and serves all runs; it deletes
// itself with its window.
#pragma once

#include "download/ProgressFields.h"

#include "platform/window/Dialog.h"

// Whose run the window shows. Called on the user-interface thread.
class IProgressOwner
{
public:
    virtual bool IsRunning() const = 0;
    // Stops the item in hand at its next poll.
    virtual void CancelCurrent() = 0;
    // Stops the run at its next poll and makes the next one possible.
    virtual void CancelAll() = 0;

protected:
    ~IProgressOwner() = default;
};

// Asks the user of the window whether the run is to be cancelled.
bool ConfirmCancel(const CWnd& window);

class CProgressDlg : public CDialog
{
public:
    // `owner` may be null; it must outlive the window.
    explicit CProgressDlg(IProgressOwner* owner);

    CProgressFields m_fields;

protected:
    const MessageMap& GetMessageMap() const override;
    void DoDataExchange(CDataExchange* exchange) override;
    // Cancel All, OK at the end of a run, Esc, the close box: hides the window, after a question while a run goes on.
    void OnCancel() override;
    void PostNcDestroy() override;

private:
    LRESULT OnRefreshFields(WPARAM, LPARAM);
    void OnCancelCurrent();

    IProgressOwner* m_pOwner;
};
