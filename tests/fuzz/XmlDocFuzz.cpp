// Any text as a document, read as a whole and then edited. Of an input, what stands before its first zero byte is the
// document, and what stands behind it chooses the edits.

#include "tests/persist/XmlChecks.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace
{

constexpr std::size_t kChoices = 100; // that are taken; each edit costs a parse

void Require(bool bTrue, const std::string& what)
{
    if (bTrue)
        return;
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

void RequireAllIsReached(CXmlDoc& doc)
{
    Require(ReadAll(doc) == doc.GetSlots().size() - 1, "an element is not reached, or twice");
    doc.ResetPosition();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::string text = input.c_str();
    CXmlDoc doc;
    const bool bParsed = doc.SetText(text.c_str());
    Require(bParsed == doc.HasRoot(), "the result of the parse is not what the document has");
    Require(bParsed || doc.GetSlots() == std::vector<ElementSlot>(1), "a damaged text has left elements");
    Require(doc.GetText() == text, "the parse has changed the text");
    RequireAllIsReached(doc);
    const std::size_t choices = std::min(text.size() + 1, size);
    const EditReport report = EditAsChosen(doc, std::string_view(input).substr(choices, kChoices));
    Require(report.fault.empty(), report.fault + " in\n" + doc.GetText());
    RequireAllIsReached(doc);
    return 0;
}
