// The widget of a frame: menu bar, control bars, and an area that its client window fills.
#pragma once

#include "platform/window/SizeTeller_p.h"
#include "platform/window/TopLevelPeer_p.h"

#include <QMainWindow>

#include <functional>

class QAction;

class FrameWidget : public QMainWindow, public TopLevelPeer
{
public:
    // `handles` tells whether the frame has a handler for a command: what nobody handles is greyed.
    FrameWidget(QWidget* parent, std::function<bool(UINT command)> handles);

    QWidget& Widget() override
    {
        return *this;
    }
    QWidget& ClientArea() override
    {
        return *centralWidget();
    }
    void TellSize() override;

    // The menu of the resource table with that number. False if there is none.
    bool LoadMenuBar(UINT id);
    // Has the action sent as a command of this frame, and its prompt shown while it is pointed at.
    void AddCommand(QAction& action, UINT command);

    // Where control bars may dock.
    void SetDockingAreas(Qt::ToolBarAreas areas)
    {
        m_dockingAreas = areas;
    }
    Qt::ToolBarAreas DockingAreas() const
    {
        return m_dockingAreas;
    }

    // Bars are not the user's to hide.
    QMenu* createPopupMenu() override
    {
        return nullptr;
    }

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void OpenFirstMenu();

    const std::function<bool(UINT)> m_handles;
    SizeTeller m_size;
    Qt::ToolBarAreas m_dockingAreas = Qt::NoToolBarArea;
};
