#include "app/VantroyApp.h"

#include "app/MainDlg.h"
#include "app/PageList.h"
#include "app/RunMode.h"
#include "base/UrlList.h"
#include "harvest/BatchDlg.h"
#include "harvest/BrowserHints.h"

#include "platform/browser/Browsers.h"
#include "platform/com/Com.h"
#include "platform/system/CommandLine.h"

#include <algorithm>

BOOL CVantroyApp::InitInstance()
{
    AfxEnableControlContainer();
    Enable3dControls();
    CoInitialize(nullptr);
    RegisterBrowsers();
    m_toolbar.emplace();
    switch (RunModeOf(GetCommandLineA()))
    {
    case RunMode::Plain:
        RunMainDialog();
        break;
    case RunMode::All:
        RunAllPages();
        break;
    case RunMode::Current:
        RunCurrentPages();
        break;
    }
    m_pMainWnd = nullptr;
    return FALSE;
}

void CVantroyApp::RunMainDialog()
{
    CMainDlg dialog(m_sideWindows);
    m_pMainWnd = &dialog;
    dialog.DoModal();
}

void CVantroyApp::RunAllPages()
{
    CBatchDlg dialog;
    m_pMainWnd = &dialog;
    dialog.m_bScanAllWindows = 1;
    dialog.DoModal();
}

void CVantroyApp::RunCurrentPages()
{
    CUrlList pages;
    if (const std::string fault = ReadPageList(pages); !fault.empty())
    {
        AfxMessageBox(fault);
        return;
    }
    CBatchDlg dialog;
    m_pMainWnd = &dialog;
    dialog.m_bScanAllWindows = 0;
    dialog.SetPageList(pages);
    dialog.DoModal();
}

std::optional<std::string> CVantroyApp::AnswerOption(std::string_view option)
{
    if (option != "--browsers")
        return std::nullopt;
    return DescribeBrowsers(ReportBrowsers()) + '\n';
}

// Where there are pages, it is not the browser that was missing.
std::string CVantroyApp::HelpWithNothing()
{
    const auto reports = ReportBrowsers();
    const bool hasPages = std::ranges::any_of(reports, [](const BrowserReport& report) { return report.pages > 0; });
    return hasPages ? std::string() : DescribeBrowsers(reports);
}

int CVantroyApp::ExitInstance()
{
    m_sideWindows.CloseAll();
    m_toolbar.reset();
    CloseBrowsers();
    CoUninitialize();
    return CWinApp::ExitInstance();
}
