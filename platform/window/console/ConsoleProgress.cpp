#include "platform/window/console/ConsoleProgress_p.h"

#include "platform/text/CodePage.h"
#include "platform/window/Calls.h"
#include "platform/window/Desktop_p.h"
#include "platform/window/QtText_p.h"
#include "platform/window/Resource.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"
#include "platform/window/console/ConsoleDesktop_p.h"

#include <QTimer>

#include <algorithm>

namespace
{

constexpr int kTickMilliseconds = 100;
// The worker may be in the middle of changing the buttons, and what the press began may take its time.
constexpr int kTicksBeforeOk = 2;
constexpr int kTicksBetweenOks = 30;

std::vector<std::string> TextsOf(const std::vector<HWND>& windows)
{
    std::vector<std::string> texts;
    for (const HWND window : windows)
        texts.push_back(GetWindowTextA(window));
    return texts;
}

bool CanBePressed(HWND button)
{
    return IsWindowVisible(button) && IsWindowEnabled(button);
}

} // namespace

std::shared_ptr<ConsoleProgress> ConsoleProgress::Attach(ConsoleDesktop& console, WindowRecord& dialog,
                                                         const DialogTemplate& source)
{
    const std::shared_ptr<ConsoleProgress> progress(new ConsoleProgress(console, dialog, source));
    dialog.SetWatch(progress);
    for (const HWND control : progress->m_watched)
        WindowTable::Get().Find(control)->SetWatch(progress);
    return progress;
}

ConsoleProgress::ConsoleProgress(ConsoleDesktop& console, WindowRecord& dialog, const DialogTemplate& source)
    : m_console(console), m_dialog(dialog.Handle()), m_timer(std::make_unique<QTimer>())
{
    for (const ControlTemplate& control : source.controls)
    {
        if (control.id != kUnnamedControl)
            AddControl(control, dialog.Child(control.id));
    }
    m_timer->callOnTimeout([this] { Tick(); });
    m_timer->start(kTickMilliseconds);
}

ConsoleProgress::~ConsoleProgress() = default;

void ConsoleProgress::AddControl(const ControlTemplate& control, HWND window)
{
    const bool isEdit = control.kind == ControlClass::Edit && (control.style & CS_READONLY);
    if (isEdit)
        m_edits.push_back(window);
    else if (control.kind == ControlClass::Label)
        (m_bBarPassed ? m_progressLabels : m_labels).push_back(window);
    else if (control.kind == ControlClass::Button)
        m_buttons.push_back(window);
    else if (control.kind == ControlClass::ProgressBar)
        m_bBarPassed = true;
    if (isEdit || control.kind == ControlClass::ProgressBar)
        m_watched.push_back(window);
}

void ConsoleProgress::OnTextChanges(const WindowRecord& window, const std::string& text)
{
    if (text.empty())
        return;
    RunOnDesktop([&] {
        if (window.Handle() == m_dialog)
            SetTitle(text);
        else
            NameItem();
    });
}

void ConsoleProgress::OnBarChanges(UINT message, WPARAM position)
{
    if (message == PBM_SETRANGE32)
        RunOnDesktop([this] { BeginItem(Item::Sized); });
    else if (message == PBM_SETPOS && position == 0)
        RunOnDesktop([this] {
            if (m_item != Item::Sized)
                BeginItem(Item::Unsized);
        });
}

void ConsoleProgress::OnWindowGoes(const WindowRecord& window)
{
    if (window.Handle() != m_dialog)
        return;
    EndRun();
    m_timer.reset();
}

void ConsoleProgress::SetTitle(const std::string& title)
{
    EndRun();
    m_console.Output().WriteLine(title);
}

void ConsoleProgress::NameItem()
{
    if (m_item != Item::Named)
        EndItem();
    m_item = Item::Named;
}

void ConsoleProgress::BeginItem(Item item)
{
    ConsoleFields known{TextsOf(m_edits), TextsOf(m_labels)};
    const auto isEmpty = [](const std::string& text) { return text.empty(); };
    if (std::ranges::all_of(known.item, isEmpty))
        return;
    EndItem();
    m_known = std::move(known);
    m_item = item;
    m_console.NoteItem();
}

void ConsoleProgress::EndItem()
{
    if (IsUnderWay() && !m_console.Output().IsTerminal())
        ShowItem();
    m_item = Item::None;
}

void ConsoleProgress::EndRun()
{
    if (IsUnderWay())
        ShowItem();
    m_item = Item::None;
    m_console.Output().EndLine();
}

bool ConsoleProgress::IsUnderWay() const
{
    return m_item == Item::Unsized || m_item == Item::Sized;
}

void ConsoleProgress::ShowItem()
{
    ConsoleFields fields = m_known;
    for (const std::string& text : TextsOf(m_progressLabels))
        fields.figures.push_back(text);
    m_console.Output().Show(fields);
}

void ConsoleProgress::Tick()
{
    if (IsUnderWay() && m_console.Output().IsTerminal())
        ShowItem();
    PressOkIfAlone();
}

HWND ConsoleProgress::OnlyButton() const
{
    const auto first = std::ranges::find_if(m_buttons, CanBePressed);
    const bool isOnly = first != m_buttons.end() && std::none_of(first + 1, m_buttons.end(), CanBePressed);
    return isOnly ? *first : HWND();
}

void ConsoleProgress::PressAllButCancel() const
{
    for (const HWND button : m_buttons)
    {
        if (GetDlgCtrlID(button) != IDCANCEL && CanBePressed(button))
            SendMessageA(button, BM_CLICK, 0, 0);
    }
}

void ConsoleProgress::PressOkIfAlone()
{
    const HWND button = OnlyButton();
    if (!button || WithoutMnemonic(ToolkitText(GetWindowTextA(button))) != QStringLiteral("OK"))
        m_nOkTicks = 0;
    else if (++m_nOkTicks % kTicksBetweenOks == kTicksBeforeOk)
        PostMessageA(button, BM_CLICK, 0, 0);
}
