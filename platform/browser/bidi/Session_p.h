// The one session that a browser of this protocol has to give. The browser keeps it until it is ended, even when its
// socket has gone; so all of this process share it, and Close ends it.
#pragma once

#include "platform/browser/Connection_p.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>

namespace browsing::bidi
{

class Session : public Connection
{
public:
    using Connection::Connection;
    ~Session() override;

    // The session with the browser at an address: that of this process, or else a new one, which `announce` gets before
    // anything waits. E_ACCESSDENIED if another program has it; at the deadline RPC_E_TIMEOUT.
    static HRESULT Share(const std::string& url, const std::shared_ptr<IoThread>& io,
                         const std::function<void(const std::shared_ptr<Session>&)>& announce, Deadline deadline,
                         std::shared_ptr<Session>& session);

    // Ends the session and waits a moment for the browser to have done so.
    void Close() override;

    // The profile folder as the browser sees it, empty if it was not told.
    const std::string& ProfileFolder() const
    {
        return m_profile;
    }

private:
    HRESULT Begin(const std::string& url, Deadline deadline);

    std::atomic<bool> m_isOurs = false;
    std::string m_profile; // written by Begin alone
};

} // namespace browsing::bidi
