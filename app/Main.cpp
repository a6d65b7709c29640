#include "app/VantroyApp.h"
#include "resources/Resources.h"

namespace
{

CVantroyApp theApp;

} // namespace

int main(int argc, char** argv)
{
    AfxSetResources(VantroyResources());
    return AfxWinMain(argc, argv);
}
