#include "platform/window/CommandText_p.h"
#include "platform/window/PeerAccess_p.h"
#include "platform/window/Picture_p.h"
#include "platform/window/widgets/ControlBarWidgets_p.h"

#include <QAction>

#include <algorithm>

namespace
{

constexpr QSize kPictureSize(16, 16);

// The published bit of each edge.
Qt::ToolBarAreas AreasOf(DWORD edges)
{
    Qt::ToolBarAreas areas = Qt::NoToolBarArea;
    areas.setFlag(Qt::LeftToolBarArea, edges & 0x1000);
    areas.setFlag(Qt::TopToolBarArea, edges & 0x2000);
    areas.setFlag(Qt::RightToolBarArea, edges & 0x4000);
    areas.setFlag(Qt::BottomToolBarArea, edges & 0x8000);
    return areas;
}

} // namespace

ToolBarWidget::ToolBarWidget(FrameWidget& frame) : m_frame(frame)
{
    setIconSize(kPictureSize);
    setFloatable(false);
    setAllowedAreas(Qt::TopToolBarArea);
    frame.addToolBar(Qt::TopToolBarArea, this);
}

void ToolBarWidget::ShowText(const QString& text)
{
    setWindowTitle(text);
}

void ToolBarWidget::AddButtons(std::span<const ToolBarButton> buttons)
{
    clear();
    for (const ToolBarButton& button : buttons)
    {
        if (button.command)
            AddButton(button);
        else
            addSeparator();
    }
}

void ToolBarWidget::AddButton(const ToolBarButton& button)
{
    QString name = LoadCommandText(button.command).tip;
    QAction* action = addAction(PictureIcon(button.picture), QString());
    action->setToolTip(name);
    // What assistive technology reads; a mnemonic's mark would be taken for one, and an ellipsis be left off the text.
    action->setText(name.replace(u'&', QLatin1String("&&")));
    action->setIconText(action->text());
    m_frame.AddCommand(*action, button.command);
    // Without a mouse it is reached by Tab.
    widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
}

void ToolBarWidget::Dock()
{
    const Qt::ToolBarAreas areas = m_areas & m_frame.DockingAreas();
    for (const Qt::ToolBarArea edge :
         {Qt::TopToolBarArea, Qt::LeftToolBarArea, Qt::RightToolBarArea, Qt::BottomToolBarArea})
    {
        if (!areas.testFlag(edge))
            continue;
        setAllowedAreas(areas);
        m_frame.addToolBar(edge, this);
        return;
    }
}

BOOL CToolBar::Create(CFrameWnd* frame, UINT id)
{
    return MakeBar<ToolBarWidget>(*this, frame, id);
}

BOOL CToolBar::LoadToolBar(UINT id)
{
    return WithPeer<ToolBarWidget>(m_hWnd, false, [id](ToolBarWidget& bar) {
        const std::span toolBars = AfxGetResources()->toolBars;
        const auto found = std::ranges::find(toolBars, static_cast<int>(id), &ToolBarTemplate::id);
        if (found == toolBars.end())
            return false;
        bar.AddButtons(found->buttons);
        return true;
    });
}

void CToolBar::EnableDocking(DWORD edges)
{
    ForPeer<ToolBarWidget>(m_hWnd, [edges](ToolBarWidget& bar) { bar.SetAreas(AreasOf(edges)); });
}

void CFrameWnd::EnableDocking(DWORD edges)
{
    ForPeer<FrameWidget>(m_hWnd, [edges](FrameWidget& frame) { frame.SetDockingAreas(AreasOf(edges)); });
}

void CFrameWnd::DockControlBar(CToolBar* bar)
{
    if (!bar || ::GetParent(bar->m_hWnd) != m_hWnd)
        return;
    ForPeer<ToolBarWidget>(bar->m_hWnd, [](ToolBarWidget& widget) { widget.Dock(); });
}
