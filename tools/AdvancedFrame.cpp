#include "tools/AdvancedFrame.h"

#include "resources/ResourceIds.h"
#include "tools/ThumbnailAlbum.h"

#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

namespace
{

constexpr UINT kIndicators[] = {ID_SEPARATOR, ID_INDICATOR_CAPS, ID_INDICATOR_NUM, ID_INDICATOR_SCRL};

} // namespace

CAdvancedFrame::CAdvancedFrame(std::function<void()> closed) : m_closed(std::move(closed))
{}

const MessageMap& CAdvancedFrame::GetMessageMap() const
{
    static const MessageMap map{&CFrameWnd::StaticMessageMap(),
                                {
                                    On(WM_CREATE, &CAdvancedFrame::OnCreate),
                                    On(WM_CLOSE, &CAdvancedFrame::OnClose),
                                    OnCommand(ID_CREATE_ALBUM, &CAdvancedFrame::OnCreateAlbum),
                                    OnCommand(ID_APP_EXIT, &CAdvancedFrame::OnExit),
                                }};
    return map;
}

LRESULT CAdvancedFrame::OnCreate(WPARAM, LPARAM)
{
    if (Default() == -1 || !CreateBars())
        return -1;
    m_toolBar.EnableDocking(CBRS_ALIGN_ANY);
    EnableDocking(CBRS_ALIGN_ANY);
    DockControlBar(&m_toolBar);
    SetWindowText(AfxLoadString(IDS_ADVANCED_WINDOW));
    m_hIcon = AfxGetApp()->LoadIcon(IDI_APPLICATION_ICON);
    SetIcon(m_hIcon, TRUE);
    SetIcon(m_hIcon, FALSE);
    return 0;
}

bool CAdvancedFrame::CreateBars()
{
    return m_toolBar.Create(this, IDC_ADVANCED_TOOLBAR) && m_toolBar.LoadToolBar(IDR_ADVANCED) &&
           m_statusBar.Create(this) && m_statusBar.SetIndicators(kIndicators);
}

void CAdvancedFrame::OnCreateAlbum()
{
    CreateThumbnailAlbum();
}

void CAdvancedFrame::OnExit()
{
    SendMessage(WM_CLOSE);
}

void CAdvancedFrame::OnClose()
{
    m_closed();
    Default();
}
