#include "platform/com/Com.h"

#include "platform/com/Guard_p.h"
#include "platform/com/Runnable.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace
{

thread_local int g_initialized = 0;

class ClassTable
{
public:
    void Enter(REFCLSID clsid, ClassFactory factory)
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_classes, [&](const Entry& entry) { return entry.clsid == clsid; });
        if (factory)
            m_classes.push_back({clsid, std::move(factory)});
    }

    ClassFactory Find(REFCLSID clsid) const
    {
        const std::lock_guard lock(m_mutex);
        const auto found = std::ranges::find(m_classes, clsid, &Entry::clsid);
        return found != m_classes.end() ? found->factory : ClassFactory();
    }

private:
    struct Entry
    {
        CLSID clsid;
        ClassFactory factory;
    };

    mutable std::mutex m_mutex;
    std::vector<Entry> m_classes;
};

ClassTable& Classes()
{
    static ClassTable table;
    return table;
}

} // namespace

HRESULT CoInitialize(void*)
{
    return g_initialized++ == 0 ? S_OK : S_FALSE;
}

void CoUninitialize()
{
    g_initialized = std::max(0, g_initialized - 1);
}

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD, REFIID iid, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (outer != nullptr)
        return E_INVALIDARG;
    if (g_initialized == 0)
        return CO_E_NOTINITIALIZED;
    const ClassFactory factory = Classes().Find(clsid);
    if (!factory)
        return REGDB_E_CLASSNOTREG;
    CComPtr<IUnknown> made;
    const HRESULT result = GuardedCall([&] { return factory(made); });
    if (FAILED(result))
        return result;
    return made ? made->QueryInterface(iid, object) : E_FAIL;
}

HRESULT OleRun(IUnknown* object)
{
    if (object == nullptr)
        return E_POINTER;
    CComPtr<IRunnableObject> runnable;
    const HRESULT result = CComPtr<IUnknown>(object).QueryInterface(runnable);
    if (result == E_NOINTERFACE)
        return S_OK;
    return FAILED(result) ? result : runnable->Run();
}

void RegisterClassFactory(REFCLSID clsid, ClassFactory factory)
{
    Classes().Enter(clsid, std::move(factory));
}
