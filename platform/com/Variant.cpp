#include "platform/com/Variant.h"

HRESULT VariantClear(VARIANT* value)
{
    if (value == nullptr || (value->vt != VT_EMPTY && value->vt != VT_I4))
        return E_INVALIDARG;
    *value = {};
    return S_OK;
}
