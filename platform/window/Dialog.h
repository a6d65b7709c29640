// A dialog made from a template of the resource table.
#pragma once

#include "platform/window/Wnd.h"

#include <memory>

class WindowRecord;
struct DialogTemplate;

class CDialog : public CWnd
{
public:
    explicit CDialog(UINT templateId = 0, CWnd* parent = nullptr);
    ~CDialog() override;

    // Shows the dialog and serves messages until EndDialog; gives the result, or -1 if it cannot be made. The parent is
    // disabled meanwhile. On a worker the dialog lives on the user-interface thread and that worker alone is blocked.
    virtual INT_PTR DoModal();
    // Makes the dialog without showing it. FALSE if it cannot be made.
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    // Ends DoModal with the result; on a dialog that is not modal it only hides the window.
    void EndDialog(int result);
    // From dialog units (see Resource.h) to device-independent pixels, by the font of the dialog's window.
    void MapDialogRect(RECT* area) const;

protected:
    // Called when all controls exist, before the window shows. FALSE keeps the focus that was set here; TRUE puts it on
    // the first control in Tab order.
    virtual BOOL OnInitDialog();
    // IDOK: the default button, or Enter. Takes the data of the controls, then ends with IDOK.
    virtual void OnOK();
    // IDCANCEL: the cancel button, Esc, and the default handling of WM_CLOSE. Ends with IDCANCEL.
    virtual void OnCancel();

    // The layer's own: what the window is made from, null if there is nothing.
    virtual const DialogTemplate* FindTemplate();

    const MessageMap& GetMessageMap() const override;
    static const MessageMap& StaticMessageMap();
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Modal;

    std::shared_ptr<WindowRecord> Make(const CWnd* parent);

    UINT m_templateId;
    CWnd* m_pParent;
    std::shared_ptr<Modal> m_modal; // set while DoModal runs
};
