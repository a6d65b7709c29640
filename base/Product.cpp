#include "base/Product.h"

CVersion ProductVersion()
{
    return {VANTROY_VERSION_MAJOR, VANTROY_VERSION_MINOR, VANTROY_VERSION_PATCH};
}

std::string UpdateHost()
{
    return VANTROY_UPDATE_HOST;
}

std::string WebHost()
{
    return VANTROY_WEB_HOST;
}
