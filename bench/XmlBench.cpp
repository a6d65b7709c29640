// The XML engine at the work that the history gives it, beside two XML libraries, and the history itself. Prints
// Markdown tables; each figure is the median of several rounds in turn.
//
// usage: bench_persist [ROUNDS]

#include "bench/HistoryBench.h"
#include "bench/Rounds.h"
#include "persist/XmlDoc.h"

#include <cstdio>
#include <pugixml.hpp>
#include <stdexcept>
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

void Expect(bool bTrue)
{
    if (!bTrue)
        throw std::runtime_error("a reader did not understand the history");
}

void TakeNext(CXmlDoc& doc, const char* name, Harvest& harvest)
{
    Expect(doc.FindNextChild(name));
    harvest.Take(doc.GetChildText());
}

Harvest ReadOwn(const std::string& text)
{
    Harvest harvest;
    CXmlDoc doc;
    Expect(doc.SetText(text.c_str()) && doc.FindNext("ROOT"));
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
    Expect(doc.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS);
    return WalkTree(
        Node(doc.RootElement()), [](Node node, const char* name) { return node->FirstChildElement(name); },
        [](Node node, const char* name) { return node->NextSiblingElement(name); },
        [](Node node) { return std::string(node->GetText()); });
}

Harvest ReadPugi(const std::string& text)
{
    using Node = pugi::xml_node;
    pugi::xml_document doc;
    Expect(doc.load_buffer(text.data(), text.size()));
    return WalkTree(
        doc.document_element(), [](Node node, const char* name) { return node.child(name); },
        [](Node node, const char* name) { return node.next_sibling(name); },
        [](Node node) { return std::string(node.child_value()); });
}

void BenchReading(int rounds)
{
    const std::string text = HistoryText(kHistorySize);
    const Harvest whole = ReadOwn(text);
    std::vector<double> own, tiny, pugi;
    for (int round = 0; round < rounds; ++round)
    {
        own.push_back(TimeOf([&] { Expect(ReadOwn(text) == whole); }));
        tiny.push_back(TimeOf([&] { Expect(ReadTinyXml(text) == whole); }));
        pugi.push_back(TimeOf([&] { Expect(ReadPugi(text) == whole); }));
    }
    std::printf("| Reading | Vantroy | tinyxml2 | pugixml | Vantroy to tinyxml2 |\n|---|---|---|---|---|\n");
    std::printf("| history of 20 MB, %zu values | %.3f s | %.3f s | %.3f s | %.2f |\n", whole.values, MedianOf(own),
                MedianOf(tiny), MedianOf(pugi), MedianOf(own) / MedianOf(tiny));
}

// A document in the order of its text, in records of ten.
void Build(int elements)
{
    CXmlDoc doc;
    Expect(doc.AppendElement("ROOT"));
    for (int element = 1; element < elements; ++element)
    {
        if (element % 10 == 1)
            Expect(doc.LeaveElement() == (element > 1) && doc.AppendChild("RECORD") && doc.EnterChild());
        else
            Expect(doc.AppendChild("VALUE", "http://www.example.com/picture.jpg"));
    }
}

void BenchBuilding(int rounds)
{
    std::printf("\n| Building, in order | Time | For each element |\n|---|---|---|\n");
    for (const int elements : {10000, 100000})
    {
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round)
            times.push_back(TimeOf([elements] { Build(elements); }));
        const double median = MedianOf(times);
        std::printf("| %d elements | %.4f s | %.0f ns |\n", elements, median, median / elements * 1e9);
    }
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        const int rounds = RoundsAsked(argc, argv);
        BenchReading(rounds);
        BenchBuilding(rounds);
        BenchHistory(rounds);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
