#include "platform/window/DataExchange.h"

#include "platform/window/Controls.h"
#include "platform/window/QtText_p.h"
#include "platform/window/WinApp.h"

void CDataExchange::Fail()
{
    SetFocus(m_hWndLastControl);
    SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
    throw Failure();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (!control.m_hWnd)
        control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd);
}

void DDX_Text(CDataExchange* exchange, int id, std::string& value)
{
    const HWND control = exchange->m_hWndLastControl = exchange->m_pDlgWnd->GetDlgItem(id);
    if (exchange->m_bSaveAndValidate)
        value = GetWindowTextA(control);
    else
        SetWindowTextA(control, value);
}

void DDX_Check(CDataExchange* exchange, int id, int& value)
{
    const HWND control = exchange->m_hWndLastControl = exchange->m_pDlgWnd->GetDlgItem(id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(SendMessageA(control, BM_GETCHECK, 0, 0));
    else
        SendMessageA(control, BM_SETCHECK, value != 0, 0);
}

void DDV_MaxChars(CDataExchange* exchange, const std::string& value, int characters)
{
    if (!exchange->m_bSaveAndValidate)
    {
        SendMessageA(exchange->m_hWndLastControl, EM_LIMITTEXT, static_cast<WPARAM>(characters), 0);
    }
    else if (ToolkitText(value).size() > characters)
    {
        AfxMessageBox("Please enter no more than " + std::to_string(characters) + " characters.", MB_ICONEXCLAMATION);
        exchange->Fail();
    }
}
