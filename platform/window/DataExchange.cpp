#include "platform/window/DataExchange.h"

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (!control.m_hWnd)
        control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd);
}

void DDX_Text(CDataExchange* exchange, int id, std::string& value)
{
    const HWND control = exchange->m_pDlgWnd->GetDlgItem(id);
    if (exchange->m_bSaveAndValidate)
        value = GetWindowTextA(control);
    else
        SetWindowTextA(control, value);
}
