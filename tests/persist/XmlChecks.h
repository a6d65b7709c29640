// Checks of a document that hold for any text and any order of edits; the tests and the fuzzing share them.
#pragma once

#include "persist/XmlDoc.h"

// The elements in document order, and numbered in it, which is all that documents of the same text must agree on.
std::vector<ElementSlot> InDocumentOrder(const CXmlDoc& doc);

// Reads every element; answers how many there are.
std::size_t ReadAll(CXmlDoc& doc);

// Edits the document as the bytes choose and checks it after each edit: the places lie in the text, a written value is
// read back, and the places equal those of a fresh parse. The last one for a document that is built here or a plain
// one, whose tags are written as they are here; an odd end tag reads differently with a new element behind it.
struct EditReport
{
    int edits = 0;
    std::string fault; // empty if all holds
};
EditReport EditAsChosen(CXmlDoc& doc, std::string_view bytes, bool bPlain = false);
