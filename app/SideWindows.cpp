#include "app/SideWindows.h"

#include "base/Paths.h"
#include "historyview/HistoryFrame.h"
#include "resources/ResourceIds.h"

#include "platform/window/Resource.h"

CSideWindows::~CSideWindows()
{
    CloseAll();
}

void CSideWindows::ShowHistory()
{
    if (!m_pHistoryFrame)
    {
        m_pHistoryFrame = new CHistoryFrame([this] { m_pHistoryFrame = nullptr; });
        if (!m_pHistoryFrame->LoadFrame(IDR_HISTORY))
        {
            m_pHistoryFrame = nullptr;
            return;
        }
    }
    m_pHistoryFrame->ShowWindow(m_pHistoryFrame->IsIconic() ? SW_RESTORE : SW_SHOW);
    m_pHistoryFrame->SetForegroundWindow();
}

void CSideWindows::ShowManual(HWND owner)
{
    const std::string file = PathInFolder(GetInstallFolder(), AfxLoadString(IDS_HELP_FILE));
    m_help.HtmlHelp(owner, file.c_str(), HH_DISPLAY_TOPIC, 0);
}

void CSideWindows::CloseAll()
{
    delete m_pHistoryFrame;
    m_pHistoryFrame = nullptr;
}
