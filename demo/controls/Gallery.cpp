#include "demo/controls/GalleryDlg.h"

#include "platform/window/WinApp.h"

namespace
{

class CGalleryApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        CGalleryDlg gallery;
        m_pMainWnd = &gallery;
        gallery.DoModal();
        return FALSE;
    }
};

CGalleryApp theApp;

} // namespace

int main(int argc, char** argv)
{
    AfxSetResources(GalleryResources());
    return AfxWinMain(argc, argv);
}
