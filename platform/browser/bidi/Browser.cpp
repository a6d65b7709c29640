#include "platform/browser/bidi/Browser_p.h"

#include "platform/browser/Scripts_p.h"
#include "platform/browser/bidi/Endpoints_p.h"
#include "platform/browser/bidi/Pages_p.h"
#include "platform/browser/bidi/World_p.h"
#include "platform/browser/toolbar/ExtensionFiles_p.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace browsing::bidi
{
namespace
{

using std::chrono::seconds;

constexpr seconds kReachLimit(30); // a browser that starts keeps us waiting for its first window
constexpr seconds kListLimit(10);
constexpr seconds kInquireLimit(5);

// A sandboxed browser sees its profile under another path, of which the last name is the same.
std::filesystem::path NameOf(const std::filesystem::path& folder)
{
    return folder.has_filename() ? folder.filename() : folder.parent_path().filename();
}

// A port that answers for another profile than the one whose file tells of it was given anew.
bool IsBrowserOf(const Place& place, const Session& session)
{
    return IsAddress(place.text) || session.ProfileFolder().empty() ||
           NameOf(place.text) == NameOf(session.ProfileFolder());
}

// The one of vantroy-browser. Firefox takes no extension that its maker has not signed.
bool IsOwnProfile(const Place& place)
{
    return place.text == FindUserFolders().data / "vantroy/firefox";
}

} // namespace

Browser::Browser(Place place, std::shared_ptr<IoThread> io) : browsing::Browser(std::move(place)), m_io(std::move(io))
{}

HRESULT Browser::ReachSession(Deadline deadline)
{
    m_pages.clear();
    std::string url;
    HRESULT result = Resolve(GetPlace(), url);
    if (FAILED(result))
        return result;
    const auto announce = [&](const std::shared_ptr<Session>& session) { SetConnection(session, url); };
    result = Session::Share(url, m_io, announce, deadline, m_session);
    if (SUCCEEDED(result) && !IsBrowserOf(GetPlace(), *m_session))
        result = RPC_E_DISCONNECTED;
    if (FAILED(result))
        m_session = nullptr; // a session that others may want goes back at once
    announce(m_session);
    return result;
}

HRESULT Browser::Connect()
{
    const HRESULT result = ReachSession(Clock::now() + kReachLimit);
    return result == E_ACCESSDENIED ? RPC_E_DISCONNECTED : result;
}

HRESULT Browser::LookAtPages(std::vector<SeenPage>& pages)
{
    std::vector<QString> contexts;
    const HRESULT result = ListPages(*m_session, Clock::now() + kListLimit, contexts);
    if (FAILED(result))
        return result;
    std::erase_if(m_pages,
                  [&](const auto& known) { return std::ranges::find(contexts, known.first) == contexts.end(); });
    for (const QString& context : contexts)
        AskForLook(context);
    for (const QString& context : contexts)
        pages.push_back(TakeLook(context));
    return S_OK;
}

void Browser::AskForLook(const QString& context)
{
    m_pages[context].Ask(*m_session, LookIntoPage(context));
}

SeenPage Browser::TakeLook(const QString& context)
{
    SeenPage seen;
    QJsonValue value;
    Reply reply = m_pages[context].Answer();
    seen.result = TakeValue(reply, value);
    if (seen.result == E_FAIL)
    {
        // Most likely the page went to its next document meanwhile.
        AskForLook(context);
        reply = m_pages[context].Answer();
        seen.result = TakeValue(reply, value);
    }
    ReadLook(value.toObject(), seen);
    seen.world = std::make_shared<World>(m_session, RealmOf(reply));
    return seen;
}

void Browser::Inquire(BrowserReport& report)
{
    std::vector<QString> contexts;
    const Deadline deadline = Clock::now() + kInquireLimit;
    const HRESULT result = ReachSession(deadline);
    if (SUCCEEDED(result) && SUCCEEDED(ListPages(*m_session, deadline, contexts)))
        report.state = BrowserState::Open;
    else if (result == E_ACCESSDENIED)
        report.state = BrowserState::Taken;
    else
        report.state = HasServerFile(GetPlace().text) ? BrowserState::Stale : BrowserState::NotEnabled;
    report.pages = static_cast<int>(contexts.size());
    report.refusesButton = report.state == BrowserState::Open && IsOwnProfile(GetPlace()) && toolbar::HasFiles();
}

} // namespace browsing::bidi
