#include "tools/VersionFile.h"

CVersion ParseVersionFile(std::string_view body)
{
    const auto digit = [body](std::size_t at) {
        return at < body.size() && body[at] >= '0' && body[at] <= '9' ? body[at] - '0' : 0;
    };
    return {digit(0), digit(2), digit(4)};
}
