// The counting part of an object: derive from CComObject<IFoo> and QueryInterface knows IFoo, IDispatch and IUnknown.
#pragma once

#include "platform/com/Unknown.h"

#include <atomic>
#include <type_traits>

// Answers the operations of IDispatch where the interface has them.
template <class Interface>
class UncalledDispatch : public Interface
{
public:
    HRESULT GetTypeInfoCount(UINT*) override
    {
        return E_NOTIMPL;
    }
    HRESULT GetTypeInfo(UINT, DWORD, ITypeInfo**) override
    {
        return E_NOTIMPL;
    }
    HRESULT GetIDsOfNames(REFIID, wchar_t**, UINT, DWORD, LONG*) override
    {
        return E_NOTIMPL;
    }
    HRESULT Invoke(LONG, REFIID, DWORD, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }

protected:
    ~UncalledDispatch() = default;
};

template <class Interface>
class CComObject
    : public std::conditional_t<std::is_base_of_v<IDispatch, Interface>, UncalledDispatch<Interface>, Interface>
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
