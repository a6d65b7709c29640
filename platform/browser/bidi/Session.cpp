// The first request and its answer, shortened:
//
//   {"id": 1, "method": "session.new", "params": {"capabilities": {"alwaysMatch": {…}}}}
//   {"id": 1, "type": "success", "result": {"sessionId": "8d9e…", "capabilities": {"moz:profile": "/home/ada/…"}}}
//   {"id": 1, "type": "error", "error": "session not created", "message": "Maximum number of active sessions"}
#include "platform/browser/bidi/Session_p.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace browsing::bidi
{
namespace
{

using std::chrono::seconds;

constexpr seconds kHandshakeLimit(10);
constexpr seconds kEndLimit(2);

// Held while a session begins: of two threads, the second one finds the session of the first.
struct SharedSessions
{
    std::timed_mutex mutex;
    std::map<std::string, std::weak_ptr<Session>> byUrl;
};

SharedSessions& Shared()
{
    static SharedSessions shared;
    return shared;
}

// Unless it is told to ignore them, the browser dismisses the questions that pages put to their user.
QJsonObject Capabilities()
{
    const QJsonObject prompts{{"default", "ignore"}};
    return {{"alwaysMatch", QJsonObject{{"unhandledPromptBehavior", prompts}}}};
}

} // namespace

Session::~Session()
{
    Session::Close();
}

HRESULT Session::Share(const std::string& url, const std::shared_ptr<IoThread>& io,
                       const std::function<void(const std::shared_ptr<Session>&)>& announce, Deadline deadline,
                       std::shared_ptr<Session>& session)
{
    const std::unique_lock lock(Shared().mutex, deadline);
    if (!lock)
        return RPC_E_TIMEOUT;
    session = Shared().byUrl[url].lock();
    if (session && session->IsOpen())
        return S_OK;
    session = std::make_shared<Session>(io);
    announce(session);
    const HRESULT result = session->Begin(url, deadline);
    if (SUCCEEDED(result))
        Shared().byUrl[url] = session;
    return result;
}

HRESULT Session::Begin(const std::string& url, Deadline deadline)
{
    const HRESULT opened = Open(url, std::min(Clock::now() + kHandshakeLimit, deadline));
    if (FAILED(opened))
        return opened;
    m_isOurs = true;
    const Reply reply = Call({"session.new", {{"capabilities", Capabilities()}}, {}}, deadline);
    if (reply.result == E_FAIL)
        m_isOurs = false;
    if (FAILED(reply.result))
    {
        Close();
        return reply.result == E_FAIL ? E_ACCESSDENIED : reply.result;
    }
    m_profile = reply.value.value("capabilities").toObject().value("moz:profile").toString().toStdString();
    return S_OK;
}

void Session::Close()
{
    if (m_isOurs.exchange(false) && IsOpen())
        Send({"session.end", {}, {}})->Wait(Clock::now() + kEndLimit);
    Connection::Close();
}

} // namespace browsing::bidi
