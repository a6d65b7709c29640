#include "download/ProgressFields.h"

#include "base/FormatText.h"
#include "resources/ResourceIds.h"

#include "platform/window/DataExchange.h"
#include "platform/window/Resource.h"

#include <utility>

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
    Texts texts;
    {
        const std::lock_guard lock(m_mutex);
        texts = m_texts;
        m_bRefreshPosted = false;
    }
    // The figures go first: when the names of a new item follow, those of the item before are complete.
    DDX_Text(exchange, IDC_TRANSFER_SIZE, texts.size);
    DDX_Text(exchange, IDC_TRANSFER_PERCENT, texts.percent);
    DDX_Text(exchange, IDC_TRANSFER_FILE, texts.file);
    DDX_Text(exchange, IDC_TRANSFER_FROM, texts.from);
}

void CProgressFields::SetTransferText(const std::string& from, const std::string& file)
{
    const auto change = [&](Texts& texts) {
        texts.from = from;
        texts.file = file;
    };
    if (Change(change))
        ::SendMessageA(m_window, WM_REFRESH_FIELDS, 0, 0);
}

void CProgressFields::SetSizeText(DWORD size)
{
    const std::string text = FormatText(IDS_SIZE, "%d", std::to_string(size));
    if (Change([&](Texts& texts) { texts.size = text; }))
        ::SendMessageA(m_window, WM_REFRESH_FIELDS, 0, 0);
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
    const std::string text = FormatText(IDS_PERCENT, "%d", std::to_string(percent));
    bool isFirst = false;
    Change([&](Texts& texts) {
        texts.percent = text;
        isFirst = !std::exchange(m_bRefreshPosted, true);
    });
    if (isFirst)
        ::PostMessageA(m_window, WM_REFRESH_FIELDS, 0, 0);
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

bool CProgressFields::Change(const std::function<void(Texts&)>& change)
{
    const std::lock_guard lock(m_mutex);
    Texts texts = m_texts;
    change(texts);
    if (texts == m_texts)
        return false;
    m_texts = std::move(texts);
    return true;
}
