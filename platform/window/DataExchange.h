// Moves data between the members of a dialog and its controls. See CWnd::UpdateData.
#pragma once

#include "platform/window/Wnd.h"

class CDataExchange
{
public:
    CDataExchange(CWnd* dialog, bool saveAndValidate) : m_pDlgWnd(dialog), m_bSaveAndValidate(saveAndValidate)
    {}

    CWnd* m_pDlgWnd;
    bool m_bSaveAndValidate; // true: from controls to members
    HWND m_hWndLastControl;  // that a DDX_ function has served

    // Ends the exchange, so that UpdateData gives FALSE; the last control gets the focus, with its text selected.
    // To be called once the user has been told.
    [[noreturn]] void Fail();

    // What Fail throws and UpdateData catches.
    struct Failure
    {
    };
};

// Attaches the member to the control at the first exchange; does nothing later.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, std::string& value);
// 0 or 1.
void DDX_Check(CDataExchange* exchange, int id, int& value);
// Behind the DDX_Text of the same value: the edit takes no more characters from its user, though all of a longer text
// that the program sets. Such a text is refused with a message on the way back.
void DDV_MaxChars(CDataExchange* exchange, const std::string& value, int characters);
