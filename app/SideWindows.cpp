#include "app/SideWindows.h"

#include "historyview/HistoryFrame.h"
#include "resources/ResourceIds.h"

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

void CSideWindows::CloseAll()
{
    delete m_pHistoryFrame;
    m_pHistoryFrame = nullptr;
}
