// A walk over the entries of a folder.
#pragma once

#include "platform/Types.h"

#include <string>
#include <vector>

// Used as
//     BOOL working = find.FindFile(folder + "*.*");
//     while (working)
//     {
//         working = find.FindNextFile();   // steps onto an entry; FALSE on the last one
//         ... find.GetFilePath() ...
//     }
// Entries come in the order of their names' bytes.
class CFileFind
{
public:
    // `pattern` is a folder, with the separator and "*.*" behind it, which names all entries, "." and ".." too; FALSE
    // if the folder cannot be read or has no entries. Any other text is the path of the one entry: FALSE if it does not
    // exist, and for a text that is empty or ends in the separator.
    BOOL FindFile(const std::string& pattern);
    BOOL FindNextFile();

    // Of the entry stepped onto.

    std::string GetFileName() const;
    std::string GetFilePath() const;
    // The name without its last extension; a name that begins with its only dot has none.
    std::string GetFileTitle() const;
    BOOL IsDots() const;
    // A link counts as what it leads to.
    BOOL IsDirectory() const;

private:
    BOOL FindOne(const std::string& name);

    std::string m_folder; // with the separator at its end
    std::vector<std::string> m_names;
    std::size_t m_next = 0;
};
