#include "platform/shell/FolderBrowser.h"

#include "platform/files/NativePath_p.h"
#include "platform/files/Path.h"
#include "platform/window/Calls.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/ModalWait_p.h"
#include "platform/window/WinApp.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/console/ConsoleDesktop_p.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

struct ITEMIDLIST
{
    std::string path; // the machine's
};

namespace
{

namespace fs = std::filesystem;

constexpr const char* kTitle = "Browse For Folder";

// The wait for the dialog; ends with IDOK and the path, or with another result.
struct Choice : ModalWait
{
    std::string path;
};

// One that the toolkit can show: it reaches no folder whose name is no UTF-8.
QString NearestFolder(const std::string& path)
{
    const auto shown = [](const fs::path& folder) { return QFile::decodeName(folder.string().c_str()); };
    std::error_code error;
    const fs::path wanted = fs::absolute(NativePath(path), error);
    fs::path folder = wanted;
    while (folder.has_relative_path() && !QFileInfo(shown(folder)).isDir())
        folder = folder.parent_path();
    const bool found = folder.has_relative_path() || folder == wanted;
    return found && !path.empty() ? shown(folder) : QDir::homePath();
}

// The toolkit shows the desktop's own dialog in its place where there is one.
class FolderDialog : public QFileDialog, public WindowPeer
{
public:
    FolderDialog(QWidget* above, std::shared_ptr<Choice> choice)
        : QFileDialog(above, {}, QDir::homePath()), m_choice(std::move(choice))
    {
        setFileMode(QFileDialog::Directory);
        setOption(QFileDialog::ShowDirsOnly);
        setSupportedSchemes({QStringLiteral("file")});
        connect(this, &QDialog::finished, this, [this](int result) { End(result == QDialog::Accepted); });
    }

    QWidget& Widget() override
    {
        return *this;
    }
    void ShowText(const QString& text) override
    {
        setWindowTitle(text);
    }
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CLOSE)
            reject();
        else if (message == WM_DESTROY)
            m_choice->End(IDCANCEL);
        else if (message == BFFM_SETSELECTIONA && wParam && lParam)
            setDirectory(NearestFolder(reinterpret_cast<const char*>(lParam)));
        return 0;
    }

private:
    void End(bool accepted)
    {
        const QStringList folders = selectedFiles();
        if (accepted && !folders.isEmpty())
            m_choice->path = QFile::encodeName(QDir::cleanPath(folders.first())).toStdString();
        m_choice->End(m_choice->path.empty() ? IDCANCEL : IDOK);
    }

    std::shared_ptr<Choice> m_choice;
};

// Null, with the choice ended, if the owner has gone.
std::shared_ptr<WindowRecord> OpenDialog(const BROWSEINFOA& info, const std::shared_ptr<Choice>& choice)
{
    const CWnd* main = AfxGetMainWnd();
    const auto owner = WindowTable::Get().Find(info.hwndOwner || !main ? info.hwndOwner : main->m_hWnd);
    if (info.hwndOwner && !owner)
    {
        choice->End(IDCANCEL);
        return nullptr;
    }
    auto* dialog = new FolderDialog(owner ? owner->Peer()->Widget().window() : nullptr, choice);
    auto record = WindowRecord::Make(*dialog, owner, 0, kTitle);
    record->Show();
    if (info.lpfn)
        info.lpfn(record->Handle(), BFFM_INITIALIZED, 0, info.lParam);
    if (!record->IsGone())
        dialog->open();
    return record;
}

class ItemAllocator final : public IMalloc
{
public:
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        const bool known = iid == IMalloc::kIid || iid == IUnknown::kIid;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // It is there for the life of the process.
    DWORD AddRef() override
    {
        return 1;
    }
    DWORD Release() override
    {
        return 1;
    }
    void Free(void* item) override
    {
        delete static_cast<ITEMIDLIST*>(item);
    }
};

} // namespace

ITEMIDLIST* SHBrowseForFolderA(BROWSEINFOA* info)
{
    const auto choice = std::make_shared<Choice>();
    std::shared_ptr<WindowRecord> record;
    if (ConsoleDesktop::Current() || !RunOnDesktop([&] { record = OpenDialog(*info, choice); }))
        return nullptr;
    const bool chosen = choice->WaitForEnd() == IDOK;
    RunOnDesktop([&record] {
        if (record)
            record->Destroy();
        record.reset();
    });
    return chosen ? new ITEMIDLIST{choice->path} : nullptr;
}

BOOL SHGetPathFromIDListA(const ITEMIDLIST* item, char* path)
{
    return SHGetPathFromIDListEx(item, path, MAX_PATH, 0);
}

BOOL SHGetPathFromIDListEx(const ITEMIDLIST* item, char* path, DWORD size, int)
{
    if (size > 0)
        *path = '\0';
    if (!item)
        return FALSE;
    const std::string text = PathFromNative(item->path);
    if (text.size() >= size || NativePath(text) != item->path)
        return FALSE;
    std::memcpy(path, text.c_str(), text.size() + 1);
    return TRUE;
}

HRESULT SHGetMalloc(IMalloc** allocator)
{
    static ItemAllocator items;
    *allocator = &items;
    return S_OK;
}
