#include "bench/FetchPeers.h"

#include "bench/Bench.h"

#include <cstdlib>

namespace
{

std::string Url(const std::string& port, const std::string& path)
{
    return "http://127.0.0.1:" + port + path;
}

double TimeCommand(const TempHome& home, const std::string& command, std::size_t files)
{
    const double seconds = TimeOf([&command] { Expect(std::system(command.c_str()) == 0, command.c_str()); });
    Expect(home.Files("files").size() == files, "a tool did not bring every file");
    return seconds;
}

// One address a line.
void WriteAddresses(const TempHome& home, const std::string& port, const std::vector<std::string>& paths)
{
    std::string list;
    for (const std::string& path : paths)
        list += Url(port, path) + '\n';
    home.Write("list", list);
}

} // namespace

double TimeWget(const std::string& port, const std::vector<std::string>& paths, const TempHome& home)
{
    WriteAddresses(home, port, paths);
    return TimeCommand(home, "wget -q --no-proxy -i " + home.Path("list") + " -P " + home.Path("files"), paths.size());
}

double TimeCurl(const std::string& port, const std::vector<std::string>& paths, const TempHome& home)
{
    std::string list;
    for (const std::string& path : paths)
        list += "url = " + Url(port, path) + "\noutput = " + home.Path("files" + path) + '\n';
    home.Write("list", list);
    return TimeCommand(home, "curl -s --http1.0 --noproxy '*' --create-dirs -K " + home.Path("list"), paths.size());
}

double TimeAria(const std::string& port, const std::vector<std::string>& paths, const TempHome& home)
{
    WriteAddresses(home, port, paths);
    return TimeCommand(
        home, "no_proxy=127.0.0.1 aria2c -q --no-conf -j1 -x1 -i " + home.Path("list") + " -d " + home.Path("files"),
        paths.size());
}
