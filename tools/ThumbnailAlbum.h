// The album command, wherever it is given.
#pragma once

#include "platform/com/ComError.h"

#include <string>

// Creates the component and has it make an album: returns when that has ended. What fails is told in a message box. On
// the user-interface thread, which does nothing else meanwhile.
void CreateThumbnailAlbum();

// What a failed call of a component says: the system's text for the result, else the number of an error that the
// component has defined, else the result.
std::string ComErrorText(const _com_error& error);
