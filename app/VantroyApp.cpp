#include "app/VantroyApp.h"

#include "app/MainDlg.h"
#include "app/RunMode.h"
#include "resources/ResourceIds.h"

#include "platform/browser/Browsers.h"
#include "platform/com/Com.h"
#include "platform/system/CommandLine.h"
#include "platform/window/Resource.h"

BOOL CVantroyApp::InitInstance()
{
    AfxEnableControlContainer();
    Enable3dControls();
    CoInitialize(nullptr);
    RegisterBrowsers();
    if (RunModeOf(GetCommandLineA()) == RunMode::Plain)
        RunMainDialog();
    else
        AfxMessageBox(AfxLoadString(IDS_NO_BATCH));
    return FALSE;
}

void CVantroyApp::RunMainDialog()
{
    CMainDlg dialog;
    m_pMainWnd = &dialog;
    dialog.DoModal();
    m_pMainWnd = nullptr;
}

int CVantroyApp::ExitInstance()
{
    CloseBrowsers();
    CoUninitialize();
    return CWinApp::ExitInstance();
}
