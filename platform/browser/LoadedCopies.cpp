// Page.getResourceTree, shortened; frames of other sites are not in it:
//
//   {"frame": {"id": "0B05…", "loaderId": "E668…", "url": "…", "mimeType": "text/html"},
//    "childFrames": [{"frame": …}],
//    "resources": [{"url": "…", "type": "Image", "mimeType": "image/png", "contentSize": 30173, "failed": true}]}
//
// `contentSize` is 0 until a resource is loaded to its end, and Page.getResourceContent hands out what has come so far.
#include "platform/browser/LoadedCopies_p.h"

#include "platform/text/CodePage.h"

#include <QJsonArray>

#include <utility>

namespace devtools
{
namespace
{

// A run looks up one address after the other; the trees are read again after this time.
constexpr std::chrono::seconds kTreeAge(2);
constexpr std::chrono::seconds kContentLimit(30);
// What is larger is fetched, as it travels as base64 in one message.
constexpr qint64 kLargestContent = 64 << 20;

QString WithoutFragment(const QString& url)
{
    return url.section('#', 0, 0);
}

bool IsWhole(const QJsonObject& resource)
{
    const qint64 size = resource.value("contentSize").toInteger();
    return size > 0 && size <= kLargestContent && !resource.value("failed").toBool() &&
           !resource.value("canceled").toBool();
}

} // namespace

LoadedCopies::LoadedCopies(std::shared_ptr<BrowserList> browsers) : m_browsers(std::move(browsers))
{}

bool LoadedCopies::Find(const std::string& url, std::string& localFile, std::uint64_t& size)
{
    try
    {
        const std::lock_guard lock(m_mutex);
        const Copy* const copy = FindCopy(WithoutFragment(QString::fromStdString(AnsiToUtf8(url))));
        if (copy == nullptr)
            return false;
        localFile = Utf8ToAnsi(copy->file);
        size = copy->size;
        return true;
    }
    catch (const std::exception&)
    {
        return false;
    }
}

// The copy made before serves as long as the document that it came from is there, and when there is no newer one.
const LoadedCopies::Copy* LoadedCopies::FindCopy(const QString& url)
{
    if (Clock::now() >= m_refreshAt)
        Refresh();
    const auto copy = m_copies.find(url);
    const auto holders = m_holders.find(url);
    if (holders != m_holders.end())
    {
        for (const Holder& holder : holders->second)
        {
            if (copy != m_copies.end() && copy->second.loader == holder.loader)
                return &copy->second;
        }
        for (const Holder& holder : holders->second)
        {
            if (const Copy* const fetched = Fetch(url, holder))
                return fetched;
        }
    }
    return copy != m_copies.end() ? &copy->second : nullptr;
}

void LoadedCopies::Refresh()
{
    m_holders.clear();
    for (const PageResources& page : m_browsers->ReadResources())
        AddFrames(page, page.frameTree);
    m_refreshAt = Clock::now() + kTreeAge;
}

void LoadedCopies::AddFrames(const PageResources& page, const QJsonObject& tree)
{
    const QJsonObject frame = tree.value("frame").toObject();
    for (const QJsonValue& value : tree.value("resources").toArray())
    {
        const QJsonObject resource = value.toObject();
        if (IsWhole(resource))
            m_holders[resource.value("url").toString()].push_back(
                {page.browser, page.session, frame.value("id").toString(), frame.value("loaderId").toString(),
                 resource.value("contentSize").toInteger()});
    }
    for (const QJsonValue& child : tree.value("childFrames").toArray())
        AddFrames(page, child.toObject());
}

// Content that comes as text is left out: it was decoded, and its bytes need not be those of the server.
const LoadedCopies::Copy* LoadedCopies::Fetch(const QString& url, const Holder& holder)
{
    const QJsonObject params{{"frameId", holder.frame}, {"url", url}};
    const Reply reply =
        holder.browser->Call({"Page.getResourceContent", params, holder.session}, Clock::now() + kContentLimit);
    if (FAILED(reply.result) || !reply.value.value("base64Encoded").toBool())
        return nullptr;
    const QByteArray content = QByteArray::fromBase64(reply.value.value("content").toString().toLatin1());
    if (content.size() != holder.size)
        return nullptr;
    const std::string file = m_folder.Store(content);
    if (file.empty())
        return nullptr;
    return &(m_copies[url] = {holder.loader, file, static_cast<std::uint64_t>(content.size())});
}

} // namespace devtools
