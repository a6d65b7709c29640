#include "platform/browser/ContentAhead_p.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

namespace
{

using browsing::ContentAhead;
using browsing::LoadedResource;

constexpr qint64 kMegabyte = 1 << 20;

// Resources that note when they are asked for; their content is their document and address.
class ContentAheadTest : public testing::Test
{
protected:
    void Load(const QString& url, qint64 size, const QString& loader = "1")
    {
        m_loaded[url] = {url, loader, size, [this, url, loader] {
                             m_asked.push_back(url);
                             return [this, url, loader] {
                                 m_mostWaiting = std::max(m_mostWaiting, m_asked.size() - m_taken++);
                                 return (loader + url).toUtf8();
                             };
                         }};
    }
    // Twenty of a size, which are expected in their order, one of them twice.
    void LoadTwenty(qint64 size)
    {
        std::deque<QString> urls;
        for (int i = 0; i < 20; ++i)
        {
            Load(QString::number(i), size);
            urls.insert(urls.end(), i == 12 ? 2 : 1, QString::number(i));
        }
        m_ahead.Expect(urls);
    }
    QByteArray LookUp(const QString& url)
    {
        m_ahead.Ask([this](const QString& next) {
            const auto found = m_loaded.find(next);
            return found != m_loaded.end() && !m_copied.contains(next) ? &found->second : nullptr;
        });
        m_copied.insert(url);
        return m_ahead.Take(m_loaded.at(url));
    }
    std::ptrdiff_t TimesAsked(const QString& url) const
    {
        return std::ranges::count(m_asked, url);
    }

    ContentAhead m_ahead;
    std::map<QString, LoadedResource> m_loaded;
    std::set<QString> m_copied;
    std::vector<QString> m_asked;
    std::size_t m_taken = 0;
    std::size_t m_mostWaiting = 0; // asked for and not taken
};

TEST_F(ContentAheadTest, AsksForEachOnceAndForAFewAtATime)
{
    for (const auto& [size, most] : {std::pair<qint64, std::size_t>{10, 8}, {kMegabyte, 4}, {5 * kMegabyte, 1}})
    {
        LoadTwenty(size);
        m_copied.clear();
        m_asked.clear();
        m_taken = m_mostWaiting = 0;
        m_loaded.erase("7"); // has to be fetched from elsewhere, and is not looked up here
        for (int i = 0; i < 20; ++i)
        {
            const QString url = QString::number(i);
            EXPECT_EQ(m_loaded.contains(url) ? LookUp(url) : "17", "1" + url.toUtf8()) << size;
            EXPECT_TRUE(i != 10 || m_asked.size() - m_taken == most - 1) << size;
        }
        EXPECT_EQ(m_asked.size(), 19U) << size;
        EXPECT_TRUE(std::ranges::is_sorted(m_asked, {}, [](const QString& url) { return url.toInt(); })) << size;
        EXPECT_EQ(m_mostWaiting, most) << size;
    }
}

TEST_F(ContentAheadTest, ALargeOneWaitsForItsTurnAndTheRestGoOn)
{
    LoadTwenty(10);
    Load("3", 5 * kMegabyte);
    EXPECT_EQ(LookUp("0"), "10");
    EXPECT_EQ(m_asked.back(), "2");
    for (const char* const next : {"1", "2", "3"})
        EXPECT_EQ(LookUp(next), QByteArray("1") + next);
    m_copied.erase("3"); // as if the disk were full
    EXPECT_EQ(LookUp("4"), "14");
    EXPECT_EQ(TimesAsked("3"), 1);
    EXPECT_EQ(m_asked.back(), "11");
}

TEST_F(ContentAheadTest, AnotherDocumentIsAskedAnew)
{
    LoadTwenty(10);
    EXPECT_EQ(LookUp("0"), "10");
    Load("1", 10, "2");
    EXPECT_EQ(LookUp("1"), "21");
    EXPECT_EQ(LookUp("2"), "12");
    EXPECT_EQ(TimesAsked("1"), 2);
}

TEST_F(ContentAheadTest, LookUpsInAnotherOrderAndAfterTheEndGiveTheSame)
{
    LoadTwenty(kMegabyte);
    for (int i = 19; i >= 0; --i)
        EXPECT_EQ(LookUp(QString::number(i)), "1" + QByteArray::number(i));
    EXPECT_EQ(m_asked.size(), 20U);
    EXPECT_EQ(m_mostWaiting, 5U); // the one in hand beside those that are expected
    m_copied.clear();
    m_ahead.Expect({"1", "2"});
    EXPECT_EQ(LookUp("0"), "10");
    m_ahead.Expect({});
    EXPECT_EQ(LookUp("1"), "11"); // what was asked for is forgotten
    EXPECT_EQ(TimesAsked("1"), 3);
    EXPECT_EQ(TimesAsked("3"), 1);
}

} // namespace
