set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantroy)
set(CPACK_PACKAGE_VENDOR Orlenta)
set(CPACK_PACKAGE_CONTACT ${VANTROY_MAINTAINER})
set(CPACK_PACKAGE_HOMEPAGE_URL https://${VANTROY_WEB_HOST}/vantroy)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, chromium | firefox-esr, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "batch downloader for the media of open web pages")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Vantroy brings the pictures, MP3 music and Flash files of the web pages that
are open in the browser into one folder, in one run and without saving them one
by one. What the browser has already loaded is taken from it and not asked for
again; the rest is fetched over HTTP. Filters by size, kind and resolution say
what is wanted, and a history tells what came from where.
.
It works with browsers of the Chromium family and with Firefox, in a window or,
for scripts and timers, without a display.")
include(CPack)
