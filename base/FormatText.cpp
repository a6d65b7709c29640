#include "base/FormatText.h"

#include "platform/window/Resource.h"

std::string FormatText(UINT textId, std::string_view place, std::string_view value)
{
    const std::string format = AfxLoadString(textId);
    std::string text;
    for (std::size_t at = 0; at < format.size();)
    {
        const std::string_view rest = std::string_view(format).substr(at);
        if (rest.starts_with("%%"))
        {
            text += '%';
            at += 2;
        }
        else if (!place.empty() && rest.starts_with(place))
        {
            text += value;
            at += place.size();
            place = {};
        }
        else
        {
            text += format[at++];
        }
    }
    return text;
}
