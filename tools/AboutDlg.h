// The box that tells which program this is.
#pragma once

#include "platform/window/Dialog.h"

#include <string>

class CAboutDlg : public CDialog
{
public:
    explicit CAboutDlg(CWnd* parent = nullptr);

protected:
    void DoDataExchange(CDataExchange* exchange) override;

private:
    std::string m_version;
};
