#include "platform/com/ComError.h"

void _com_issue_error(HRESULT result)
{
    throw _com_error(result);
}
