#include "platform/window/LockKeys_p.h"

#include <QGuiApplication>

#include <dlfcn.h>

namespace
{

using GetIndicatorState = int (*)(Display* display, unsigned device, unsigned* state);

// The toolkit's platform for X has loaded the library already. Elsewhere it may not be on the machine at all, so it is
// not linked.
GetIndicatorState FindGetIndicatorState()
{
    void* library = dlopen("libX11.so.6", RTLD_LAZY | RTLD_LOCAL);
    return library ? reinterpret_cast<GetIndicatorState>(dlsym(library, "XkbGetIndicatorState")) : nullptr;
}

} // namespace

unsigned LocksThatAreOn()
{
    constexpr unsigned kCoreKeyboard = 0x100; // XkbUseCoreKbd
    constexpr int kSuccess = 0;
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!application || !application->display())
        return 0;
    static const GetIndicatorState getIndicatorState = FindGetIndicatorState();
    unsigned state = 0;
    // The first three lights of every keyboard, in the order of the constants.
    if (!getIndicatorState || getIndicatorState(application->display(), kCoreKeyboard, &state) != kSuccess)
        return 0;
    return state & (kCapsLock | kNumLock | kScrollLock);
}
