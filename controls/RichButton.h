// A push button with more to it: it reacts to the mouse passing over it, plays sounds, works as a check box, drops a
// menu down, opens a web address, and has colours of its own. User-interface thread only.
//
// In a template it is a plain button, with a caption and a mnemonic; SubclassDlgItem makes it this one. The parent gets
// its clicks as those of a plain button, once the button has done its own part.
#pragma once

#include "controls/BCMenu.h"
#include "platform/system/Library.h"
#include "platform/window/Controls.h"
#include "platform/window/Cursor.h"

#include <array>
#include <string>

struct DRAWITEMSTRUCT;

class CRichButton : public CButton
{
public:
    enum Look
    {
        Normal,
        Over, // the mouse is on it
        Pressed,
        LookCount
    };

    struct Colors
    {
        COLORREF background = 0;
        COLORREF text = 0;
    };

    // The three arguments of PlaySoundA; no name is no sound.
    struct Sound
    {
        std::string name;
        HMODULE module = nullptr;
        DWORD flags = 0;
    };

    CRichButton();

    void SetHover(BOOL hover);
    // Reacts to the mouse also while no window of the program is active.
    void SetAlwaysTrack(BOOL track);
    // A click ticks and unticks it, and does nothing else.
    void SetCheckBox(BOOL checkBox);
    // Of one look. The background that equals the system's 3D face leaves the face to the desktop's style. A change of
    // the system's colours brings those back.
    void SetColors(Look look, const Colors& colors);
    void SetHoverSound(Sound sound);
    void SetClickSound(Sound sound);
    // Over the button; null leaves it to the desktop.
    void SetButtonCursor(HCURSOR cursor);
    // What a click opens if no menu is set; empty for none.
    void SetURL(std::string address);

    // Drops down the first popup of a menu of the resource table. A chosen command is posted to `receiver`. FALSE, and
    // no menu any more, without such a one.
    BOOL SetMenu(UINT id, HWND receiver);
    BCMenu& Menu();
    // Told just before the menu opens: `message` with the popup's handle (HMENU) as WPARAM and the value as LPARAM.
    void SetMenuCallback(HWND window, UINT message, LPARAM value);

    bool IsOver() const;
    bool IsDefault() const;

protected:
    void PreSubclassWindow() override;
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnMouseMove(WPARAM wParam, LPARAM lParam);
    void OnMouseLeave();
    LRESULT OnEndOfInput(WPARAM wParam, LPARAM lParam);
    LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
    LRESULT OnEnable(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
    LRESULT OnSysColorChange(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetStyle(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetCheck(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetCheck(WPARAM wParam, LPARAM lParam);
    LRESULT OnClicked(WPARAM wParam, LPARAM lParam);
    LRESULT OnMenuChar(WPARAM wParam, LPARAM lParam);
    LRESULT OnMeasureItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnDrawItem(WPARAM wParam, LPARAM lParam);

    void BeginHover();
    void EndHover();
    void Tick(bool ticked);
    void DropMenu();
    // Gives the chosen command, 0 for none.
    UINT ShowPopup(HMENU popup, const RECT& button);
    void OpenAddress() const;
    void ResetColors();

    void Draw(const DRAWITEMSTRUCT& item) const;
    void DrawContents(CDC& dc, RECT area, UINT state) const;
    UINT FaceOf(UINT state) const;
    const Colors& ColorsOf(UINT state) const;

    bool m_bHover = true;
    bool m_bOver = false;
    bool m_bDefault = false;
    bool m_bCheckBox = false;
    bool m_bTicked = false;
    bool m_bAlwaysTrack = false;
    // What is behind the button is painted by the platform each time, so that no copy of it is held.
    std::array<Colors, LookCount> m_colors;
    BCMenu m_menu;
    bool m_bMenuSet = false;
    bool m_bMenuOpen = false;
    HWND m_hReceiver;
    HWND m_hCallback;
    UINT m_nCallback = 0;
    LPARAM m_nCallbackValue = 0;
    std::string m_url;
    HCURSOR m_hCursor = HCURSOR::Null;
    Sound m_hoverSound;
    Sound m_clickSound;
};
