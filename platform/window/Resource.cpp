#include "platform/window/Resource.h"

#include "platform/text/CodePage.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace
{

std::atomic<const ResourceTable*> g_resources = nullptr;

void CheckNumbers(const DialogTemplate& dialog, std::string& faults)
{
    for (auto control = dialog.controls.begin(); control != dialog.controls.end(); ++control)
    {
        const auto same = [control](const ControlTemplate& other) { return other.id == control->id; };
        if (control->id != kUnnamedControl && std::any_of(dialog.controls.begin(), control, same))
        {
            faults += "dialog " + std::to_string(dialog.id) + ": control number " + std::to_string(control->id) +
                      " stands twice\n";
        }
    }
}

void CheckDefaultButtons(const DialogTemplate& dialog, std::string& faults)
{
    const auto isDefault = [](const ControlTemplate& control) { return (control.style & CS_DEFAULT) != 0; };
    if (std::count_if(dialog.controls.begin(), dialog.controls.end(), isDefault) > 1)
        faults += "dialog " + std::to_string(dialog.id) + ": more than one default button\n";
}

void CheckPicture(const ResourceTable& table, const char* kind, int id, int picture, std::string& faults)
{
    if (std::ranges::count(table.pictures, picture, &PictureEntry::id) == 0)
        faults += kind + (" " + std::to_string(id)) + ": no picture " + std::to_string(picture) + "\n";
}

void CheckPictures(const ResourceTable& table, std::string& faults)
{
    for (const DialogTemplate& dialog : table.dialogs)
    {
        for (const ControlTemplate& control : dialog.controls)
        {
            if (control.kind == ControlClass::Picture)
                CheckPicture(table, "dialog", dialog.id, control.picture, faults);
        }
    }
    for (const ToolBarTemplate& toolBar : table.toolBars)
    {
        for (const ToolBarButton& button : toolBar.buttons)
        {
            if (button.command)
                CheckPicture(table, "tool bar", toolBar.id, button.picture, faults);
        }
    }
    for (const ImageStrip& strip : table.imageStrips)
    {
        for (const int picture : strip.pictures)
            CheckPicture(table, "image strip", strip.id, picture, faults);
    }
}

} // namespace

std::string CheckResources(const ResourceTable& table)
{
    std::string faults;
    for (const DialogTemplate& dialog : table.dialogs)
    {
        CheckNumbers(dialog, faults);
        CheckDefaultButtons(dialog, faults);
    }
    CheckPictures(table, faults);
    return faults;
}

void AfxSetResources(const ResourceTable& table)
{
#ifndef NDEBUG
    if (const std::string faults = CheckResources(table); !faults.empty())
    {
        std::fprintf(stderr, "The resources are at fault:\n%s", faults.c_str());
        std::abort();
    }
#endif
    g_resources = &table;
}

const ResourceTable* AfxGetResources()
{
    return g_resources;
}

std::string AfxLoadString(UINT id)
{
    const ResourceTable* resources = AfxGetResources();
    if (!resources)
        return {};
    const auto entry = std::find_if(resources->texts.begin(), resources->texts.end(),
                                    [id](const TextEntry& text) { return text.id == id; });
    return entry == resources->texts.end() ? std::string() : Utf8ToAnsi(entry->text);
}
