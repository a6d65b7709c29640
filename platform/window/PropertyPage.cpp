#include "platform/text/CodePage.h"
#include "platform/window/PropertySheet.h"
#include "platform/window/Resource.h"

CPropertyPage::CPropertyPage(UINT templateId) : CDialog(templateId)
{}

CPropertyPage::~CPropertyPage()
{
    if (m_pSheet)
        m_pSheet->RemovePage(this);
}

void CPropertyPage::SetModified(BOOL changed)
{
    if (m_pSheet && m_hWnd)
        m_pSheet->SendMessage(changed ? PSM_CHANGED : PSM_UNCHANGED, m_hWnd.value);
}

BOOL CPropertyPage::OnSetActive()
{
    return TRUE;
}

BOOL CPropertyPage::OnKillActive()
{
    return UpdateData(TRUE);
}

BOOL CPropertyPage::OnApply()
{
    OnOK();
    return TRUE;
}

void CPropertyPage::OnReset()
{
    OnCancel();
}

void CPropertyPage::OnOK()
{}

void CPropertyPage::OnCancel()
{}

std::string CPropertyPage::Title()
{
    if (m_psp.dwFlags & PSP_USETITLE)
        return m_psp.pszTitle;
    const DialogTemplate* source = FindTemplate();
    return source ? Utf8ToAnsi(source->caption) : std::string();
}

LRESULT CPropertyPage::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CLOSE)
        return 0;
    if (message != WM_NOTIFY)
        return CDialog::DefWindowProc(message, wParam, lParam);
    switch (reinterpret_cast<const NMHDR*>(lParam)->code)
    {
    case PSN_SETACTIVE:
        return OnSetActive() ? 0 : -1;
    case PSN_KILLACTIVE:
        return !OnKillActive();
    case PSN_APPLY:
        return OnApply() ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
    case PSN_RESET:
        OnReset();
        return 0;
    default:
        return 0;
    }
}
