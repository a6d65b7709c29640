#include "demo/controls/GalleryDlg.h"

#include "platform/shell/Sound.h"

namespace
{

constexpr UINT WM_MENU_OPENS = WM_USER + 1;
constexpr const char* kAddress = "http://127.0.0.1:8080/";
constexpr const char* kSounds = "/usr/share/sounds/freedesktop/stereo/";
constexpr int kPictureSize = 16;

CRichButton::Sound SoundNamed(const char* name)
{
    return {kSounds + std::string(name), nullptr, SND_ASYNC | SND_NODEFAULT};
}

// A caption without its mnemonic's mark and its shortcut.
std::string Plain(const std::string& caption)
{
    std::string plain = caption.substr(0, caption.find('\t'));
    for (std::size_t mark = plain.find('&'); mark != std::string::npos; mark = plain.find('&', mark + 1))
        plain.erase(mark, 1); // of two the second one stays
    return plain;
}

} // namespace

BOOL CGalleryDlg::OnInitDialog()
{
    const std::pair<int, CWnd*> controls[] = {
        {IDC_PLAIN, &m_plain},       {IDC_DEFAULT, &m_default},
        {IDC_DISABLED, &m_disabled}, {IDC_COLOURED, &m_coloured},
        {IDC_SOUNDS, &m_sounds},     {IDC_WEB, &m_web},
        {IDC_TICK, &m_tick},         {IDC_TICKED, &m_ticked},
        {IDC_MENU, &m_menu},         {IDC_TICKED_DISABLED, &m_tickedDisabled},
        {IDC_LINK, &m_link},
    };
    for (const auto& [id, control] : controls)
        control->SubclassDlgItem(static_cast<UINT>(id), this);
    PrepareButtons();
    PrepareMenu();
    return TRUE;
}

void CGalleryDlg::PrepareButtons()
{
    m_coloured.SetColors(CRichButton::Normal, {0x804000, 0xFFFFFF});
    m_coloured.SetColors(CRichButton::Over, {0xB06010, 0xFFFFFF});
    m_coloured.SetColors(CRichButton::Pressed, {0x502000, 0xA0FFFF});
    m_sounds.SetHoverSound(SoundNamed("button-toggle-on.oga"));
    m_sounds.SetClickSound(SoundNamed("button-pressed.oga"));
    m_web.SetURL(kAddress);
    m_web.SetButtonCursor(IDC_HAND);
    m_link.SetUrl(kAddress);
    for (CRichButton* box : {&m_tick, &m_ticked, &m_tickedDisabled})
        box->SetCheckBox(TRUE);
    m_ticked.SendMessage(BM_SETCHECK, BST_CHECKED);
    m_tickedDisabled.SendMessage(BM_SETCHECK, BST_CHECKED);
}

void CGalleryDlg::PrepareMenu()
{
    m_menu.SetMenu(IDR_GALLERY_MENU, m_hWnd);
    m_menu.SetMenuCallback(m_hWnd, WM_MENU_OPENS, 0);
    for (const UINT id : {ID_OPEN, ID_GREYED})
    {
        auto images = std::make_unique<CImageList>();
        images->Create(kPictureSize);
        images->Add({IDI_PAPER});
        m_menu.Menu().SetImage(id, std::move(images), 0);
    }
}

void CGalleryDlg::AdaptMenu(HMENU popup) const
{
    CheckMenuItem(popup, ID_TOOLS, m_bTools ? MF_CHECKED : MF_UNCHECKED);
    EnableMenuItem(popup, ID_GREYED, MF_GRAYED);
}

LRESULT CGalleryDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_MENU_OPENS)
        AdaptMenu({wParam});
    const UINT id = static_cast<UINT>(wParam & 0xFFFF);
    if (message != WM_COMMAND || id == IDCANCEL)
        return CDialog::WindowProc(message, wParam, lParam);
    if (id == ID_TOOLS)
        m_bTools = !m_bTools;
    std::string text;
    if (!m_menu.Menu().GetMenuText(id, text, MF_BYCOMMAND))
        text = GetWindowTextA(HwndFromLParam(lParam));
    SetWindowTextA(GetDlgItem(IDC_SAID), "Pressed: " + Plain(text));
    return 0;
}
