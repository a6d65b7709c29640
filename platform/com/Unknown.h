// The base of every interface of the object model.
//
// Objects are counted: QueryInterface and every operation that hands out an interface add a reference for the caller.
// An object belongs to the thread that got it. Operations return an HRESULT; out-parameters are null, 0 or empty unless
// it is S_OK.
#pragma once

#include "platform/com/Guid.h"

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_ABORT = static_cast<HRESULT>(0x80004004);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
inline constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80070005);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154);
inline constexpr HRESULT CO_E_NOTINITIALIZED = static_cast<HRESULT>(0x800401F0);
// The other side has gone: what a call answers when the browser died or was never reached.
inline constexpr HRESULT RPC_E_DISCONNECTED = static_cast<HRESULT>(0x80010108);
// The other side did not answer within the layer's limit.
inline constexpr HRESULT RPC_E_TIMEOUT = static_cast<HRESULT>(0x8001011F);

constexpr bool SUCCEEDED(HRESULT result)
{
    return result >= 0;
}

constexpr bool FAILED(HRESULT result)
{
    return result < 0;
}

// The result that stands for a code of the last error.
constexpr HRESULT HRESULT_FROM_WIN32(DWORD code)
{
    return code == 0 ? S_OK : static_cast<HRESULT>((code & 0xFFFF) | 0x80070000);
}

class IUnknown
{
public:
    static constexpr IID kIid{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

    virtual HRESULT QueryInterface(REFIID iid, void** object) = 0;
    virtual DWORD AddRef() = 0;
    virtual DWORD Release() = 0;

protected:
    ~IUnknown() = default;
};

struct VARIANT;
struct DISPPARAMS;
struct EXCEPINFO;
class ITypeInfo;

// Calls by name. Everything here is called directly instead, and no object of the layer offers these operations.
class IDispatch : public IUnknown
{
public:
    static constexpr IID kIid{0x00020400, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

    virtual HRESULT GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT GetTypeInfo(UINT index, DWORD locale, ITypeInfo** info) = 0;
    virtual HRESULT GetIDsOfNames(REFIID reserved, wchar_t** names, UINT count, DWORD locale, LONG* ids) = 0;
    virtual HRESULT Invoke(LONG id, REFIID reserved, DWORD locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT* argument) = 0;

protected:
    ~IDispatch() = default;
};
