// The head of an HTTP response, line by line as it arrives.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class ResponseHead
{
public:
    enum class State
    {
        Open,
        Complete,
        TooLong
    };

    // `line` comes with its line end. Interim heads (status 1xx) are forgotten when the next one starts; lines behind
    // the complete head (trailers) only count for the limit.
    State AddLine(std::string_view line);

    bool IsComplete() const
    {
        return m_state == State::Complete;
    }
    // Of the first Content-Length header, without the blanks around it.
    const std::optional<std::string>& ContentLength() const
    {
        return m_contentLength;
    }
    // The header's number; none if its text is not made of digits alone or does not fit.
    std::optional<std::uint64_t> BodyLength() const;
    // Where a redirect leads; none if this is no redirect.
    std::optional<std::string> RedirectTarget() const;

private:
    void AddField(std::string_view line);

    State m_state = State::Open;
    std::size_t m_size = 0;
    int m_status = 0;
    std::optional<std::string> m_contentLength;
    std::optional<std::string> m_location;
};
