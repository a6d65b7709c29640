#include "app/VantroyApp.h"
#include "resources/Resources.h"

#include "platform/browser/Browsers.h"

namespace
{

CVantroyApp theApp;

} // namespace

int main(int argc, char** argv)
{
    AfxSetResources(VantroyResources());
    RegisterBrowsers();
    const int status = AfxWinMain(argc, argv);
    CloseBrowsers();
    return status;
}
