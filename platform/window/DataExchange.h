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
};

// Attaches the member to the control at the first exchange; does nothing later.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, std::string& value);
