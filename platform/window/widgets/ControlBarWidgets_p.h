// The widgets of the bars at a frame's edges.
#pragma once

#include "platform/window/Creation_p.h"
#include "platform/window/FrameWnd.h"
#include "platform/window/Resource.h"
#include "platform/window/widgets/FrameWidget_p.h"

#include <QLabel>
#include <QStatusBar>
#include <QToolBar>

#include <span>
#include <vector>

class QTimer;

class ToolBarWidget : public QToolBar, public WindowPeer
{
public:
    explicit ToolBarWidget(FrameWidget& frame);

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override;

    void AddButtons(std::span<const ToolBarButton> buttons);
    // Where the frame has to agree.
    void SetAreas(Qt::ToolBarAreas areas)
    {
        m_areas = areas;
    }
    // To the first of the edges that it and the frame allow.
    void Dock();

private:
    void AddButton(const ToolBarButton& button);

    FrameWidget& m_frame; // its parent
    Qt::ToolBarAreas m_areas = Qt::NoToolBarArea;
};

// A message, and indicators behind it. They follow the keys within half a second while the bar shows, at once where
// the key is pressed in this program.
class StatusBarWidget : public QStatusBar, public WindowPeer
{
public:
    explicit StatusBarWidget(FrameWidget& frame);

    QWidget& Widget() override
    {
        return *this;
    }
    // Of the message pane.
    void ShowText(const QString& text) override;

    // In their order; what is no indicator is the message pane.
    void SetPanes(std::span<const UINT> ids);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Indicator
    {
        QLabel* label;
        unsigned lock; // of LockKeys_p.h
        QString text;
    };

    void AddIndicator(UINT id);
    void ShowLocks();

    QLabel* m_message;
    QTimer* m_timer;
    std::vector<Indicator> m_indicators;
};

// Makes a bar of the frame for an object that has no window yet.
template <class Peer>
BOOL MakeBar(CWnd& object, const CFrameWnd* frame, UINT id)
{
    bool made = false;
    RunOnDesktop([&] {
        const auto owner = RecordOf(frame);
        auto* widget = owner ? dynamic_cast<FrameWidget*>(owner->Peer()) : nullptr;
        made = widget && !object.m_hWnd;
        if (made)
            JoinChild(object, *new Peer(*widget), owner, id);
    });
    return made;
}
