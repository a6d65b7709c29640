// What all windows with a frame have: icons, a system menu, minimising and closing.
//
// The frame itself is the window manager's, so the window's own system menu is a popup of ours: by the right mouse
// button on a part of the window that no control takes, and by Alt+Space where the window manager leaves it to us.
#pragma once

#include "platform/window/Menu.h"
#include "platform/window/WindowPeer_p.h"

#include <QPointer>
#include <QWidget>

inline constexpr UINT SC_MINIMIZE = 0xF020;
inline constexpr UINT SC_CLOSE = 0xF060;
inline constexpr UINT SC_RESTORE = 0xF120;

// To be called before a modal window is shown: has it hang on the window that stands in front of its parent, if there
// is one. Beside that one it would lose the keyboard, since the toolkit hands the activation of a blocked sibling to
// the parent of both.
void HangOnFrontWindow(QWidget& modal);

class TopLevelPeer : public WindowPeer
{
public:
    void ShowText(const QString& text) override;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) override;
    CMenu* SystemMenu(bool revert) override;

    // In the middle of `reference`, now and again when this window is first shown if the reference is not shown yet; in
    // the middle of the screen if it is null.
    void CenterOver(QWidget* reference);

protected:
    ~TopLevelPeer() = default;

    void EnableSystemMenu(bool minimizeBox);
    bool HasSystemMenu() const
    {
        return m_systemMenu != nullptr;
    }
    void PopUpSystemMenu(const QPoint& globalPosition);
    // To be called when the window is shown: gives it its place if nobody did.
    void PlaceFirstTime();

private:
    LRESULT SetIcon(bool big, HICON icon);
    void SystemCommand(UINT command);

    HICON m_bigIcon;
    HICON m_smallIcon;
    bool m_minimizeBox = false;
    std::unique_ptr<CMenu> m_systemMenu;
    QPointer<QWidget> m_centerOver;
};
