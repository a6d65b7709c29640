// Starting the object model on a thread, and making objects by class.
#pragma once

#include "platform/com/ComPtr.h"

#include <functional>

inline constexpr DWORD CLSCTX_ALL = 0x17;

// Each thread that uses objects calls CoInitialize before and CoUninitialize after; calls nest. S_OK, or S_FALSE if
// the thread had called already.
HRESULT CoInitialize(void* reserved);
void CoUninitialize();

// Makes an object of a class. CO_E_NOTINITIALIZED on a thread without CoInitialize, REGDB_E_CLASSNOTREG for an unknown
// class. `outer` must be null; `context` is not read, every class lives in the process.
HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid, void** object);
// Brings a created object to its running state: IRunnableObject::Run (com/Runnable.h) of an object that has it, S_OK
// for any other. E_POINTER for null.
HRESULT OleRun(IUnknown* object);

// What makes an object of a class: S_OK with the object, or a failure that CoCreateInstance passes on. Called on the
// creating thread.
using ClassFactory = std::function<HRESULT(CComPtr<IUnknown>& object)>;

// Enters a class into the class table, in place of an earlier one; an empty factory takes the class out. Any thread.
void RegisterClassFactory(REFCLSID clsid, ClassFactory factory);
