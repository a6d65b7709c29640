#include "settings/PropPageGeneral.h"

#include "resources/ResourceIds.h"
#include "settings/BrowserButton.h"

#include "platform/window/Resource.h"

CPropPageGeneral::CPropPageGeneral() : CPropertyPage(IDD_GENERAL)
{}

const MessageMap& CPropPageGeneral::GetMessageMap() const
{
    static const MessageMap map{&CPropertyPage::StaticMessageMap(),
                                {
                                    OnCommand(IDC_ADD_BUTTON, &CPropPageGeneral::OnAdd),
                                    OnCommand(IDC_REMOVE_BUTTON, &CPropPageGeneral::OnRemove),
                                }};
    return map;
}

void CPropPageGeneral::OnAdd()
{
    if (AddBrowserButton())
        MessageBox(AfxLoadString(IDS_BUTTON_ADDED));
}

void CPropPageGeneral::OnRemove()
{
    if (RemoveBrowserButton())
        MessageBox(AfxLoadString(IDS_BUTTON_REMOVED));
}
