#include "platform/window/widgets/LinkWidget_p.h"

#include "platform/window/Cursor_p.h"
#include "platform/window/DeviceContext_p.h"
#include "platform/window/WindowRecord_p.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QStyleOptionFocusRect>

namespace
{

class LinkDC : public CDC
{
public:
    explicit LinkDC(QWidget& widget) : CDC(std::make_unique<Surface>(widget))
    {}
};

class AccessibleLink : public QAccessibleWidget
{
public:
    explicit AccessibleLink(LinkWidget& link) : QAccessibleWidget(&link, QAccessible::Link), m_link(link)
    {}

    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action != pressAction())
            QAccessibleWidget::doAction(action);
        else if (m_link.isEnabled())
            m_link.Click();
    }

private:
    LinkWidget& m_link;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object)
{
    auto* link = dynamic_cast<LinkWidget*>(object);
    return link ? new AccessibleLink(*link) : nullptr;
}

} // namespace

LinkWidget::LinkWidget(QWidget* parent) : DrawnWidget(parent)
{
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(&MakeAccessible), true);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void LinkWidget::ShowText(const QString& text)
{
    DrawnWidget::ShowText(text);
    update();
}

LRESULT LinkWidget::Default(UINT message, WPARAM, LPARAM)
{
    if (message == WM_PAINT && testAttribute(Qt::WA_WState_InPaintEvent))
        Paint();
    return 0;
}

void LinkWidget::Paint()
{
    const auto record = m_record;
    {
        LinkDC dc(*this);
        const auto device = reinterpret_cast<WPARAM>(static_cast<CDC*>(&dc));
        record->SendFromToolkit(WM_ERASEBKGND, device, 0);
        if (isEnabled())
            record->SendFromToolkit(OCM_CTLCOLORSTATIC, device, ToLParam(record->Handle()));
        dc.DrawText(record->Text(), {0, 0, width(), height()}, DT_SINGLELINE | DT_END_ELLIPSIS);
    }
    if (!hasFocus())
        return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void LinkWidget::Click()
{
    m_record->NotifyCommand(STN_CLICKED);
}

void LinkWidget::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter)
        event->ignore();
    else if (!event->isAutoRepeat())
        Click();
}

void LinkWidget::mouseMoveEvent(QMouseEvent* event)
{
    const auto record = m_record;
    AskForCursor(*record, *this);
    if (!record->IsGone())
        DrawnWidget::mouseMoveEvent(event);
}

void LinkWidget::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    DrawnWidget::mousePressEvent(event);
}

// As of a button: a press that is let go elsewhere was taken back.
void LinkWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const auto record = m_record;
    const bool clicked = event->button() == Qt::LeftButton && std::exchange(m_pressed, false) &&
                         rect().contains(event->position().toPoint());
    DrawnWidget::mouseReleaseEvent(event);
    if (clicked && !record->IsGone())
        Click();
}
