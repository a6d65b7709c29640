# vantroy_folder(NAME [USES FOLDER...])
#
# The static library vantroy_NAME of all sources in the folder NAME, but for the program's own Main.cpp and for
# platform/testing, which only tests link.
function(vantroy_folder name)
    cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${name}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "/platform/testing/|/app/Main\\.cpp$")
    add_library(vantroy_${name} STATIC ${sources})
    list(TRANSFORM ARG_USES PREPEND vantroy_)
    target_link_libraries(vantroy_${name} PUBLIC ${ARG_USES})
endfunction()
