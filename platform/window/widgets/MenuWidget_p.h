// A popup menu of the toolkit that has its owner draw the entries that want it. They remain the toolkit's entries, with
// a name, so that mouse, keyboard and assistive technology find nothing changed.
#pragma once

#include "platform/window/MenuTable_p.h"

#include <QHash>
#include <QMenu>

class QKeyEvent;
class QPainter;

class MenuWidget : public QMenu
{
public:
    MenuWidget(HMENU menu, HWND owner, QWidget* parent);

    void SetOwnerDrawn(const QAction& action, const MenuItem& item);

    // For the style, about the entry in hand. False if the owner did not do it.
    bool MeasureEntry(QSize& size) const;
    bool DrawEntry(const QStyleOptionMenuItem& option, QPainter& painter) const;

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Drawn
    {
        UINT id = 0;
        DWORD_PTR data = 0;
    };

    LRESULT AskOwner(UINT message, WPARAM wParam, LPARAM lParam) const;
    bool PressMenuCharacter(char16_t character);

    const HMENU m_menu;
    const HWND m_owner;
    QHash<const QAction*, Drawn> m_drawn;
    mutable const QAction* m_inHand = nullptr; // the toolkit fills the option of an entry, then hands it to the style
};
