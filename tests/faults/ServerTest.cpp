// A run over servers that lie, at random.
#include "Faults.h"
#include "tests/download/TestRun.h"

#include "platform/internet/HttpExchange_p.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <set>

namespace
{

constexpr std::chrono::milliseconds kSilence(2000);

class Liar
{
public:
    HttpAnswer Answer(const std::string& body)
    {
        const std::string good =
            "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
        switch (Below(11))
        {
        case 0:
            return {.raw = Noise(1 + Below(5000))};
        case 1:
            return {.raw = Damaged(good)};
        case 2:
            return Cut(good, false);
        case 3:
            return Cut(good, true);
        case 4:
            return {.body = body, .contentLength = Length()};
        case 5:
            return Cut("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + Times("1\r\nx\r\n", Below(1000)),
                       false);
        case 6:
            return {.raw =
                        "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 900\r\n\r\n" + Noise(Below(900))};
        case 7:
            return {.status = 302, .body = body, .location = Target()};
        case 8:
            return {.raw = "HTTP/1.0 200 OK\r\n" + Times("X: " + Noise(900) + "\r\n", Below(400)) + "\r\n" + body};
        case 9:
            return {.raw = Times("HTTP/1.1 100 Continue\r\n\r\n", Below(20'000)) + good};
        default:
            // Each of these takes the whole patience of the client.
            return Below(3) == 0 ? HttpAnswer{.raw = good, .stallAfter = Below(good.size())} : Cut(good, true);
        }
    }

    std::size_t Below(std::size_t limit)
    {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }

private:
    static std::string Times(const std::string& text, std::size_t count)
    {
        std::string all;
        for (std::size_t i = 0; i < count; ++i)
            all += text;
        return all;
    }
    std::string Noise(std::size_t size)
    {
        std::string noise(size, '\0');
        std::ranges::generate(noise, [this] { return static_cast<char>(Below(256)); });
        return noise;
    }
    std::string Damaged(std::string text)
    {
        for (std::size_t i = 0; i <= Below(10); ++i)
            text[Below(std::min<std::size_t>(text.size(), 60))] = static_cast<char>(Below(256));
        return text;
    }
    HttpAnswer Cut(const std::string& text, bool reset)
    {
        return {.raw = text, .stallAfter = Below(text.size()), .closeEarly = true, .reset = reset};
    }
    std::string Length()
    {
        static const char* const kLengths[] = {
            "none",       "",           "-1",         "-2147483648",          "0",   "four", "0x10", "+5", "1e3",
            "4294967295", "4294967296", "2147483648", "18446744073709551616", "7, 7"};
        return kLengths[Below(std::size(kLengths))];
    }
    std::string Target()
    {
        static const std::string kTargets[] = {"file:///etc/passwd",
                                               "ftp://127.0.0.1/x",
                                               "javascript:alert(1)",
                                               "data:text/plain,x",
                                               "http://127.0.0.1:1/",
                                               "https://127.0.0.1:1/",
                                               "loop",
                                               "",
                                               "//",
                                               "http://[",
                                               std::string(300'000, 'l')};
        return kTargets[Below(std::size(kTargets))];
    }

    std::mt19937 m_random{20261123};
};

std::string GoodBody(unsigned number)
{
    std::string body(number * 997 % 60'000 + 1, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(number + i * 7 + i / 256);
    return body;
}

// The beginning of what a server had to send, and zeros up to the length that it promised.
bool IsBodyCutShort(const std::string& content, const std::string& body)
{
    const auto end = std::ranges::mismatch(content, body).in1;
    return content.size() == body.size() && std::all_of(end, content.end(), [](char c) { return c == '\0'; });
}

} // namespace

TEST(Server, NoLieHarmsTheFilesBetween)
{
    SetHttpLimits({.connect = kSilence, .silence = kSilence});
    TestRun run;
    Liar liar;
    const unsigned rounds = Rounds(100);
    std::vector<std::string> urls;
    std::set<std::string> cut;
    for (unsigned i = 0; i < rounds; ++i)
    {
        const std::string name = "bad-" + std::to_string(i);
        const HttpAnswer answer = liar.Answer(GoodBody(i));
        if (answer.closeEarly)
            cut.insert(name);
        run.m_server.Serve('/' + name, answer);
        urls.push_back(run.m_server.Url('/' + name));
        urls.push_back(run.Served("/good-" + std::to_string(i), GoodBody(i)));
    }
    run.m_server.Serve("/loop", HttpAnswer{.status = 302, .location = "loop"});
    run.Download(urls);
    SetHttpLimits({});
    std::vector<std::string> told;
    for (const std::string& stored : run.m_stored)
        told.push_back(stored.substr(stored.rfind(' ') + 1));
    std::ranges::sort(told);
    unsigned right = 0;
    for (unsigned i = 0; i < rounds; ++i)
    {
        const std::string name = std::to_string(i);
        right += run.m_home.Exists("Download/good-" + name) && run.Content("good-" + name) == GoodBody(i);
        if (cut.contains("bad-" + name) && run.m_home.Exists("Download/bad-" + name))
        {
            EXPECT_TRUE(IsBodyCutShort(run.Content("bad-" + name), GoodBody(i))) << i;
        }
    }
    EXPECT_EQ(right, rounds);
    EXPECT_EQ(run.Saved(), told);
    EXPECT_EQ(run.m_home.Files(""), std::vector<std::string>{"Download"});
    EXPECT_EQ(run.m_ends, 1);
    std::printf("%u good answers among %u hostile ones: %u good files right; of the hostile answers %zu stored in the "
                "length they promise, the others left out\n",
                rounds, rounds, right, told.size() - right);
}
