// What the resource table says of a command: "prompt\ntip".
#pragma once

#include <QString>

#include "platform/Types.h"

struct CommandText
{
    QString prompt; // for the status bar
    QString tip;    // for the tool tip; the prompt if the text has none
};

CommandText LoadCommandText(UINT command);
