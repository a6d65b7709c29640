#include "platform/window/widgets/MenuWidget_p.h"

#include "platform/window/DeviceContext_p.h"
#include "platform/window/OwnerDraw.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

#include <QKeyEvent>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

namespace
{

class MenuStyle : public QProxyStyle
{
public:
    explicit MenuStyle(MenuWidget& menu) : m_menu(menu)
    {
        setParent(&menu);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        QSize size;
        if (type == CT_MenuItem && m_menu.MeasureEntry(size))
            return size;
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element != CE_MenuItem || !item || !m_menu.DrawEntry(*item, *painter))
            QProxyStyle::drawControl(element, option, painter, widget);
    }

private:
    MenuWidget& m_menu;
};

UINT StateOf(const QStyleOptionMenuItem& option, const QWidget& menu)
{
    UINT state = 0;
    if (option.state & QStyle::State_Selected)
        state |= ODS_SELECTED;
    if (!(option.state & QStyle::State_Enabled))
        state |= ODS_GRAYED | ODS_DISABLED;
    if (option.checked)
        state |= ODS_CHECKED;
    if (!menu.style()->styleHint(QStyle::SH_UnderlineShortcut, &option, &menu))
        state |= ODS_NOACCEL;
    return state;
}

} // namespace

MenuWidget::MenuWidget(HMENU menu, HWND owner, QWidget* parent) : QMenu(parent), m_menu(menu), m_owner(owner)
{}

void MenuWidget::SetOwnerDrawn(const QAction& action, const MenuItem& item)
{
    if (m_drawn.isEmpty())
        setStyle(new MenuStyle(*this));
    const auto popup = static_cast<UINT>(item.popup.value);
    m_drawn.insert(&action, {item.flags & MF_POPUP ? popup : item.id, item.data});
}

void MenuWidget::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    m_inHand = action;
}

LRESULT MenuWidget::AskOwner(UINT message, WPARAM wParam, LPARAM lParam) const
{
    const auto owner = WindowTable::Get().Find(m_owner);
    return owner ? owner->SendFromToolkit(message, wParam, lParam) : 0;
}

bool MenuWidget::MeasureEntry(QSize& size) const
{
    const auto drawn = m_drawn.constFind(m_inHand);
    if (drawn == m_drawn.cend())
        return false;
    ItemDC dc(*this);
    MEASUREITEMSTRUCT item{ODT_MENU, 0, drawn->id, 0, 0, drawn->data, &dc};
    if (!AskOwner(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&item)))
        return false;
    size = QSize(static_cast<int>(item.itemWidth), static_cast<int>(item.itemHeight));
    return true;
}

bool MenuWidget::DrawEntry(const QStyleOptionMenuItem& option, QPainter& painter) const
{
    const auto drawn = m_drawn.constFind(m_inHand);
    if (drawn == m_drawn.cend())
        return false;
    ItemDC dc(*this, painter, option.rect);
    const QRect& area = option.rect;
    DRAWITEMSTRUCT item{ODT_MENU,
                        0,
                        drawn->id,
                        ODA_DRAWENTIRE,
                        StateOf(option, *this),
                        {m_menu.value},
                        &dc,
                        {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()},
                        drawn->data};
    return AskOwner(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
}

void MenuWidget::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    const bool types = text.size() == 1 && text[0].isPrint() && text[0] != u' ' &&
                       !(event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier));
    if (types && !m_drawn.isEmpty() && PressMenuCharacter(text[0].unicode()))
        event->accept();
    else
        QMenu::keyPressEvent(event);
}

bool MenuWidget::PressMenuCharacter(char16_t character)
{
    const QPointer<MenuWidget> self = this;
    const LRESULT answer = AskOwner(WM_MENUCHAR, WPARAM{character} | WPARAM{MF_POPUP} << 16, ToLParam(m_menu));
    if (!self || !isVisible())
        return true;
    const auto what = static_cast<UINT>(answer >> 16 & 0xFFFF);
    const auto entries = actions();
    const auto position = static_cast<qsizetype>(answer & 0xFFFF);
    if (what == MNC_CLOSE)
        close();
    if ((what != MNC_EXECUTE && what != MNC_SELECT) || position >= entries.size())
        return what == MNC_CLOSE;
    setActiveAction(entries[position]);
    if (what == MNC_EXECUTE)
    {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QMenu::keyPressEvent(&enter);
    }
    return true;
}
