// The border of an operation that answers with a result: what is thrown inside becomes one.
#pragma once

#include "platform/com/Unknown.h"

#include <new>

template <class Body>
HRESULT GuardedCall(const Body& body)
{
    try
    {
        return body();
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (...)
    {
        return E_FAIL;
    }
}
