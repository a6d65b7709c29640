#include "persist/XmlEntities.h"

#include <algorithm>
#include <iterator>

namespace
{

struct Entity
{
    char character;
    std::string_view body; // of the code, behind its "&"
};

constexpr Entity kEntities[] = {{'<', "lt;"}, {'&', "amp;"}, {'>', "gt;"}, {'\'', "apos;"}, {'"', "quot;"}};
constexpr std::size_t kTextEntities = 3; // the first ones are those that element text needs
constexpr std::size_t kLongestCode = 6;

// At a "&": appends what stands there and tells how long it is written.
std::size_t DecodeOne(std::string_view written, std::string& value)
{
    const auto* found =
        std::ranges::find_if(kEntities, [&](const Entity& e) { return written.substr(1).starts_with(e.body); });
    const bool bKnown = found != std::end(kEntities);
    value += bKnown ? found->character : '&';
    return bKnown ? found->body.size() + 1 : 1;
}

} // namespace

std::string EncodeText(std::string_view value, bool bAttribute)
{
    const auto* end = kEntities + (bAttribute ? std::size(kEntities) : kTextEntities);
    std::size_t reserved = value.size() + value.size() / 10 + 7;
    std::string written;
    written.reserve(reserved);
    for (const char character : value)
    {
        if (written.size() > reserved - kLongestCode)
            written.reserve(reserved *= 2);
        const auto* entity = std::find_if(kEntities, end, [&](const Entity& e) { return e.character == character; });
        if (entity == end)
            written += character;
        else
            written.append(1, '&').append(entity->body);
    }
    return written;
}

std::string DecodeText(std::string_view written)
{
    std::string value;
    value.reserve(written.size());
    while (!written.empty())
    {
        const std::size_t plain = std::min(written.find('&'), written.size());
        value += written.substr(0, plain);
        written.remove_prefix(plain);
        if (!written.empty())
            written.remove_prefix(DecodeOne(written, value));
    }
    return value;
}
