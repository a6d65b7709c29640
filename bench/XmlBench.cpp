// The XML engine at the work that the history gives it, beside two XML libraries.

#include "bench/Bench.h"
#include "persist/XmlDoc.h"

#include <pugixml.hpp>
#include <string>
#include <tinyxml2.h>

namespace
{

constexpr std::size_t kHistorySize = 20u << 20;
constexpr int kFilesOfPage = 5;

// What a reader has taken from a document; all of them have to take the same.
struct Harvest
{
    std::size_t values = 0;
    std::size_t bytes = 0;

    void Take(std::string_view value)
    {
        ++values;
        bytes += value.size();
    }
    bool operator==(const Harvest&) const = default;
};

std::string Element(const std::string& name, const std::string& value)
{
    return "<" + name + ">" + value + "</" + name + ">\r\n";
}

std::string HistoryText(std::size_t size)
{
    std::string text = "<ROOT>\r\n";
    for (int page = 0; text.size() < size; ++page)
    {
        const std::string site = "http://www.example.com/gallery/" + std::to_string(page);
        text += "<DOWNLOAD>\r\n" + Element("DOWNLOAD_TIME", std::to_string(1056441600 + page)) +
                Element("REFERRER_URL", site + "/index.php?set=7&amp;size=large");
        for (int file = 0; file < kFilesOfPage; ++file)
        {
            const std::string name = "picture" + std::to_string(file) + ".jpg";
            text += "<DOWNLOAD_ITEM>\r\n" + Element("DOWNLOAD_FILE", site + "/" + name) +
                    Element("LOCAL_FILE", "/home/user/Pictures/Download/" + std::to_string(page) + name) +
                    "</DOWNLOAD_ITEM>\r\n";
        }
        text += "</DOWNLOAD>\r\n";
    }
    return text + "</ROOT>\r\n";
}

void ExpectSound(bool bTrue)
{
    Expect(bTrue, "a reader did not understand the history");
}

void TakeNext(CXmlDoc& doc, const char* name, Harvest& harvest)
{
    ExpectSound(doc.FindNextChild(name));
    harvest.Take(doc.GetChildText());
}

Harvest ReadOwn(const std::string& text)
{
    Harvest harvest;
    CXmlDoc doc;
    ExpectSound(doc.SetText(text.c_str()) && doc.FindNext("ROOT"));
    while (doc.FindNextChild("DOWNLOAD"))
    {
        doc.EnterChild();
        TakeNext(doc, "DOWNLOAD_TIME", harvest);
        TakeNext(doc, "REFERRER_URL", harvest);
        while (doc.FindNextChild("DOWNLOAD_ITEM"))
        {
            doc.EnterChild();
            TakeNext(doc, "DOWNLOAD_FILE", harvest);
            TakeNext(doc, "LOCAL_FILE", harvest);
            doc.LeaveElement();
        }
        doc.LeaveElement();
    }
    return harvest;
}

// The same walk over a tree of nodes, which the libraries offer under names of their own.
template <typename Node, typename First, typename Next, typename Text>
Harvest WalkTree(Node root, First first, Next next, Text text)
{
    Harvest harvest;
    for (Node page = first(root, "DOWNLOAD"); page; page = next(page, "DOWNLOAD"))
    {
        harvest.Take(text(first(page, "DOWNLOAD_TIME")));
        harvest.Take(text(first(page, "REFERRER_URL")));
        for (Node item = first(page, "DOWNLOAD_ITEM"); item; item = next(item, "DOWNLOAD_ITEM"))
        {
            harvest.Take(text(first(item, "DOWNLOAD_FILE")));
            harvest.Take(text(first(item, "LOCAL_FILE")));
        }
    }
    return harvest;
}

// Values are copied, as those of the engine are.
Harvest ReadTinyXml(const std::string& text)
{
    using Node = const tinyxml2::XMLElement*;
    tinyxml2::XMLDocument doc;
    ExpectSound(doc.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS);
    return WalkTree(
        Node(doc.RootElement()), [](Node node, const char* name) { return node->FirstChildElement(name); },
        [](Node node, const char* name) { return node->NextSiblingElement(name); },
        [](Node node) { return std::string(node->GetText()); });
}

Harvest ReadPugi(const std::string& text)
{
    using Node = pugi::xml_node;
    pugi::xml_document doc;
    ExpectSound(doc.load_buffer(text.data(), text.size()));
    return WalkTree(
        doc.document_element(), [](Node node, const char* name) { return node.child(name); },
        [](Node node, const char* name) { return node.next_sibling(name); },
        [](Node node) { return std::string(node.child_value()); });
}

struct Text
{
    const std::string text = HistoryText(kHistorySize);
    const Harvest whole = ReadOwn(text);
};

void MeasureReading(Text& given)
{
    const auto measure = [&given](const char* series, Harvest (*read)(const std::string&)) {
        Record(series, TimeOf([&given, read] { ExpectSound(read(given.text) == given.whole); }));
    };
    measure("vantroy", ReadOwn);
    measure("tinyxml2", ReadTinyXml);
    measure("pugixml", ReadPugi);
}

// A document in the order of its text, in records of ten.
void Build(int elements)
{
    CXmlDoc doc;
    ExpectSound(doc.AppendElement("ROOT"));
    for (int element = 1; element < elements; ++element)
    {
        if (element % 10 == 1)
            ExpectSound(doc.LeaveElement() == (element > 1) && doc.AppendChild("RECORD") && doc.EnterChild());
        else
            ExpectSound(doc.AppendChild("VALUE", "http://www.example.com/picture.jpg"));
    }
}

void MeasureBuilding()
{
    for (const int elements : {10000, 30000, 100000})
        Record("vantroy", TimeOf([elements] { Build(elements); }), elements);
}

} // namespace

int main(int argc, char** argv)
{
    return RunLines(argc, argv, {{"xml", With(MeasureReading)}, {"xml-building", MeasureBuilding}});
}
