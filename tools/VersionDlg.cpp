#include "tools/VersionDlg.h"

#include "base/ContentLength.h"
#include "base/FormatText.h"
#include "base/InternetHandles.h"
#include "base/RefreshFields.h"
#include "controls/OpenUrl.h"
#include "resources/ResourceIds.h"
#include "tools/VersionFile.h"

#include "platform/window/DataExchange.h"
#include "platform/window/Resource.h"

#include <algorithm>

namespace
{

constexpr const char* kAgent = "Orlenta Vantroy";
constexpr const char* kVersionPath = "/vantroy/download/curver.ini";
constexpr const char* kDownloadPath = "/vantroy/download.htm";

std::string ToText(const CVersion& version)
{
    return std::to_string(version.m_nMajor) + '.' + std::to_string(version.m_nMinor) + '.' +
           std::to_string(version.m_nPatch);
}

// One byte more than promised is asked for, and never more than what counts: a promise costs no memory. A read gives
// what has arrived, and the file of a slow server comes in pieces.
std::string ReadStart(HINTERNET request, long long length)
{
    constexpr long long kMost = kVersionFileSize;
    char body[kMost] = {};
    const auto wanted = static_cast<DWORD>(std::clamp(length, -1LL, kMost - 1) + 1);
    DWORD received = 0;
    DWORD count = 0;
    while (received < wanted && InternetReadFile(request, body + received, wanted - received, &count) && count != 0)
        received += count;
    return {body, received};
}

} // namespace

CVersionDlg::CVersionDlg(CWnd* parent, std::string updateHost)
    : CDialog(IDD_VERSION, parent), m_updateHost(std::move(updateHost))
{}

INT_PTR CVersionDlg::DoModal()
{
    const INT_PTR result = CDialog::DoModal();
    if (m_worker)
        m_worker->CancelSynchronousIo();
    m_worker.reset();
    return result;
}

const MessageMap& CVersionDlg::GetMessageMap() const
{
    static const MessageMap map{&CDialog::StaticMessageMap(),
                                {
                                    On(WM_REFRESH_FIELDS, &CVersionDlg::OnRefreshFields),
                                    OnCommand(IDC_VERSION_DOWNLOAD, &CVersionDlg::OnDownloadNow),
                                }};
    return map;
}

void CVersionDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDCANCEL, m_cancel);
    DDX_Control(exchange, IDC_VERSION_DOWNLOAD, m_downloadNow);
    DDX_Text(exchange, IDC_VERSION_OWN, m_version);
    std::string info = *m_info.Get();
    DDX_Text(exchange, IDC_VERSION_INFO, info);
}

BOOL CVersionDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    m_window = GetSafeHwnd();
    m_version = FormatText(IDS_VERSION_NUMBER, "%d.%d.%d", ToText(ProductVersion()));
    m_nOutcome = kNone;
    m_info.Set({});
    m_downloadNow.ShowWindow(SW_HIDE);
    UpdateData(FALSE);
    m_worker = AfxBeginThread(&CheckVersionThread, this);
    if (!m_worker)
        ShowInfo(IDS_VERSION_NO_SERVER);
    return TRUE;
}

LRESULT CVersionDlg::OnRefreshFields(WPARAM, LPARAM)
{
    if (!IsWindow(m_hWnd))
        return 0;
    UpdateData(FALSE);
    if (m_nOutcome == kNewer)
        OfferDownload();
    else if (m_nOutcome == kLatest)
        m_cancel.SetWindowText(AfxLoadString(IDS_VERSION_OK));
    return 0;
}

// In the row of the button that it takes the place of.
void CVersionDlg::OfferDownload()
{
    RECT row;
    RECT place;
    m_cancel.GetWindowRect(&row);
    m_downloadNow.GetWindowRect(&place);
    ScreenToClient(&row);
    ScreenToClient(&place);
    m_downloadNow.MoveWindow({place.left, row.top, place.right, row.bottom});
    m_downloadNow.ShowWindow(SW_SHOW);
    m_downloadNow.SetFocus();
    m_cancel.ShowWindow(SW_HIDE);
}

void CVersionDlg::OnDownloadNow()
{
    OpenUrl("http://" + WebHost() + kDownloadPath, SW_SHOW);
    CDialog::OnOK();
}

UINT CheckVersionThread(void* dialog)
{
    auto& owner = *static_cast<CVersionDlg*>(dialog);
    owner.ShowInfo(IDS_VERSION_CONNECTING);
    owner.QueryLatestVersion();
    return 0;
}

// What cannot be had is the answer. A server that is not there shows in the query of the length: nothing is connected
// before the request is sent.
void CVersionDlg::QueryLatestVersion()
{
    const CInternetHandle internet(InternetOpenA(kAgent, INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    const CInternetHandle connection(internet ? InternetConnectA(internet.get(), m_updateHost.c_str(),
                                                                 INTERNET_INVALID_PORT_NUMBER, "", "",
                                                                 INTERNET_SERVICE_HTTP, 0, 0)
                                              : nullptr);
    const CInternetHandle request(connection ? HttpOpenRequestA(connection.get(), "GET", kVersionPath, "HTTP/1.0",
                                                                nullptr, nullptr, INTERNET_FLAG_NO_CACHE_WRITE, 0)
                                             : nullptr);
    if (!request)
        return ShowInfo(IDS_VERSION_NO_SERVER);
    HttpSendRequestA(request.get(), nullptr, 0, nullptr, 0);
    ReadVersion(request.get());
}

void CVersionDlg::ReadVersion(HINTERNET request)
{
    const auto length = ContentLengthOf(request);
    if (!length)
        return ShowInfo(IDS_VERSION_NO_ANSWER);
    const CVersion latest = ParseVersionFile(ReadStart(request, *length));
    const bool newer = latest > ProductVersion();
    m_info.Set(newer ? FormatText(IDS_VERSION_NEWER, "%d.%d.%d", ToText(latest)) : AfxLoadString(IDS_VERSION_LATEST));
    m_nOutcome = newer ? kNewer : kLatest;
    Refresh();
}

void CVersionDlg::ShowInfo(UINT textId)
{
    m_info.Set(AfxLoadString(textId));
    Refresh();
}

void CVersionDlg::Refresh() const
{
    if (IsWindow(m_window))
        ::SendMessageA(m_window, WM_REFRESH_FIELDS, 0, 0);
}
