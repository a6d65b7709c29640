// The button on the browser's toolbar that starts this program: one key of the registry, for the machine.
#pragma once

// Creates the key or opens it, and writes its values, whose own failures do not count. False if the key cannot be had.
bool AddBrowserButton();
// Deletes the key with everything below it. False if it is not there, or at the first thing that cannot be deleted;
// what was deleted up to then stays deleted.
bool RemoveBrowserButton();
