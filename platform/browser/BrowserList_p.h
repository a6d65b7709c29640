// All browsers of the process, shared by its threads.
#pragma once

#include "platform/browser/devtools/Browser_p.h"

#include <memory>
#include <mutex>
#include <vector>

namespace browsing
{

class BrowserList
{
public:
    BrowserList();
    ~BrowserList();

    // Fails if a browser that was named does not answer.
    HRESULT Reach();
    // The pages of one browser after the other. A browser that was not named and does not answer has none.
    HRESULT Look(std::vector<SeenPage>& pages);
    std::vector<LoadedResource> ReadResources();
    // Those that are connected, in the order of their windows. Connects to none.
    std::vector<std::shared_ptr<Browser>> Connected();
    // Ends all connections: waiting calls fail at once, later ones too.
    void Close();

private:
    std::vector<std::shared_ptr<Browser>> Current();
    void CloseConnections();
    template <class Action>
    HRESULT ForEachReached(const Action& action);

    const std::shared_ptr<IoThread> m_io;
    std::mutex m_mutex;
    std::vector<std::shared_ptr<Browser>> m_browsers;
};

} // namespace browsing
