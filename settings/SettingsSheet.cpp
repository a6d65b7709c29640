#include "settings/SettingsSheet.h"

#include "resources/ResourceIds.h"
#include "settings/PropPageDownloadSet.h"
#include "settings/PropPageGeneral.h"
#include "settings/TreePropSheet.h"

#include "platform/window/Resource.h"

namespace
{

constexpr int kIconSize = 16;

} // namespace

void RunSettingsSheet(CDownloadSetting& setting)
{
    CImageList icons;
    icons.Create(IDR_SETTINGS, kIconSize);
    CPropPageDownloadSet downloadSet;
    CPropPageGeneral general;
    CTreePropSheet sheet(AfxLoadString(IDS_CONFIGURATION));
    downloadSet.SetRecord(&setting);
    for (CPropertyPage* page : {static_cast<CPropertyPage*>(&downloadSet), static_cast<CPropertyPage*>(&general)})
    {
        CTreePropSheet::AttachPageIcon(*page, icons, 0);
        page->m_psp.dwFlags &= ~PSP_HASHELP;
        sheet.AddPage(page);
    }
    sheet.SetDefaultTreeIcons(icons);
    sheet.SetViewOptions(true, true, true);
    sheet.SetActivePage(&downloadSet);
    sheet.DoModal();
    CTreePropSheet::ReleasePageIcon(downloadSet);
    CTreePropSheet::ReleasePageIcon(general);
}
