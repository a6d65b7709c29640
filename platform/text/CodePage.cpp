#include "platform/text/CodePage.h"

#include "platform/system/LastError.h"
#include "platform/text/CodePage_p.h"
#include "platform/text/Utf8_p.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iconv.h>
#include <iterator>
#include <langinfo.h>
#include <locale.h>
#include <memory>

namespace
{

struct Page
{
    UINT number;
    const char* iconvName;
};

constexpr Page kPages[] = {{kCodePageUtf8, "UTF-8"}, {936, "CP936"}, {932, "CP932"},
                           {949, "CP949"},           {950, "CP950"}, {1252, "CP1252"}};

struct Charset
{
    const char* name;
    UINT page;
};

// As nl_langinfo(CODESET) writes them.
constexpr Charset kCharsets[] = {{"GB2312", 936},     {"GBK", 936},         {"GB18030", 936}, {"EUC-JP", 932},
                                 {"SHIFT_JIS", 932},  {"EUC-KR", 949},      {"CP949", 949},   {"BIG5", 950},
                                 {"BIG5-HKSCS", 950}, {"ISO-8859-1", 1252}, {"CP1252", 1252}, {"ISO-8859-15", 1252}};

const char* IconvName(UINT page)
{
    const auto* found = std::ranges::find(kPages, page, &Page::number);
    return found == std::end(kPages) ? kPages[0].iconvName : found->iconvName;
}

// The locale is asked for without setlocale: the program's own may be "C" until the toolkit starts.
std::string LocaleCharset()
{
    const std::unique_ptr<std::remove_pointer_t<locale_t>, void (*)(locale_t)> locale(
        newlocale(LC_CTYPE_MASK, "", nullptr), [](locale_t old) { freelocale(old); });
    return locale ? nl_langinfo_l(CODESET, locale.get()) : "";
}

class Converter
{
public:
    Converter(const char* to, const char* from) : m_handle(iconv_open(to, from))
    {}
    ~Converter()
    {
        if (IsOpen())
            iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const
    {
        return reinterpret_cast<std::intptr_t>(m_handle) != -1;
    }

    // Appends what can be converted of `input` and takes it away there; stops at the first character that cannot.
    void Run(std::string_view& input, std::string& output)
    {
        char block[4096];
        while (!input.empty())
        {
            char* in = const_cast<char*>(input.data());
            std::size_t left = input.size();
            char* out = block;
            std::size_t room = sizeof block;
            const bool stopped = iconv(m_handle, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
            const bool full = stopped && errno == E2BIG;
            output.append(block, out);
            input.remove_prefix(input.size() - left);
            if (stopped && !full)
                return;
        }
    }

private:
    iconv_t m_handle;
};

} // namespace

UINT ChooseCodePage(const char* override, std::string_view charset)
{
    if (override)
    {
        const auto asked = static_cast<UINT>(std::strtoul(override, nullptr, 10));
        if (std::ranges::find(kPages, asked, &Page::number) != std::end(kPages))
            return asked;
    }
    const auto* found = std::ranges::find(kCharsets, charset, &Charset::name);
    return found == std::end(kCharsets) ? kCodePageUtf8 : found->page;
}

std::string Utf8ToCodePage(UINT page, std::string_view utf8)
{
    if (!IsUtf8(utf8))
        return Utf8ToCodePage(page, RepairedUtf8(utf8));
    if (page == kCodePageUtf8)
        return std::string(utf8);
    std::string bytes;
    Converter converter(IconvName(page), "UTF-8");
    while (!utf8.empty())
    {
        if (converter.IsOpen())
            converter.Run(utf8, bytes);
        if (utf8.empty())
            break;
        const std::size_t length = Utf8Length(utf8);
        bytes += length == 1 ? utf8[0] : '?';
        utf8.remove_prefix(length);
    }
    return bytes;
}

std::string CodePageToUtf8(UINT page, std::string_view bytes)
{
    if (page == kCodePageUtf8)
        return IsUtf8(bytes) ? std::string(bytes) : RepairedUtf8(bytes);
    std::string utf8;
    Converter converter("UTF-8", IconvName(page));
    while (!bytes.empty())
    {
        if (converter.IsOpen())
            converter.Run(bytes, utf8);
        if (bytes.empty())
            break;
        const auto byte = static_cast<unsigned char>(bytes[0]);
        AppendUtf8(utf8, byte < 0x80 ? byte : kReplacementCharacter);
        bytes.remove_prefix(1);
    }
    return utf8;
}

std::string WideToUtf8(std::wstring_view wide)
{
    std::string utf8;
    utf8.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i)
    {
        auto character = static_cast<char32_t>(wide[i]);
        // Text that was cut out of UTF-16 unit by unit carries characters as pairs.
        const char32_t next = i + 1 < wide.size() ? static_cast<char32_t>(wide[i + 1]) : 0;
        if (character >> 10 == 0xD800 >> 10 && next >> 10 == 0xDC00 >> 10)
        {
            character = 0x10000 + ((character & 0x3FF) << 10 | (next & 0x3FF));
            ++i;
        }
        AppendUtf8(utf8, character);
    }
    return utf8;
}

std::wstring Utf8ToWide(std::string_view utf8)
{
    std::wstring wide;
    wide.reserve(utf8.size());
    while (!utf8.empty())
    {
        const std::size_t length = Utf8Length(utf8);
        wide += static_cast<wchar_t>(length == 0 ? kReplacementCharacter : DecodeUtf8(utf8, length));
        utf8.remove_prefix(length == 0 ? 1 : length);
    }
    return wide;
}

UINT GetACP()
{
    static const UINT page = ChooseCodePage(std::getenv("VANTROY_CODEPAGE"), LocaleCharset());
    return page;
}

std::string WideToAnsi(std::wstring_view wide)
{
    return Utf8ToCodePage(GetACP(), WideToUtf8(wide));
}

std::wstring AnsiToWide(std::string_view bytes)
{
    return Utf8ToWide(CodePageToUtf8(GetACP(), bytes));
}

std::string Utf8ToAnsi(std::string_view utf8)
{
    return Utf8ToCodePage(GetACP(), utf8);
}

std::string AnsiToUtf8(std::string_view bytes)
{
    return CodePageToUtf8(GetACP(), bytes);
}

int MultiByteToWideChar(UINT codePage, DWORD, const char* bytes, int length, wchar_t* wide, int room)
{
    if (codePage != CP_ACP || !bytes || length == 0 || length < -1 || room < 0 || (room > 0 && !wide))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::size_t taken = length < 0 ? std::strlen(bytes) + 1 : static_cast<std::size_t>(length);
    const std::wstring text = AnsiToWide({bytes, taken});
    const int needed = static_cast<int>(text.size());
    if (room == 0)
        return needed;
    if (room < needed)
    {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::ranges::copy(text, wide);
    return needed;
}
