#include "platform/testing/RealFirefox.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

RealFirefox::RealFirefox(const std::vector<std::string>& urls)
{
    std::filesystem::create_directory(Profile());
    std::vector<std::string> arguments{"firefox-esr", "--headless", "--no-remote",
                                       "--profile",   Profile(),    "--remote-debugging-port=0"};
    arguments.insert(arguments.end(), urls.begin(), urls.end());
    m_process.Start(arguments, [this] { return Port() != 0; });
}

int RealFirefox::Port() const
{
    std::ostringstream text;
    text << std::ifstream(Profile() + "/WebDriverBiDiServer.json").rdbuf();
    const std::string key = "\"ws_port\":";
    const std::size_t start = text.str().find(key);
    return start == std::string::npos ? 0 : std::atoi(text.str().c_str() + start + key.size());
}

std::string RealFirefox::Endpoint() const
{
    return "ws://127.0.0.1:" + std::to_string(Port()) + "/session";
}
