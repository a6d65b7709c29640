// The desktop of a process without a display: its windows live off-screen, and the console shows what they say.
//
// - A message box is a line on standard error and is answered at once.
// - A dialog with a progress bar is a line on standard output, see ConsoleProgress.
// - Any other dialog would need a user, and does not open.
#pragma once

#include "platform/window/console/ConsoleOutput_p.h"

#include <atomic>
#include <memory>

class ConsoleProgress;
class CWinApp;
class WindowRecord;
struct DialogTemplate;

// Made before the toolkit, on the thread that becomes the user-interface thread; outlives it.
class ConsoleDesktop
{
public:
    ConsoleDesktop();
    // Ends the line in place, and tells of a run that was stopped.
    ~ConsoleDesktop();
    ConsoleDesktop(const ConsoleDesktop&) = delete;
    ConsoleDesktop& operator=(const ConsoleDesktop&) = delete;

    // Null where windows are on show. Any thread.
    static ConsoleDesktop* Current();

    ConsoleOutput& Output()
    {
        return m_output;
    }

    // --- any thread ---

    // Prints the text of a message box with such buttons (MB_OK and so on) and gives its answer: IDOK, and to a
    // question "No"; "Yes" once the run is being stopped.
    int AnswerBox(const std::string& text, UINT buttons);

    // --- user-interface thread ---

    // Whether a modal dialog may open. Says why not, if it is the first that the program has to show.
    bool MayOpen(const DialogTemplate& dialog);
    // Gives a dialog with a progress bar its line, and takes no notice of others.
    void Watch(WindowRecord& record, const DialogTemplate& dialog);
    // A dialog shows an item.
    void NoteItem();
    // The run is to stop, by the signal: questions are answered "Yes" from now on.
    void Stop(int signal);
    // It is not to wait for the item in hand: cancels what the windows let a user cancel, then all blocking calls.
    void BreakOff();

    // Prints what the application has to say to a run that came to its end without an item.
    void HelpWithNothing(CWinApp& application);
    // The exit status of the run.
    int Status() const;

private:
    void (*const m_pipeAction)(int); // what a broken pipe did before
    ConsoleOutput m_output;
    std::atomic<bool> m_bMessageShown = false; // that was no question
    std::atomic<bool> m_bAnythingShown = false;
    std::atomic<int> m_nSignal = 0;
    std::vector<std::weak_ptr<ConsoleProgress>> m_windows;
    bool m_bItemShown = false;
    bool m_bRefused = false; // the very first dialog
};
