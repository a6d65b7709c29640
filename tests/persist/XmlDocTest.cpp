#include "tests/persist/InCodePage.h"
#include "tests/persist/XmlChecks.h"

#include <gtest/gtest.h>

#include <random>

namespace
{

// "PARENT: tagStart tagEnd closeStart closeEnd nextStart;" for each element, the parent by its number from 1.
std::string Outline(const CXmlDoc& doc)
{
    std::string outline;
    for (const ElementSlot& e : InDocumentOrder(doc))
    {
        outline += std::to_string(e.parent) + ":";
        for (const std::int32_t place : {e.tagStart, e.tagEnd, e.closeStart, e.closeEnd, e.nextStart})
            outline += " " + std::to_string(place);
        outline += ";";
    }
    return outline;
}

std::string Repeat(std::string_view part, int count)
{
    std::string text;
    while (count-- > 0)
        text += part;
    return text;
}

struct TextCase
{
    const char* text;
    const char* expected;
};

TEST(XmlDoc, FindsThePlaces)
{
    static constexpr TextCase kCases[] = {
        {"<a></a>", "0: 0 2 3 6 7;"},
        {"<a>\r\n<b/>x<c>t</c></a>\r\n", "0: 0 2 18 21 24;1: 5 8 7 8 10;1: 10 12 14 17 18;"},
        {"<a><b><c/></b></a>", "0: 0 2 14 17 18;1: 3 5 10 13 14;2: 6 9 8 9 10;"},
        {"x<a/>y<b/>", "0: 1 4 3 4 6;"},
        {"<?xml version=\"1.0\"?><!DOCTYPE a><!-- <b> --><a/>", "0: 45 48 47 48 49;"},
        {"<a><![CDATA[</a>]]><b/><!-- </a> --><?x </a>?></a>", "0: 0 2 46 49 50;1: 19 22 21 22 23;"},
        {"<!--><a/>", "0: 5 8 7 8 9;"},
        {"< a >< / a x = \">\" >", "0: 0 4 5 19 20;"},
        {"<a></a ", "0: 0 2 3 5 7;"},
        {"<a></a <", "0: 0 2 3 7 7;"},
        {"<a b='>'/x></a>", "0: 0 6 11 14 15;"},
    };
    for (const TextCase& c : kCases)
    {
        SCOPED_TRACE(c.text);
        CXmlDoc doc;
        EXPECT_TRUE(doc.SetText(c.text));
        EXPECT_EQ(Outline(doc), c.expected);
        EXPECT_EQ(doc.GetText(), c.text);
        EXPECT_EQ(ReadAll(doc), doc.GetSlots().size() - 1);
    }
}

TEST(XmlDoc, SaysWhatIsWrong)
{
    static constexpr TextCase kCases[] = {
        {"text", "Element tag not found"},
        {"<a><b/>", "Element tag not found"},
        {"<", "Abrupt end within tag"},
        {"<\"a\">", "Tag starts with quote"},
        {"<a ", "End of tag not found"},
        {"<?><a/>", "End of tag not found"},
        {"<a><![CDATA[ ]></a>", "End of tag not found"},
        {"<a><b></a>", "End tag does not correspond to b"},
        {"<a><b></B></a>", "End tag does not correspond to b"},
        {"<a></>", "End tag not completed for element a"},
        {"<a></a", "End tag not completed for element a"},
        // These leave the error as it was.
        {"</a>", "Element tag not found"},
        {"", "Element tag not found"},
    };
    for (const TextCase& c : kCases)
    {
        SCOPED_TRACE(c.text);
        CXmlDoc doc;
        EXPECT_TRUE(doc.SetText("<a><b/></a>") && doc.FindNext() && doc.EnterChild());
        EXPECT_FALSE(doc.SetText("no tag"));
        EXPECT_FALSE(doc.SetText(c.text));
        EXPECT_EQ(doc.GetError(), c.expected);
        EXPECT_EQ(doc.GetText(), c.text);
        EXPECT_EQ(doc.GetSlots(), std::vector<ElementSlot>(1));
        EXPECT_FALSE(doc.HasRoot() || doc.FindNext() || doc.FindNextChild() || doc.EnterChild() || doc.LeaveElement());
        EXPECT_FALSE(doc.AppendChild("c") || doc.AddChildAttribute("k", "v"));
        EXPECT_TRUE(doc.AppendElement("new"));
        EXPECT_EQ(doc.GetText(), "<new/>\r\n");
        EXPECT_EQ(doc.GetError(), c.expected);
    }
    CXmlDoc doc;
    EXPECT_FALSE(doc.SetText(nullptr));
    EXPECT_EQ(doc.GetText() + doc.GetError(), "");
}

TEST(XmlDoc, SearchesForwardOnly)
{
    CXmlDoc doc;
    ASSERT_TRUE(doc.SetText("<r><a>1</a><b><c>2</c></b><a>3</a><A>4</A></r>"));
    const auto textOf = [&doc](const char* name) { return doc.FindNextChild(name) ? doc.GetChildText() : "none"; };
    EXPECT_FALSE(doc.FindNext("a"));
    EXPECT_EQ(textOf("a"), "1"); // without FindNext, which is done first
    EXPECT_EQ(textOf("a"), "3");
    EXPECT_EQ(textOf("b"), "none");
    EXPECT_EQ(textOf("A"), "4");
    EXPECT_FALSE(doc.LeaveElement());
    doc.ResetPosition();
    EXPECT_EQ(textOf("b"), "");
    EXPECT_TRUE(doc.EnterChild());
    EXPECT_EQ(textOf(nullptr), "2");
    EXPECT_TRUE(doc.EnterChild());
    EXPECT_FALSE(doc.EnterChild());
    EXPECT_TRUE(doc.LeaveElement() && doc.LeaveElement());
    EXPECT_EQ(textOf("a"), "3");
    EXPECT_FALSE(doc.LeaveElement());
    // From one sibling to the next, whose children start anew.
    doc.ResetPosition();
    EXPECT_TRUE(doc.EnterChild() && doc.FindNext("b"));
    EXPECT_EQ(textOf("c"), "2");
    EXPECT_TRUE(doc.FindNext());
    EXPECT_FALSE(doc.FindNextChild());
}

TEST(XmlDoc, ReadsTextAndAttribute)
{
    static constexpr struct
    {
        const char* element;
        const char* text;
        const char* attribute; // k
    } kCases[] = {
        {"<c> t\r\n</c>", " t\r\n", ""},
        {"<c>&lt;&amp;&gt;&apos;&quot;&amp;lt;</c>", "<&>'\"&lt;", ""},
        {"<c>&#65;&&lt &LT;&</c>", "&#65;&&lt &LT;&", ""},
        {"<c>x<d/></c>", "", ""},
        {"<c> <![CDATA[ &amp;<d> ]]> </c>", " &amp;<d> ", ""},
        {"<c>x<![CDATA[y]]></c>", "x<![CDATA[y]]>", ""},
        {"<c k=\"a&apos;&#65;\">t</c>", "t", "a'&#65;"},
        {"<c\tk\r\n= \"v\"/>", "", "v"},
        {"<c x=\"k\" k=\"v\" k=\"w\"/>", "", "v"},
        {"<c k='v'/>", "", ""},
        {"<c k x k=\"v\"/>", "", ""},
        {"<c / k=\"v\"/>", "", ""},
        {"<c></c k=\"v\">", "", ""},
    };
    for (const auto& c : kCases)
    {
        SCOPED_TRACE(c.element);
        CXmlDoc doc;
        ASSERT_TRUE(doc.SetText((std::string("<r>") + c.element + "</r>").c_str()) && doc.FindNextChild());
        EXPECT_EQ(doc.GetChildText(), c.text);
        EXPECT_EQ(doc.GetChildAttribute("k"), c.attribute);
    }
}

TEST(XmlDoc, WritesWhereItSays)
{
    static const struct
    {
        const char* before;
        bool (*edit)(CXmlDoc&);
        const char* after;
    } kCases[] = {
        {"<A/>\r\n", [](CXmlDoc& d) { return d.FindNext() && d.AppendChild("B"); }, "<A>\r\n<B/>\r\n</A>\r\n"},
        {"<A x=\"1\" />", [](CXmlDoc& d) { return d.FindNext() && d.AppendChild("B", "<t>"); },
         "<A x=\"1\" >\r\n<B>&lt;t&gt;</B>\r\n</A>"},
        {"<A>text</A>", [](CXmlDoc& d) { return d.FindNext() && d.AppendChild("B", ""); }, "<A>text<B/>\r\n</A>"},
        {"<A><B/><!----><C/><D/></A>", [](CXmlDoc& d) { return d.FindNextChild() && d.AppendChild("N"); },
         "<A><B/><N/>\r\n<!----><C/><D/></A>"},
        {"<A><B/><C/></A>", [](CXmlDoc& d) { return d.FindNext() && d.AppendChild("N"); }, "<A><B/><C/><N/>\r\n</A>"},
        {"<A><B/><C><D/></C></A>", [](CXmlDoc& d) { return d.EnterChild() && d.AppendElement("N") && d.FindNext("C"); },
         "<A><B/><N/>\r\n<C><D/></C></A>"},
        {"<A><B/><C/></A>", [](CXmlDoc& d) { return d.FindNextChild() && d.AddChildAttribute("k", "<&>'\""); },
         "<A><B k=\"&lt;&amp;&gt;&apos;&quot;\"/><C/></A>"},
        {"<A><B>t</B></A>",
         [](CXmlDoc& d) {
             return d.FindNextChild() && d.AddChildAttribute("k", "v") && d.AddChildAttribute("k", nullptr) &&
                    d.GetChildAttribute("k") == "v";
         },
         "<A><B k=\"v\" k=\"\">t</B></A>"},
        {nullptr, [](CXmlDoc& d) { return d.AppendElement("A", "<&>'\"") && !d.AppendElement("A"); },
         "<A>&lt;&amp;&gt;'\"</A>\r\n"},
        // Refused, and the child position is gone.
        {"<A><B/></A>", [](CXmlDoc& d) { return d.FindNextChild() && !d.AppendElement("N") && d.FindNextChild("B"); },
         "<A><B/></A>"},
        {"<A/>",
         [](CXmlDoc& d) { return !d.AppendElement("N") && !d.AppendChild("N") && !d.AddChildAttribute("k", ""); },
         "<A/>"},
    };
    for (const auto& c : kCases)
    {
        SCOPED_TRACE(c.after);
        CXmlDoc doc;
        doc.SetText(c.before);
        EXPECT_TRUE(c.edit(doc));
        EXPECT_EQ(doc.GetText(), c.after);
        CXmlDoc fresh;
        EXPECT_TRUE(fresh.SetText(c.after));
        EXPECT_EQ(InDocumentOrder(doc), InDocumentOrder(fresh));
    }
}

// Documents that are built at random, from nothing and on top of a parsed one.
void EditAtRandom(int documents)
{
    std::mt19937 random(1);
    int edits = 0;
    for (int document = 0; document < documents; ++document)
    {
        SCOPED_TRACE(document);
        CXmlDoc doc;
        doc.SetText(document % 2 ? "<r>\r\n<a x='/'/>t<!-- > --><b>u</b></r><z/>" : "");
        std::string bytes(300, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        const EditReport report = EditAsChosen(doc, bytes, true);
        EXPECT_EQ(report.fault, "") << doc.GetText();
        EXPECT_EQ(ReadAll(doc), doc.GetSlots().size() - 1);
        edits += report.edits;
    }
    EXPECT_GT(edits, documents * 10);
}

TEST(XmlDoc, EditsLeaveThePlacesOfAFreshParse)
{
    EditAtRandom(300);
}

TEST(XmlDoc, IsNotLimitedInDepthOrWidth)
{
    constexpr int kMany = 1000000;
    CXmlDoc doc;
    EXPECT_FALSE(doc.SetText(Repeat("<a>", kMany).c_str()));
    EXPECT_EQ(doc.GetError(), "Element tag not found");
    EXPECT_TRUE(doc.SetText((Repeat("<a>", kMany) + Repeat("</a>", kMany)).c_str()));
    EXPECT_EQ(ReadAll(doc), kMany);
    EXPECT_EQ(doc.GetSlots()[1].closeEnd, 7 * kMany - 1);
    EXPECT_TRUE(doc.SetText(("<r>" + Repeat("<a/>", kMany) + "</r>").c_str()));
    EXPECT_EQ(ReadAll(doc), kMany + 1);
    // The array is larger than the next document needs, and not clean.
    EXPECT_TRUE(doc.SetText("<a><b/></a>"));
    EXPECT_EQ(Outline(doc), "0: 0 2 7 10 11;1: 3 6 5 6 7;");
}

// What the second byte of a double-byte character could be taken for.
void ReadDoubleBytes()
{
    CXmlDoc doc;
    ASSERT_TRUE(doc.SetText("<r><\x83\\ k=\"\x83\\\">\x83\\&lt;\x83</\x83\\><\x83/><c \x83\\=\"v\"/></r>"));
    EXPECT_FALSE(doc.FindNextChild("\x83") && doc.GetChildText() != "");
    doc.ResetPosition();
    ASSERT_TRUE(doc.FindNextChild("\x83\\"));
    EXPECT_EQ(doc.GetChildText(), "\x83\\<\x83");
    EXPECT_EQ(doc.GetChildAttribute("k"), "\x83\\");
    ASSERT_TRUE(doc.FindNextChild("\x83") && doc.FindNextChild("c"));
    EXPECT_EQ(doc.GetChildAttribute("\x83\\"), "v");
    EditAtRandom(100);
}

TEST(XmlDoc, StepsByCharacterInDoubleBytePages)
{
    ExpectInCodePage("936", ReadDoubleBytes);
}

} // namespace
