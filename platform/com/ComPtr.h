// A smart pointer to a counted interface: it holds one reference and releases it.
#pragma once

#include "platform/com/Unknown.h"

#include <cstddef>
#include <utility>

template <class Interface>
class CComPtr
{
public:
    CComPtr() = default;
    CComPtr(std::nullptr_t)
    {}
    // Takes a reference of its own.
    CComPtr(Interface* p) : m_p(p)
    {
        if (m_p)
            m_p->AddRef();
    }
    CComPtr(const CComPtr& other) : CComPtr(other.m_p)
    {}
    CComPtr(CComPtr&& other) noexcept : m_p(std::exchange(other.m_p, nullptr))
    {}
    ~CComPtr()
    {
        Release();
    }

    CComPtr& operator=(CComPtr other) noexcept
    {
        std::swap(m_p, other.m_p);
        return *this;
    }

    void Release()
    {
        if (Interface* old = std::exchange(m_p, nullptr))
            old->Release();
    }

    Interface* Get() const
    {
        return m_p;
    }
    Interface* operator->() const
    {
        return m_p;
    }
    explicit operator bool() const
    {
        return m_p != nullptr;
    }

    // For an operation that hands out an interface: what was held is released first.
    Interface** Receive()
    {
        Release();
        return &m_p;
    }

    // QueryInterface for another interface of the same object.
    template <class Other>
    HRESULT QueryInterface(CComPtr<Other>& other) const
    {
        return m_p->QueryInterface(Other::kIid, reinterpret_cast<void**>(other.Receive()));
    }

private:
    Interface* m_p = nullptr;
};
