#include "app/SideWindows.h"

#include "base/Paths.h"
#include "historyview/HistoryFrame.h"
#include "resources/ResourceIds.h"
#include "tools/AdvancedFrame.h"

#include "platform/window/Resource.h"

#include <utility>

namespace
{

// Makes the frame that the pointer is to hold, unless it holds one, and brings it to the front.
template <class Frame>
void Show(Frame*& frame, UINT id)
{
    if (!frame)
    {
        frame = new Frame([&frame] { frame = nullptr; });
        if (!frame->LoadFrame(id))
        {
            frame = nullptr;
            return;
        }
    }
    frame->ShowWindow(frame->IsIconic() ? SW_RESTORE : SW_SHOW);
    frame->SetForegroundWindow();
}

} // namespace

CSideWindows::~CSideWindows()
{
    CloseAll();
}

void CSideWindows::ShowHistory()
{
    Show(m_pHistoryFrame, IDR_HISTORY);
}

void CSideWindows::ShowAdvanced()
{
    Show(m_pAdvancedFrame, IDR_ADVANCED);
}

void CSideWindows::ShowManual(HWND owner)
{
    const std::string file = PathInFolder(GetInstallFolder(), AfxLoadString(IDS_HELP_FILE));
    m_help.HtmlHelp(owner, file.c_str(), HH_DISPLAY_TOPIC, 0);
}

void CSideWindows::CloseAll()
{
    delete std::exchange(m_pHistoryFrame, nullptr);
    delete std::exchange(m_pAdvancedFrame, nullptr);
}
