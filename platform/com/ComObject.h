// The counting part of an object: derive from CComObject<IFoo> and QueryInterface knows IFoo, IDispatch and IUnknown.
#pragma once

#include "platform/com/Unknown.h"

#include <atomic>

template <class Interface>
class CComObject : public Interface
{
public:
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        *object = nullptr;
        if (iid != Interface::kIid && iid != IDispatch::kIid && iid != IUnknown::kIid)
            return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    DWORD AddRef() override
    {
        return ++m_count;
    }
    DWORD Release() override
    {
        const DWORD left = --m_count;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~CComObject() = default;

private:
    std::atomic<DWORD> m_count{0};
};
