// The exception that a failing collection raises. It carries the result code.
#pragma once

#include "platform/com/Unknown.h"

class _com_error
{
public:
    explicit _com_error(HRESULT result) : m_result(result)
    {}
    HRESULT Error() const
    {
        return m_result;
    }

private:
    HRESULT m_result;
};

// Raises a _com_error with the result.
[[noreturn]] void _com_issue_error(HRESULT result);

// Raises a _com_error if the result is a failure.
inline void _com_util_CheckError(HRESULT result)
{
    if (FAILED(result))
        _com_issue_error(result);
}
