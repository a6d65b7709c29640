#include "download/ProgressDlg.h"

#include "resources/ResourceIds.h"

#include "platform/window/Resource.h"

bool ConfirmCancel(const CWnd& window)
{
    return window.MessageBox(AfxLoadString(IDS_ASK_CANCEL), window.GetWindowText(), MB_YESNO | MB_ICONQUESTION) ==
           IDYES;
}

CProgressDlg::CProgressDlg(IProgressOwner* owner) : CDialog(IDD_PROGRESS), m_pOwner(owner)
{}

const MessageMap& CProgressDlg::GetMessageMap() const
{
    static const MessageMap map{&CDialog::StaticMessageMap(),
                                {
                                    On(WM_REFRESH_FIELDS, &CProgressDlg::OnRefreshFields),
                                    OnCommand(IDC_CANCEL_CURRENT, &CProgressDlg::OnCancelCurrent),
                                }};
    return map;
}

void CProgressDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    m_fields.DoDataExchange(exchange);
}

void CProgressDlg::OnCancel()
{
    if (m_pOwner)
    {
        if (m_pOwner->IsRunning() && !ConfirmCancel(*this))
            return;
        m_pOwner->CancelAll();
    }
    CDialog::OnCancel();
}

void CProgressDlg::PostNcDestroy()
{
    delete this;
}

LRESULT CProgressDlg::OnRefreshFields(WPARAM, LPARAM)
{
    UpdateData(FALSE);
    return 0;
}

void CProgressDlg::OnCancelCurrent()
{
    if (m_pOwner)
        m_pOwner->CancelCurrent();
}
