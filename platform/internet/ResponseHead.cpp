#include "platform/internet/ResponseHead_p.h"

#include "platform/text/Ascii_p.h"

#include <algorithm>
#include <charconv>

namespace
{

// Servers send a few hundred bytes; the interim heads of one response are counted together with its own.
constexpr std::size_t kLongestHead = std::size_t{256} * 1024;

std::string_view Trimmed(std::string_view text)
{
    static constexpr std::string_view kBlanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// "HTTP/1.1 302 Found"; 0 if there is no number.
int StatusOf(std::string_view line)
{
    int status = 0;
    const std::size_t start = std::min(line.find(' '), line.size());
    const std::string_view number = Trimmed(line.substr(start));
    std::from_chars(number.data(), number.data() + number.size(), status);
    return status;
}

} // namespace

ResponseHead::State ResponseHead::AddLine(std::string_view line)
{
    m_size += line.size();
    if (m_size > kLongestHead)
        m_state = State::TooLong;
    if (m_state != State::Open)
        return m_state;
    if (line.starts_with("HTTP/"))
    {
        m_status = StatusOf(line);
        m_contentLength.reset();
        m_location.reset();
    }
    else if (!Trimmed(line).empty())
    {
        AddField(line);
    }
    else if (m_status / 100 != 1)
    {
        m_state = State::Complete;
    }
    return m_state;
}

void ResponseHead::AddField(std::string_view line)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos)
        return;
    const std::string_view name = Trimmed(line.substr(0, colon));
    const std::string_view value = Trimmed(line.substr(colon + 1));
    if (SameButForCapitals(name, "Content-Length") && !m_contentLength)
        m_contentLength = value;
    if (SameButForCapitals(name, "Location") && !m_location)
        m_location = value;
}

std::optional<std::uint64_t> ResponseHead::BodyLength() const
{
    if (!m_contentLength || !std::ranges::all_of(*m_contentLength, [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    std::uint64_t length = 0;
    const char* const end = m_contentLength->data() + m_contentLength->size();
    const auto result = std::from_chars(m_contentLength->data(), end, length);
    return result.ec == std::errc() ? std::optional(length) : std::nullopt;
}

std::optional<std::string> ResponseHead::RedirectTarget() const
{
    static constexpr int kRedirects[] = {301, 302, 303, 307, 308};
    const bool redirect = std::ranges::find(kRedirects, m_status) != std::end(kRedirects);
    return redirect && m_location && !m_location->empty() ? m_location : std::nullopt;
}
