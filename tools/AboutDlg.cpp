#include "tools/AboutDlg.h"

#include "resources/ResourceIds.h"

#include "platform/window/DataExchange.h"
#include "platform/window/Resource.h"

CAboutDlg::CAboutDlg(CWnd* parent) : CDialog(IDD_ABOUT, parent), m_version(AfxLoadString(IDS_PRODUCT_VERSION))
{}

void CAboutDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_ABOUT_VERSION, m_version);
}
