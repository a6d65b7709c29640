// A dialog with a progress bar, as lines on the console.
//
// Its read-only edits name the item in hand; its labels that have a number tell of the item: those before the bar what
// is known when it begins, those behind the bar how far it is. On a terminal the items share one line, which is
// rewritten in place; elsewhere each has a line, written when it is over. A new title of the window is a line.
//
// That an item begins is read off the controls: one of the edits is about to change, or the bar gets a range again, or
// goes to 0 again without ever having had a range. The worker waits meanwhile, and what it has posted before has been
// handled, so the labels behind the bar stand as the item before has left them.
//
// When its "OK" is the only button left to press, it is pressed.
#pragma once

#include "platform/window/Handle.h"
#include "platform/window/WindowWatch_p.h"
#include "platform/window/console/ConsoleLine_p.h"

#include <memory>
#include <vector>

class ConsoleDesktop;
class QTimer;
struct ControlTemplate;
struct DialogTemplate;

class ConsoleProgress : public WindowWatch
{
public:
    // For the new window of a dialog. User-interface thread.
    static std::shared_ptr<ConsoleProgress> Attach(ConsoleDesktop& console, WindowRecord& dialog,
                                                   const DialogTemplate& source);
    ~ConsoleProgress() override;

    void OnTextChanges(const WindowRecord& window, const std::string& text) override;
    void OnBarChanges(UINT message, WPARAM wParam) override;
    void OnWindowGoes(const WindowRecord& window) override;

    // Presses the buttons that stop less than the whole run: what is broken off then must not pass for complete.
    // User-interface thread.
    void PressAllButCancel() const;

private:
    enum class Item
    {
        None,
        Named,   // the edits have changed, the bar has not
        Unsized, // the bar has gone to 0
        Sized,   // the bar has got a range
    };

    ConsoleProgress(ConsoleDesktop& console, WindowRecord& dialog, const DialogTemplate& source);

    void AddControl(const ControlTemplate& control, HWND window);
    void SetTitle(const std::string& title);
    void NameItem();
    void BeginItem(Item item);
    void EndItem();
    // The item in hand and the line in place end.
    void EndRun();
    bool IsUnderWay() const;
    void ShowItem();
    void Tick();
    // The one button that can be pressed; null if there are more, or none.
    HWND OnlyButton() const;
    void PressOkIfAlone();

    ConsoleDesktop& m_console;
    const HWND m_dialog;
    std::vector<HWND> m_edits;
    std::vector<HWND> m_labels;         // before the bar
    std::vector<HWND> m_progressLabels; // behind it
    std::vector<HWND> m_buttons;
    std::vector<HWND> m_watched; // the edits and the bar
    bool m_bBarPassed = false;   // while the controls are taken in
    Item m_item = Item::None;
    ConsoleFields m_known;           // of the item that is under way: what does not change any more
    std::unique_ptr<QTimer> m_timer; // as long as the window stands
    int m_nOkTicks = 0;              // for how long nothing but "OK" has been waited for
};
