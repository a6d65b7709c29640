// The list of the image sizes that have no check box of their own, for the user to add to and remove from.
#pragma once

#include "settings/ResolutionChoice.h"

#include "platform/window/Controls.h"
#include "platform/window/Dialog.h"

#include <string>

// DoModal gives IDOK if the list is to be taken.
class CResolutionListDlg : public CDialog
{
public:
    explicit CResolutionListDlg(CWnd* parent = nullptr);

    // The dialog works on a copy of the list. To be called before it runs.
    void SetList(const CResolutionVector& list);
    // As the user has left it.
    CResolutionVector GetList() const;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    const MessageMap& GetMessageMap() const override;

private:
    void OnAdd();
    void OnRemove();

    CResolutionRows m_rows;
    std::string m_width;
    std::string m_height;
    CListBox m_list;
    CButton m_ok;
};
