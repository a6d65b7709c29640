#include "download/ProgressFields.h"

#include "base/FormatText.h"
#include "resources/ResourceIds.h"

#include "platform/window/DataExchange.h"
#include "platform/window/Resource.h"

DWORD PercentOf(DWORD position, DWORD total)
{
    return total == 0 ? 100 : static_cast<DWORD>(std::uint64_t{position} * 100 / total);
}

void CProgressFields::DoDataExchange(CDataExchange* exchange)
{
    m_window = exchange->m_pDlgWnd->GetSafeHwnd();
    DDX_Control(exchange, IDC_CANCEL_CURRENT, m_cancelCurrent);
    DDX_Control(exchange, IDC_TRANSFER_BAR, m_bar);
    DDX_Control(exchange, IDCANCEL, m_cancelAll);
    DDX_Text(exchange, IDC_TRANSFER_FILE, m_file);
    DDX_Text(exchange, IDC_TRANSFER_FROM, m_from);
    DDX_Text(exchange, IDC_TRANSFER_SIZE, m_size);
    DDX_Text(exchange, IDC_TRANSFER_PERCENT, m_percent);
}

void CProgressFields::SetTransferText(const std::string& from, const std::string& file)
{
    SetText(m_from, from);
    SetText(m_file, file);
    Refresh();
}

void CProgressFields::SetSizeText(DWORD size)
{
    SetText(m_size, FormatText(IDS_SIZE, "%d", std::to_string(size)));
    Refresh();
}

void CProgressFields::SetRange(DWORD size)
{
    m_bar.SendMessage(PBM_SETRANGE32, 0, static_cast<LPARAM>(size));
}

void CProgressFields::SetProgress(DWORD position, DWORD total)
{
    m_bar.SendMessage(PBM_SETPOS, position);
    const DWORD percent = PercentOf(position, total);
    if (percent == m_nPercent)
        return;
    m_nPercent = percent;
    SetText(m_percent, FormatText(IDS_PERCENT, "%d", std::to_string(percent)));
    Refresh();
}

void CProgressFields::SetTitle(UINT textId)
{
    SetWindowTextA(m_window, AfxLoadString(textId));
}

void CProgressFields::SetCancelAllText(UINT textId)
{
    m_cancelAll.SetWindowText(AfxLoadString(textId));
}

void CProgressFields::ShowCancelCurrent(bool show)
{
    m_cancelCurrent.ShowWindow(show ? SW_SHOW : SW_HIDE);
}

void CProgressFields::SetText(std::string& field, const std::string& text)
{
    m_bChanged = m_bChanged || field != text;
    field = text;
}

void CProgressFields::Refresh()
{
    if (!m_bChanged)
        return;
    m_bChanged = false;
    ::SendMessageA(m_window, WM_REFRESH_FIELDS, 0, 0);
}
