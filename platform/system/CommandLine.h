// The command line and the place of the program.
#pragma once

// What the process was started with. Called once, first thing in main.
//
// The program's own path stands at the head of the line in double quotes and with backslashes between its folders,
// as the desktop writes it, so a folder such as /home/allan never reads as a switch. The arguments follow, one blank
// between them, as typed; `--all` and `--current` stand there as `/all` and `/current`.
void SetCommandLine(int argc, char** argv);

// The whole line; valid until the next SetCommandLine.
const char* GetCommandLineA();
