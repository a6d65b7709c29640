#include "platform/browser/BrowserToolbar.h"

#include "platform/browser/IoThread_p.h"
#include "platform/browser/toolbar/ExtensionFiles_p.h"
#include "platform/browser/toolbar/OpenBrowser_p.h"
#include "platform/system/Registry_p.h"

#include <mutex>

using namespace toolbar;

namespace
{

// The other way round for the end, since what the browser holds can be taken from it only while its files are there.
void FollowKey()
{
    if (const auto button = ReadButton())
    {
        if (WriteFiles(*button))
            LoadIntoBrowser();
    }
    else if (HasFiles())
    {
        TakeFromBrowser();
        RemoveFiles();
    }
}

bool IsOfButtons(HKEY root, const std::string& path)
{
    return root == HKEY_LOCAL_MACHINE && path.starts_with(kButtonKeys);
}

} // namespace

// A thread that is made when there is something to do, which is hardly ever.
class BrowserToolbar::Follower
{
public:
    void Follow()
    {
        const std::lock_guard lock(m_mutex);
        if (!m_thread)
            m_thread = std::make_unique<browsing::IoThread>();
        m_thread->Post(FollowKey);
    }

private:
    std::mutex m_mutex;
    std::unique_ptr<browsing::IoThread> m_thread;
};

BrowserToolbar::BrowserToolbar() : m_follower(std::make_shared<Follower>())
{
    SetRegistryWatcher([follower = m_follower](HKEY root, const std::string& path) {
        if (IsOfButtons(root, path))
            follower->Follow();
    });
    if (ReadButton() || HasFiles())
        m_follower->Follow();
}

BrowserToolbar::~BrowserToolbar()
{
    SetRegistryWatcher(nullptr);
}
