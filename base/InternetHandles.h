// Owns a handle of the internet client. Declare the Internet handle before the connection and the connection before the
// request: they are closed in the opposite order.
#pragma once

#include "platform/internet/Internet.h"

#include <memory>

struct CInternetHandleCloser
{
    void operator()(InternetHandle* handle) const
    {
        InternetCloseHandle(handle);
    }
};

using CInternetHandle = std::unique_ptr<InternetHandle, CInternetHandleCloser>;
