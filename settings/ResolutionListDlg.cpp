#include "settings/ResolutionListDlg.h"

#include "resources/ResourceIds.h"

#include "platform/window/DataExchange.h"
#include "platform/window/Resource.h"

CResolutionListDlg::CResolutionListDlg(CWnd* parent) : CDialog(IDD_RESOLUTIONS, parent)
{}

void CResolutionListDlg::SetList(const CResolutionVector& list)
{
    m_rows.SetList(list);
}

CResolutionVector CResolutionListDlg::GetList() const
{
    return m_rows.GetList();
}

const MessageMap& CResolutionListDlg::GetMessageMap() const
{
    static const MessageMap map{&CDialog::StaticMessageMap(),
                                {
                                    OnCommand(IDC_ADD, &CResolutionListDlg::OnAdd),
                                    OnCommand(IDC_REMOVE, &CResolutionListDlg::OnRemove),
                                }};
    return map;
}

void CResolutionListDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_RESOLUTION_LIST, m_list);
    DDX_Control(exchange, IDOK, m_ok);
    DDX_Text(exchange, IDC_RESOLUTION_X, m_width);
    DDX_Text(exchange, IDC_RESOLUTION_Y, m_height);
}

// Without a row the dialog can only be closed.
BOOL CResolutionListDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    for (const std::string& row : m_rows.GetRows())
        m_list.AddString(row);
    m_ok.EnableWindow(m_list.GetCount() > 0);
    return TRUE;
}

void CResolutionListDlg::OnAdd()
{
    UpdateData(TRUE);
    switch (m_rows.Add(m_width, m_height))
    {
    case CResolutionRows::Entry::Added:
        m_list.AddString(m_rows.GetRows().back());
        m_ok.EnableWindow();
        break;
    case CResolutionRows::Entry::Missing:
        MessageBox(AfxLoadString(IDS_ENTER_RESOLUTION));
        break;
    case CResolutionRows::Entry::Refused:
        break;
    }
}

void CResolutionListDlg::OnRemove()
{
    const std::vector<int> rows = m_list.GetSelItems();
    if (rows.empty())
        MessageBox(AfxLoadString(IDS_SELECT_RESOLUTION));
    m_rows.Remove(rows);
    // From the last one up, so that the numbers of the others stay as they are.
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        m_list.DeleteString(*row);
}
