# vantroy_pictures(TARGET NAME=FILE...)
#
# Gives a target the SVG files of resources/pictures as the constants that resources/Pictures.h declares. The source is
# made anew at configure time when a picture has changed.
function(vantroy_pictures target)
    set(source ${CMAKE_BINARY_DIR}/generated/Pictures.cpp)
    set(code "#include \"resources/Pictures.h\"\n\nnamespace pictures\n{\n")
    foreach(entry ${ARGN})
        string(REGEX MATCH "^([^=]+)=(.+)$" matched ${entry})
        set(file ${CMAKE_SOURCE_DIR}/resources/pictures/${CMAKE_MATCH_2})
        file(READ ${file} svg)
        string(APPEND code "const std::string_view ${CMAKE_MATCH_1} = R\"svg(${svg})svg\";\n")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    endforeach()
    file(CONFIGURE OUTPUT ${source} CONTENT "${code}}\n" @ONLY)
    target_sources(${target} PRIVATE ${source})
endfunction()
