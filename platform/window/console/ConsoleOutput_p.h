// Standard output and standard error of the console desktop: whole lines, and one line that is rewritten in place.
#pragma once

#include "platform/window/console/ConsoleLine_p.h"

#include <mutex>

// What the program is called on a console, as byte text.
std::string ProgramName();

// One line on standard error, with the program's name in front; line ends in the text become blanks. Never fails.
void PrintError(std::string_view text);

// Any thread. What cannot be written, to a peer that has gone for instance, is dropped in silence.
class ConsoleOutput
{
public:
    ConsoleOutput();

    // Whether standard output is a terminal on which a line can be rewritten.
    bool IsTerminal() const
    {
        return m_bTerminal;
    }

    // One line, cleaned; the line in place is ended first.
    void WriteLine(std::string_view text);
    // The fields as a line: on a terminal rewritten in place, and as wide as the terminal is at this moment.
    void Show(const ConsoleFields& fields);
    // Ends the line in place: what follows stands below it.
    void EndLine();
    // PrintError; the line in place makes way, and is to be shown anew.
    void WriteError(std::string_view text);

private:
    void EndLineLocked();

    const bool m_bTerminal;
    std::mutex m_mutex;    // guards the next
    std::string m_inPlace; // what the line in place shows; empty if there is none
};
