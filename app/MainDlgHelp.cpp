// The help of the main dialog: the popup of its button, and About in its system menu.

#include "app/MainDlg.h"

#include "app/SideWindows.h"
#include "resources/ResourceIds.h"
#include "tools/AboutDlg.h"
#include "tools/VersionDlg.h"

#include "platform/shell/Shell.h"
#include "platform/window/Menu.h"
#include "platform/window/Resource.h"

namespace
{

constexpr UINT kSystemBits = 0xF; // of a system command: the system's own

void OpenTarget(UINT textId)
{
    constexpr int kShowNormal = 1;
    ShellExecuteA({}, nullptr, AfxLoadString(textId).c_str(), nullptr, nullptr, kShowNormal);
}

} // namespace

void CMainDlg::AppendAboutToSystemMenu()
{
    CMenu* const menu = GetSystemMenu(FALSE);
    const std::string about = AfxLoadString(IDS_ABOUT_SYSTEM);
    if (!menu || about.empty())
        return;
    menu->AppendMenu(MF_SEPARATOR);
    menu->AppendMenu(MF_STRING, ID_ABOUT_SYSTEM, about);
}

void CMainDlg::OnSystemCommand(UINT id, LPARAM)
{
    if ((id & ~kSystemBits) == static_cast<UINT>(ID_ABOUT_SYSTEM))
        OnAbout();
    else
        Default();
}

void CMainDlg::OnHelpMenu()
{
    POINT cursor;
    GetCursorPos(&cursor);
    CMenu menu;
    menu.LoadMenu(IDR_HELP_POPUP);
    menu.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, cursor.x, cursor.y, this);
}

void CMainDlg::OnUserManual()
{
    m_sideWindows.ShowManual(GetSafeHwnd());
}

void CMainDlg::OnCheckVersion()
{
    CVersionDlg(this).DoModal();
}

void CMainDlg::OnHomePage()
{
    OpenTarget(IDS_HOME_PAGE);
}

void CMainDlg::OnEmailSupport()
{
    OpenTarget(IDS_EMAIL_SUPPORT);
}

void CMainDlg::OnAbout()
{
    CAboutDlg(this).DoModal();
}
