// Records of the history as they stand in a file.
#pragma once

#include <string>
#include <vector>

// `files` are "address>path".
inline std::string Record(const std::string& time, const std::string& page, const std::vector<std::string>& files)
{
    std::string text =
        "<DOWNLOAD>\r\n<DOWNLOAD_TIME>" + time + "</DOWNLOAD_TIME>\r\n<REFERRER_URL>" + page + "</REFERRER_URL>\r\n";
    for (const std::string& file : files)
    {
        const std::size_t arrow = file.find('>');
        text += "<DOWNLOAD_ITEM>\r\n<DOWNLOAD_FILE>" + file.substr(0, arrow) + "</DOWNLOAD_FILE>\r\n<LOCAL_FILE>" +
                file.substr(arrow + 1) + "</LOCAL_FILE>\r\n</DOWNLOAD_ITEM>\r\n";
    }
    return text + "</DOWNLOAD>\r\n";
}
