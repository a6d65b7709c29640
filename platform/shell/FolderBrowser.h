// The desktop's dialog for choosing a folder.
#pragma once

#include "platform/com/Unknown.h"
#include "platform/window/Messages.h"

// The folder that was chosen.
struct ITEMIDLIST;

inline constexpr UINT BIF_RETURNONLYFSDIRS = 0x01;
inline constexpr UINT BIF_NEWDIALOGSTYLE = 0x40;

inline constexpr UINT BFFM_INITIALIZED = 1;               // to the callback: the dialog is made and shows next
inline constexpr UINT BFFM_SETSELECTIONA = WM_USER + 102; // to the dialog: LPARAM is a path, WPARAM TRUE

using BFFCALLBACK = int (*)(HWND dialog, UINT message, LPARAM lParam, LPARAM data);

struct BROWSEINFOA
{
    HWND hwndOwner;
    const ITEMIDLIST* pidlRoot = nullptr; // this and the next two are not read: all folders, no name, no title
    char* pszDisplayName = nullptr;
    const char* lpszTitle = nullptr;
    UINT ulFlags = 0; // not read: folders of the file system alone, and new ones can be made
    BFFCALLBACK lpfn = nullptr;
    LPARAM lParam = 0; // `data` of the callback
    int iImage = 0;    // not written
};

// What frees an item.
class IMalloc : public IUnknown
{
public:
    static constexpr IID kIid{0x00000002, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

    // An item of SHBrowseForFolderA, or null.
    virtual void Free(void* item) = 0;

protected:
    ~IMalloc() = default;
};

// Shows the dialog over its owner, which it blocks, and waits for it. Without an owner the main window is it. Null if
// the user cancels, if the owner goes meanwhile or has gone before, and on the console; else the caller frees the item.
//
// The callback runs on the user-interface thread and must not throw. The dialog stands at the home folder, or at the
// one of BFFM_SETSELECTIONA; for one that does not exist, at the nearest above it that does, or the home folder if that
// is the root. On a worker the call blocks that worker alone.
ITEMIDLIST* SHBrowseForFolderA(BROWSEINFOA* info);

// The path of an item in byte text, without a separator at its end. FALSE with an empty text if it has no room with its
// terminating zero, and if the code page lacks one of its characters: it would name another folder. Any thread.
BOOL SHGetPathFromIDListA(const ITEMIDLIST* item, char* path); // room for MAX_PATH bytes
// The same with the room in bytes that is given; `options` is 0. Paths of the machine have up to 4095 bytes.
BOOL SHGetPathFromIDListEx(const ITEMIDLIST* item, char* path, DWORD size, int options);

// Always S_OK. Any thread.
HRESULT SHGetMalloc(IMalloc** allocator);
