#include "platform/shell/HelpViewer.h"

#include "platform/files/InstallHome_p.h"
#include "platform/files/NativePath_p.h"
#include "platform/shell/Process_p.h"
#include "platform/system/Library.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace
{

constexpr const char* kFirstPage = "index.html";

fs::path g_installedManual; // native

// Absolute, so that it can never read as an option; empty if there is none.
fs::path FirstPageFor(const fs::path& file)
{
    const fs::path folder = file.parent_path();
    for (const fs::path& manual : {folder / file.stem(), folder / "manual", g_installedManual})
    {
        std::error_code error;
        const fs::path page = fs::absolute(manual / kFirstPage, error);
        if (!error && fs::is_regular_file(page, error))
            return page;
    }
    return {};
}

DWORD HtmlHelp(HWND, const char* file, UINT command, DWORD_PTR)
{
    if (command != HH_DISPLAY_TOPIC || !file)
        return 0;
    const fs::path page = FirstPageFor(NativePath(file));
    return !page.empty() && StartProcess({"xdg-open", page.lexically_normal().string()}) == 0;
}

} // namespace

std::string InstalledManualFolder()
{
    return PathFromNative((ExecutableFolder() / VANTROY_MANUAL_FOLDER).lexically_normal().string());
}

void RegisterHelpViewer(const std::string& installedManual)
{
    g_installedManual = NativePath(installedManual);
    const auto function = static_cast<HtmlHelpFunction>(&HtmlHelp);
    RegisterLibrary(kHelpViewerLibrary, {{OrdinalName(kHtmlHelpOrdinal), reinterpret_cast<FARPROC>(function)}});
}
