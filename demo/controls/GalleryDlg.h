#pragma once

#include "controls/LinkLabel.h"
#include "controls/RichButton.h"
#include "demo/controls/GalleryResources.h"
#include "platform/window/Dialog.h"

class CGalleryDlg : public CDialog
{
public:
    CGalleryDlg() : CDialog(IDD_GALLERY)
    {}

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    BOOL OnInitDialog() override;

private:
    void PrepareButtons();
    void PrepareMenu();
    // Just before it opens: the tick is that of the last choice.
    void AdaptMenu(HMENU popup) const;

    CRichButton m_plain, m_default, m_disabled, m_coloured, m_sounds, m_web, m_tick, m_ticked, m_tickedDisabled, m_menu;
    CLinkLabel m_link;
    bool m_bTools = true;
};
