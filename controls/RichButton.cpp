#include "controls/RichButton.h"

#include "platform/shell/Shell.h"
#include "platform/shell/Sound.h"

#include <utility>

namespace
{

constexpr UINT kTypeMask = 0x0F; // of a button's style
constexpr UINT kStyleNotPassedOn = 0x04;

void Play(const CRichButton::Sound& sound)
{
    if (!sound.name.empty())
        PlaySoundA(sound.name.c_str(), sound.module, sound.flags);
}

} // namespace

CRichButton::CRichButton()
{
    ResetColors();
}

const MessageMap& CRichButton::GetMessageMap() const
{
    static const MessageMap map{&CButton::StaticMessageMap(),
                                {
                                    On(WM_MOUSEMOVE, &CRichButton::OnMouseMove),
                                    On(WM_MOUSELEAVE, &CRichButton::OnMouseLeave),
                                    On(WM_KILLFOCUS, &CRichButton::OnEndOfInput),
                                    On(WM_CANCELMODE, &CRichButton::OnEndOfInput),
                                    On(WM_ACTIVATE, &CRichButton::OnActivate),
                                    On(WM_ENABLE, &CRichButton::OnEnable),
                                    On(WM_SETCURSOR, &CRichButton::OnSetCursor),
                                    On(WM_SYSCOLORCHANGE, &CRichButton::OnSysColorChange),
                                    On(WM_GETDLGCODE, &CRichButton::OnGetDlgCode),
                                    On(BM_SETSTYLE, &CRichButton::OnSetStyle),
                                    On(BM_SETCHECK, &CRichButton::OnSetCheck),
                                    On(BM_GETCHECK, &CRichButton::OnGetCheck),
                                    On(OCM_COMMAND, &CRichButton::OnClicked),
                                    On(WM_MENUCHAR, &CRichButton::OnMenuChar),
                                    On(WM_MEASUREITEM, &CRichButton::OnMeasureItem),
                                    On(WM_DRAWITEM, &CRichButton::OnDrawItem),
                                }};
    return map;
}

void CRichButton::PreSubclassWindow()
{
    const bool isDefault = DefWindowProc(WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON;
    SendMessage(BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
    SetCheckBox(m_bCheckBox);
}

void CRichButton::SetHover(BOOL hover)
{
    if (!hover)
        EndHover();
    m_bHover = hover;
}

void CRichButton::SetAlwaysTrack(BOOL track)
{
    m_bAlwaysTrack = track;
}

void CRichButton::SetCheckBox(BOOL checkBox)
{
    m_bCheckBox = checkBox;
    if (m_bCheckBox)
        Tick(m_bTicked);
    else
        DefWindowProc(BM_SETSTYLE, BS_OWNERDRAW, TRUE);
}

void CRichButton::SetColors(Look look, const Colors& colors)
{
    m_colors[look] = colors;
    Invalidate();
}

void CRichButton::SetHoverSound(Sound sound)
{
    m_hoverSound = std::move(sound);
}

void CRichButton::SetClickSound(Sound sound)
{
    m_clickSound = std::move(sound);
}

void CRichButton::SetButtonCursor(HCURSOR cursor)
{
    m_hCursor = cursor;
}

void CRichButton::SetURL(std::string address)
{
    m_url = std::move(address);
}

BOOL CRichButton::SetMenu(UINT id, HWND receiver)
{
    m_bMenuSet = m_menu.LoadMenu(id);
    m_hReceiver = receiver;
    Invalidate();
    return m_bMenuSet;
}

BCMenu& CRichButton::Menu()
{
    return m_menu;
}

void CRichButton::SetMenuCallback(HWND window, UINT message, LPARAM value)
{
    m_hCallback = window;
    m_nCallback = message;
    m_nCallbackValue = value;
}

bool CRichButton::IsOver() const
{
    return m_bOver;
}

bool CRichButton::IsDefault() const
{
    return m_bDefault;
}

void CRichButton::ResetColors()
{
    m_colors.fill({GetSysColor(COLOR_3DFACE), GetSysColor(COLOR_BTNTEXT)});
}

LRESULT CRichButton::OnMouseMove(WPARAM wParam, LPARAM)
{
    const LRESULT answer = Default();
    POINT mouse;
    GetCursorPos(&mouse);
    const HWND under = WindowFromPoint(mouse);
    if (((wParam & MK_LBUTTON) && !m_bOver) || !m_bHover)
        return answer;
    if (under == m_hWnd && (m_bAlwaysTrack || GetActiveWindow()))
        BeginHover();
    else
        EndHover();
    return answer;
}

void CRichButton::BeginHover()
{
    if (m_bOver)
        return;
    m_bOver = true;
    Invalidate();
    Play(m_hoverSound);
    TRACKMOUSEEVENT leave;
    leave.dwFlags = TME_LEAVE;
    leave.hwndTrack = m_hWnd;
    _TrackMouseEvent(&leave);
}

void CRichButton::EndHover()
{
    if (!m_bHover || !m_bOver)
        return;
    m_bOver = false;
    Invalidate();
}

void CRichButton::OnMouseLeave()
{
    EndHover();
}

LRESULT CRichButton::OnEndOfInput(WPARAM, LPARAM)
{
    const LRESULT answer = Default();
    EndHover();
    return answer;
}

LRESULT CRichButton::OnActivate(WPARAM wParam, LPARAM)
{
    const LRESULT answer = Default();
    if ((wParam & 0xFFFF) == WA_INACTIVE)
        EndHover();
    return answer;
}

LRESULT CRichButton::OnEnable(WPARAM wParam, LPARAM)
{
    const LRESULT answer = Default();
    if (wParam)
        return answer;
    const HWND parent = GetParent(m_hWnd);
    const HWND next = GetNextDlgTabItem(parent, m_hWnd, FALSE);
    ::SetFocus(next ? next : parent);
    EndHover();
    return answer;
}

LRESULT CRichButton::OnSetCursor(WPARAM, LPARAM)
{
    if (m_hCursor == HCURSOR::Null)
        return Default();
    ::SetCursor(m_hCursor);
    return TRUE;
}

LRESULT CRichButton::OnSysColorChange(WPARAM, LPARAM)
{
    const LRESULT answer = Default();
    ResetColors();
    Invalidate();
    return answer;
}

LRESULT CRichButton::OnGetDlgCode(WPARAM, LPARAM)
{
    return Default() + (m_bDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

LRESULT CRichButton::OnSetStyle(WPARAM wParam, LPARAM lParam)
{
    const UINT type = static_cast<UINT>(wParam) & kTypeMask;
    if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON)
        m_bDefault = type == BS_DEFPUSHBUTTON;
    return DefWindowProc(BM_SETSTYLE, (wParam & ~WPARAM{kStyleNotPassedOn}) | BS_OWNERDRAW, lParam);
}

LRESULT CRichButton::OnSetCheck(WPARAM wParam, LPARAM)
{
    if (m_bCheckBox)
        Tick(wParam == 1 || wParam == 2);
    return 0;
}

LRESULT CRichButton::OnGetCheck(WPARAM, LPARAM)
{
    return m_bTicked;
}

// The default handling tells assistive technology.
void CRichButton::Tick(bool ticked)
{
    m_bTicked = ticked;
    DefWindowProc(BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED, 0);
    Invalidate();
}

LRESULT CRichButton::OnClicked(WPARAM, LPARAM)
{
    SetFocus();
    Play(m_clickSound);
    if (m_bCheckBox)
        Tick(!m_bTicked);
    else if (m_bMenuSet)
        DropMenu();
    else if (!m_url.empty())
        OpenAddress();
    return FALSE;
}

LRESULT CRichButton::OnMenuChar(WPARAM wParam, LPARAM lParam)
{
    BCMenu* const menu = BCMenu::FromMenu(HmenuFromLParam(lParam));
    if (!menu)
        return Default();
    return BCMenu::FindKey(static_cast<char16_t>(wParam & 0xFFFF), static_cast<UINT>(wParam >> 16), menu);
}

LRESULT CRichButton::OnMeasureItem(WPARAM, LPARAM lParam)
{
    return BCMenu::MeasureItem(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)) || Default();
}

LRESULT CRichButton::OnDrawItem(WPARAM, LPARAM lParam)
{
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    if (item.CtlType != ODT_BUTTON)
        return BCMenu::DrawItem(item) || Default();
    Draw(item);
    return TRUE;
}

void CRichButton::DropMenu()
{
    RECT button;
    GetWindowRect(&button);
    m_bMenuOpen = true;
    Invalidate();
    const HMENU popup = ::GetSubMenu(m_menu.m_hMenu, 0);
    if (m_hCallback)
        SendMessageA(m_hCallback, m_nCallback, popup.value, m_nCallbackValue);
    const UINT command = ShowPopup(popup, button);
    m_bMenuOpen = false;
    Invalidate();
    if (command)
        PostMessageA(m_hReceiver, WM_COMMAND, command & 0xFFFF, 0);
}

// The callback may have changed the menu, or done away with it and with the button.
UINT CRichButton::ShowPopup(HMENU popup, const RECT& button)
{
    m_menu.TakeCare();
    CMenu* const menu = CMenu::FromHandle(popup);
    if (!menu)
        return 0;
    constexpr UINT kFlags = TPM_RIGHTBUTTON | TPM_NONOTIFY | TPM_RETURNCMD;
    return static_cast<UINT>(menu->TrackPopupMenu(kFlags, button.left, button.bottom, this));
}

void CRichButton::OpenAddress() const
{
    SHELLEXECUTEINFOA open;
    open.fMask = SEE_MASK_FLAG_NO_UI;
    open.lpVerb = "open";
    open.lpFile = m_url.c_str();
    open.nShow = SW_SHOWMAXIMIZED;
    ShellExecuteExA(&open);
}
