#include "platform/window/widgets/PushButtonWidget_p.h"

#include "platform/window/Calls.h"
#include "platform/window/Cursor_p.h"
#include "platform/window/DeviceContext_p.h"
#include "platform/window/OwnerDraw.h"

#include <QKeyEvent>
#include <QStyle>

namespace
{

constexpr UINT kTypeMask = 0x0F; // of a button's style

UINT StateOf(const QPushButton& button)
{
    UINT state = 0;
    if (button.isDown())
        state |= ODS_SELECTED;
    if (!button.isEnabled())
        state |= ODS_DISABLED;
    if (button.hasFocus())
        state |= ODS_FOCUS;
    if (!button.style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, &button))
        state |= ODS_NOACCEL;
    return state;
}

} // namespace

PushButtonWidget::PushButtonWidget(QWidget* parent) : ButtonWidget(parent)
{
    // The default button is the template's choice, not the toolkit's.
    setAutoDefault(false);
}

bool PushButtonWidget::ActsAsDefault() const
{
    return isDefault() || (m_record->SendFromToolkit(WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON);
}

LRESULT PushButtonWidget::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case BM_SETSTYLE:
        SetStyle(static_cast<UINT>(wParam) & kTypeMask);
        return 0;
    case BM_SETCHECK:
        setCheckable(m_ownerDrawn);
        break;
    case WM_GETDLGCODE:
        if (m_ownerDrawn)
            return DLGC_BUTTON;
        return DLGC_BUTTON | (isDefault() ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    default:
        break;
    }
    return ButtonWidget::Default(message, wParam, lParam);
}

void PushButtonWidget::SetStyle(UINT style)
{
    m_ownerDrawn = style == BS_OWNERDRAW;
    setDefault(style == BS_DEFPUSHBUTTON);
    setCheckable(false);
    setMouseTracking(m_ownerDrawn);
    update();
}

bool PushButtonWidget::TrackLeave()
{
    m_tracking = m_ownerDrawn && underMouse();
    // The mouse may have left in the meantime.
    if (m_ownerDrawn && !m_tracking)
        PostMessageA(m_record->Handle(), WM_MOUSELEAVE, 0, 0);
    return m_ownerDrawn;
}

bool PushButtonWidget::event(QEvent* event)
{
    const bool last = event->type() == QEvent::DeferredDelete;
    const bool used = ButtonWidget::event(event);
    if (!last && m_ownerDrawn)
        TellOf(*event);
    return used;
}

void PushButtonWidget::TellOf(const QEvent& event)
{
    const auto record = m_record;
    switch (event.type())
    {
    case QEvent::Leave:
        if (std::exchange(m_tracking, false))
            record->SendFromToolkit(WM_MOUSELEAVE, 0, 0);
        break;
    case QEvent::MouseMove:
    {
        const auto& move = static_cast<const QMouseEvent&>(event);
        const QPoint place = move.position().toPoint();
        const WPARAM held = move.buttons() & Qt::LeftButton ? MK_LBUTTON : 0;
        AskForCursor(*record, *this);
        record->SendFromToolkit(WM_MOUSEMOVE, held, PairToLParam(place.x(), place.y()));
        break;
    }
    case QEvent::FocusOut:
        record->SendFromToolkit(WM_KILLFOCUS, 0, 0);
        break;
    case QEvent::WindowBlocked:
        record->SendFromToolkit(WM_CANCELMODE, 0, 0);
        break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        record->SendFromToolkit(WM_ACTIVATE, event.type() == QEvent::WindowActivate ? WA_ACTIVE : WA_INACTIVE, 0);
        break;
    case QEvent::EnabledChange:
        record->SendFromToolkit(WM_ENABLE, isEnabled(), 0);
        break;
    case QEvent::PaletteChange:
        record->SendFromToolkit(WM_SYSCOLORCHANGE, 0, 0);
        break;
    default:
        break;
    }
}

void PushButtonWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        ButtonWidget::keyPressEvent(event);
}

void PushButtonWidget::nextCheckState()
{
    // The program is told of the click, and ticks.
    if (!m_ownerDrawn)
        ButtonWidget::nextCheckState();
}

void PushButtonWidget::paintEvent(QPaintEvent* event)
{
    if (!m_ownerDrawn || !AskToDraw())
        ButtonWidget::paintEvent(event);
}

bool PushButtonWidget::AskToDraw()
{
    QPainter painter(this);
    ItemDC dc(*this, painter, rect());
    DRAWITEMSTRUCT item{
        ODT_BUTTON, static_cast<UINT>(m_record->Id()), 0, ODA_DRAWENTIRE, StateOf(*this), m_record->Handle(),
        &dc,        {0, 0, width(), height()},         0};
    return m_record->SendFromToolkit(WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}
