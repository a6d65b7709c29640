// What the layer asks of a window of the toolkit. Every widget class of this folder that has a handle is one.
#pragma once

#include "platform/window/Messages.h"

#include <memory>

class CMenu;
class ProgressWords;
class QString;
class QWidget;
class WindowRecord;

// User-interface thread only.
class WindowPeer
{
public:
    virtual QWidget& Widget() = 0;
    // What child windows stand on.
    virtual QWidget& ClientArea()
    {
        return Widget();
    }
    virtual void ShowText(const QString& text) = 0;
    virtual void ShowProgress(const ProgressWords&)
    {}
    // The system's own handling of a message that the program left alone.
    virtual LRESULT Default(UINT, WPARAM, LPARAM)
    {
        return 0;
    }
    // Sends WM_SIZE if the size is not the one that was told last; the toolkit tells a hidden widget late.
    virtual void TellSize()
    {}
    // Has WM_MOUSELEAVE sent once; false for a window that is not told of the mouse.
    virtual bool TrackLeave()
    {
        return false;
    }
    virtual CMenu* SystemMenu(bool)
    {
        return nullptr;
    }

    void SetRecord(std::shared_ptr<WindowRecord> record)
    {
        m_record = std::move(record);
    }

protected:
    // The toolkit deletes peers, as widgets.
    ~WindowPeer() = default;

    std::shared_ptr<WindowRecord> m_record;
};
