// $XDG_DATA_HOME/vantroy/
//     button/                    the extension: manifest.json, button.js, icon16.png …
//     browser/NativeMessagingHosts/example.vantroy.button.json
#include "platform/browser/toolbar/ExtensionFiles_p.h"

#include "platform/files/InstallHome_p.h"
#include "platform/text/CodePage.h"
#include "platform/window/Picture_p.h"

#include <QBuffer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>

namespace toolbar
{
namespace
{

namespace fs = std::filesystem;

constexpr const char* kHostName = "example.vantroy.button";
constexpr int kIconSizes[] = {16, 32, 48, 128};

// Gives the extension its number; without it, the browser makes one from the folder's path. Nobody has the private key,
// which signs only what a shop hands out.
constexpr const char* kPublicKey =
    "MIIBIjANBgkqhkiG9w0BAQEFAAOCAQ8AMIIBCgKCAQEAzLpxhcsvoJRjiFIs7HCd5G5rMeZg9mdHfSiRC0TYos8JFpRwHb+NJtQc"
    "xWnQEwXTTrmf59hectpbcv8lNiJg7GCIF/cdD5C7S94s7RGsmehm0+5xp2iIowr8hodRLuBJmoJVESyaVym0/GMUJ8AE4H5otE49"
    "iyTHRizNwYdYTI/c/RmPdtM6FMNThbr3gldkKW2zEZk0g28nbS7XND9SLFvY06pnuH4+5Gv0+DIUJ0AgVL/w2lHmap7pSoY2//JX"
    "Rn/AzW7WYu4ms2K95N19HDQp6QvqU6L6P29mt3DZeZPPVFyMXRHhaTmkUmxTWVyewEXyLoPMdHEGiAOYgw+FrwIDAQAB";

// It can talk to its host and to nothing else, least of all to a page.
constexpr const char* kScript = R"(chrome.action.onClicked.addListener(() => {
    chrome.runtime.sendNativeMessage("example.vantroy.button", {}, () => void chrome.runtime.lastError);
});
)";

QString NameOf(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

fs::path HostFile()
{
    return BrowserFolder() / "NativeMessagingHosts" / (std::string(kHostName) + ".json");
}

QString IconName(int size)
{
    return QString("icon%1.png").arg(size);
}

QByteArray Manifest(const Button& button, bool hasIcons)
{
    const QString text = QString::fromStdString(AnsiToUtf8(button.text));
    QJsonObject icons;
    for (const int size : kIconSizes)
    {
        if (hasIcons)
            icons.insert(QString::number(size), IconName(size));
    }
    return QJsonDocument(QJsonObject{{"manifest_version", 3},
                                     {"name", text},
                                     {"version", "1.0"},
                                     {"description", "Starts the program. Reads no page and sends nothing."},
                                     {"key", kPublicKey},
                                     {"permissions", QJsonArray{"nativeMessaging"}},
                                     {"icons", icons},
                                     {"action", QJsonObject{{"default_title", text}, {"default_icon", icons}}},
                                     {"background", QJsonObject{{"service_worker", "button.js"}}}})
        .toJson();
}

QByteArray HostManifest()
{
    return QJsonDocument(
               QJsonObject{{"name", kHostName},
                           {"description", "Starts Vantroy"},
                           {"path", NameOf(ExecutablePath())},
                           {"type", "stdio"},
                           {"allowed_origins", QJsonArray{QString("chrome-extension://%1/").arg(kExtensionId)}}})
        .toJson();
}

QByteArray Read(const fs::path& path)
{
    QFile file(NameOf(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// False if that is what stands there already.
bool Write(const fs::path& path, const QByteArray& content)
{
    if (Read(path) == content)
        return false;
    QSaveFile file(NameOf(path));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

QByteArray DrawIcon(QSvgRenderer& picture, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    DrawPicture(painter, picture, image.rect(), false);
    painter.end();
    QBuffer file;
    image.save(&file, "PNG");
    return file.data();
}

} // namespace

fs::path BrowserFolder()
{
    return UserDataFolder() / "vantroy" / "browser";
}

fs::path ExtensionFolder()
{
    return UserDataFolder() / "vantroy" / "button";
}

bool HasFiles()
{
    return Read(HostFile()) == HostManifest();
}

bool WriteFiles(const Button& button)
{
    const fs::path folder = ExtensionFolder();
    std::error_code error;
    fs::create_directories(HostFile().parent_path(), error);
    fs::create_directories(folder, error);
    fs::permissions(BrowserFolder(), fs::perms::owner_all, error);
    const auto picture = LoadPicture(button.icon);
    for (const int size : kIconSizes)
    {
        if (picture)
            Write(folder / IconName(size).toStdString(), DrawIcon(*picture, size));
    }
    Write(folder / "button.js", kScript);
    const bool hostChanged = Write(HostFile(), HostManifest());
    const bool buttonChanged = Write(folder / "manifest.json", Manifest(button, picture != nullptr));
    return hostChanged || buttonChanged;
}

// The host's file goes last: as long as it is there, the next start knows that something has to be removed.
void RemoveFiles()
{
    std::error_code error;
    fs::remove_all(ExtensionFolder(), error);
    if (!error)
        fs::remove(HostFile(), error);
}

} // namespace toolbar
