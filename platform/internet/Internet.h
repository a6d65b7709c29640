// The internet client: one HTTP exchange at a time on a handle, pulled by the caller.
//
// Requests are HTTP/1.0 with the handle's user agent and no other header of the program's own, but for the cookies of a
// handle that asks for them; redirects are followed
// (at most 10, http and https only), the proxy comes from the environment, certificates are always checked. A
// connection is limited to 60 s for its making and 30 s of silence, as the desktop's defaults are; a head counts as
// silence until it is whole. A handle may be used by one thread at a time. All operations return 0 or null on failure
// and set the last error (12000 and up, as published).
#pragma once

#include "platform/Types.h"

// A number, never an address: a handle that was closed stays unknown. Every operation checks that its handle is open
// and of the right kind (ERROR_INTERNET_INCORRECT_HANDLE_TYPE).
class InternetHandle;
using HINTERNET = InternetHandle*;
using INTERNET_PORT = WORD;

inline constexpr DWORD INTERNET_OPEN_TYPE_PRECONFIG = 0;
inline constexpr DWORD INTERNET_SERVICE_HTTP = 3;
inline constexpr INTERNET_PORT INTERNET_INVALID_PORT_NUMBER = 0;
inline constexpr DWORD INTERNET_FLAG_NO_CACHE_WRITE = 0x04000000;
inline constexpr DWORD HTTP_QUERY_CONTENT_LENGTH = 5;

inline constexpr DWORD ERROR_INTERNET_TIMEOUT = 12002;
inline constexpr DWORD ERROR_INTERNET_INTERNAL_ERROR = 12004; // every failure without a code of its own here
inline constexpr DWORD ERROR_INTERNET_INVALID_URL = 12005;
inline constexpr DWORD ERROR_INTERNET_NAME_NOT_RESOLVED = 12007;
inline constexpr DWORD ERROR_INTERNET_OPERATION_CANCELLED = 12017;
inline constexpr DWORD ERROR_INTERNET_INCORRECT_HANDLE_TYPE = 12018;
inline constexpr DWORD ERROR_INTERNET_INCORRECT_HANDLE_STATE = 12019; // not sent yet
inline constexpr DWORD ERROR_INTERNET_CANNOT_CONNECT = 12029;
inline constexpr DWORD ERROR_INTERNET_CONNECTION_ABORTED = 12030;
inline constexpr DWORD ERROR_INTERNET_INVALID_CA = 12045; // the server's certificate is not to be trusted
inline constexpr DWORD ERROR_HTTP_HEADER_NOT_FOUND = 12150;
inline constexpr DWORD ERROR_HTTP_INVALID_SERVER_RESPONSE = 12152;
inline constexpr DWORD ERROR_HTTP_REDIRECT_FAILED = 12156; // more than 10, or to another scheme
inline constexpr DWORD ERROR_INTERNET_SECURITY_CHANNEL_ERROR = 12157;

// The parts of a URL: pointers into the text that was cracked. Only scheme, host and path are answered, each when its
// length was not 0 on the way in; a part that the URL lacks is null with length 0.
struct URL_COMPONENTSA
{
    DWORD dwStructSize = 0;
    const char* lpszScheme = nullptr;
    DWORD dwSchemeLength = 0;
    int nScheme = 0;
    const char* lpszHostName = nullptr;
    DWORD dwHostNameLength = 0;
    INTERNET_PORT nPort = 0;
    const char* lpszUserName = nullptr;
    DWORD dwUserNameLength = 0;
    const char* lpszPassword = nullptr;
    DWORD dwPasswordLength = 0;
    const char* lpszUrlPath = nullptr;
    DWORD dwUrlPathLength = 0;
    const char* lpszExtraInfo = nullptr;
    DWORD dwExtraInfoLength = 0;
};

HINTERNET InternetOpenA(const char* agent, DWORD accessType, const char* proxy, const char* proxyBypass, DWORD flags);

// Ours: from now on the requests of this handle carry the cookies of the browsers (Cookies.h). Each goes only where the
// browser would send it, at redirects too; what servers set meanwhile holds until the exchange ends. Without this call,
// or without a source, no request carries any.
BOOL InternetUseCookies(HINTERNET internet);

// Only scheme://[user[:password]@]host[:port][/path] with http, https or ftp as scheme is cracked; for anything else
// (data:, blob:, about:) the parts stay null and the result is FALSE. The path runs to the end of the URL.
BOOL InternetCrackUrlA(const char* url, DWORD length, DWORD flags, URL_COMPONENTSA* parts);

// Port 0 is the default port of the HTTP service: 80, or VANTROY_HTTP_PORT. User name, password, flags and context are
// not read. Fails for a host that is empty or no host name.
HINTERNET InternetConnectA(HINTERNET internet, const char* host, INTERNET_PORT port, const char* userName,
                           const char* password, DWORD service, DWORD flags, UINT_PTR context);
// The path goes into the request as it stands, but that a fragment is left out and bytes no request line may hold
// (controls, blanks, bytes above 126) are percent-escaped. An empty path asks for "/".
HINTERNET HttpOpenRequestA(HINTERNET connection, const char* verb, const char* path, const char* version,
                           const char* referrer, const char** acceptTypes, DWORD flags, UINT_PTR context);
// Sends and waits until the head of the final response is there.
BOOL HttpSendRequestA(HINTERNET request, const char* headers, DWORD headersLength, void* body, DWORD bodyLength);
// Only HTTP_QUERY_CONTENT_LENGTH: the header's text as the server sent it. ERROR_HTTP_HEADER_NOT_FOUND if there is
// none, ERROR_INSUFFICIENT_BUFFER if it is longer than the room.
BOOL HttpQueryInfoA(HINTERNET request, DWORD infoLevel, void* buffer, DWORD* size, DWORD* index);
// Waits for at most `wanted` bytes. A count of 0 with TRUE is the end of the body, also when the server closed early.
BOOL InternetReadFile(HINTERNET request, void* buffer, DWORD wanted, DWORD* got);
BOOL InternetCloseHandle(HINTERNET handle);
