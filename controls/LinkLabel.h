// A label that shows a link: it tells by its colour whether the mouse is on it and whether the link was followed, and
// opens the address on a click, or on Enter and Space while it has the focus. Its control is a label that notifies.
#pragma once

#include "platform/window/Controls.h"
#include "platform/window/Cursor.h"
#include "platform/window/DeviceContext.h"

#include <string>

class CLinkLabel : public CStatic
{
public:
    enum Underline : int
    {
        kUnderlineHover = -1, // only while the mouse is on it
        kUnderlineAlways = 1,
    };

    CLinkLabel();

    // Nothing of the text is drawn of the address: the text is the window's own.
    void SetUrl(const std::string& url);
    void SetVisited(bool visited);
    bool IsVisited() const
    {
        return m_bVisited;
    }
    void SetUnderline(Underline mode);
    // CLR_DEFAULT, as at the start, is the desktop's.
    void SetColors(COLORREF link, COLORREF visited, COLORREF hover);
    // Over the label; a hand at the start. Null leaves it to the desktop.
    void SetPointer(HCURSOR cursor);

protected:
    const MessageMap& GetMessageMap() const override;

private:
    LRESULT OnMouseMove(WPARAM, LPARAM);
    LRESULT OnSetCursor(WPARAM, LPARAM);
    LRESULT OnEraseBackground(WPARAM device, LPARAM);
    LRESULT OnControlColor(WPARAM device, LPARAM);
    void OnTimer(UINT_PTR id);
    void OnClicked();

    COLORREF TextColor() const;
    bool IsUnderlined() const;
    void Repaint() const;

    COLORREF m_linkColor = CLR_DEFAULT;
    COLORREF m_visitedColor = CLR_DEFAULT;
    COLORREF m_hoverColor = CLR_DEFAULT;
    bool m_bOver = false;    // the mouse is on the label
    bool m_bVisited = false; // the last click opened the link
    Underline m_underline = kUnderlineAlways;
    std::string m_url;
    CFont m_underlinedFont;
    CFont m_normalFont;
    HCURSOR m_cursor = IDC_HAND;
    UINT_PTR m_nTimer = 0; // that watches for the mouse leaving
};
