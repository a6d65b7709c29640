#include "app/VantroyApp.h"
#include "resources/Resources.h"

#include "platform/browser/BrowserToolbar.h"

namespace
{

CVantroyApp theApp;

} // namespace

int main(int argc, char** argv)
{
    if (const auto status = AnswerToolbarPress(argc, argv))
        return *status;
    AfxSetResources(VantroyResources());
    return AfxWinMain(argc, argv);
}
