#include "platform/window/Dialog.h"

#include "platform/window/Creation_p.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/DialogBuilder_p.h"
#include "platform/window/DialogUnits_p.h"
#include "platform/window/ModalWait_p.h"
#include "platform/window/WinApp.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/console/ConsoleDesktop_p.h"
#include "platform/window/widgets/DialogWidget_p.h"

struct CDialog::Modal : ModalWait
{
};

namespace
{

void ShowModal(WindowRecord& record)
{
    QWidget& widget = record.Peer()->Widget();
    if (widget.parentWidget())
        widget.setWindowModality(Qt::WindowModal);
    HangOnFrontWindow(widget);
    widget.show();
}

} // namespace

// Makes the window for the object, up to the end of its OnInitDialog. Null if it cannot be made.
std::shared_ptr<WindowRecord> CDialog::Make(const CWnd* parent)
{
    const DialogTemplate* source = FindTemplate();
    ConsoleDesktop* console = ConsoleDesktop::Current();
    if (!source || (console && m_modal && !console->MayOpen(*source)))
        return nullptr;
    auto record = BuildDialog(*source, RecordOf(parent));
    if (console)
        console->Watch(*record, *source);
    record->Attach(*this, true);
    // It may go before it has shown.
    record->SetModal(m_modal);
    if (SendFirst(*record, WM_INITDIALOG) && !record->IsGone())
        FocusFirstControl(record->Peer()->Widget());
    return record;
}

CDialog::CDialog(UINT templateId, CWnd* parent) : m_templateId(templateId), m_pParent(parent)
{}

CDialog::~CDialog()
{
    if (m_modal)
        m_modal->End(-1);
}

INT_PTR CDialog::DoModal()
{
    const auto modal = std::make_shared<Modal>();
    std::shared_ptr<WindowRecord> record;
    RunOnDesktop([&] {
        m_modal = modal;
        record = Make(m_pParent ? m_pParent : AfxGetMainWnd());
        if (record && !record->IsGone() && !modal->HasEnded())
            ShowModal(*record);
    });
    if (!record)
        return -1;
    const int result = modal->WaitForEnd();
    RunOnDesktop([&] {
        m_modal.reset();
        record->Destroy();
    });
    if (!IsDesktopThread())
        modal->WaitUntilGone();
    return result;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent)
{
    bool stands = false;
    RunOnDesktop([&] {
        m_templateId = templateId;
        m_modal.reset();
        const auto record = Make(parent);
        stands = record && !record->IsGone();
    });
    return stands;
}

void CDialog::EndDialog(int result)
{
    RunOnDesktop([&] {
        const auto modal = m_modal;
        ShowWindow(SW_HIDE);
        if (modal)
            modal->End(result);
    });
}

void CDialog::MapDialogRect(RECT* area) const
{
    RunOnDesktop([&] {
        const auto record = WindowTable::Get().Find(m_hWnd);
        if (!record)
            return;
        const DialogUnits units(record->Peer()->Widget().fontMetrics());
        const QPoint first = units.Point(area->left, area->top);
        const QPoint last = units.Point(area->right, area->bottom);
        *area = {first.x(), first.y(), last.x(), last.y()};
    });
}

const DialogTemplate* CDialog::FindTemplate()
{
    return FindDialogTemplate(static_cast<int>(m_templateId));
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

const MessageMap& CDialog::GetMessageMap() const
{
    return StaticMessageMap();
}

const MessageMap& CDialog::StaticMessageMap()
{
    static const MessageMap map{&CWnd::StaticMessageMap(),
                                {
                                    OnCommand(IDOK, &CDialog::OnOK),
                                    OnCommand(IDCANCEL, &CDialog::OnCancel),
                                }};
    return map;
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_INITDIALOG:
        return OnInitDialog();
    case WM_CLOSE:
    {
        const HWND button = GetDlgItem(IDCANCEL);
        if (!button || ::IsWindowEnabled(button))
            SendMessage(WM_COMMAND, IDCANCEL, ToLParam(button));
        return 0;
    }
    default:
        return CWnd::DefWindowProc(message, wParam, lParam);
    }
}
