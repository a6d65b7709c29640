# Where the manual stands as seen from the program, installed and in the build tree alike.
file(RELATIVE_PATH manual_from_program ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DOCDIR}/manual)

# vantroy_manual(PROGRAM)
#
# The pages of docs/manual with the pictures of docs: copied beside what is built whenever the program is, and installed.
function(vantroy_manual program)
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/manual/*.html ${CMAKE_SOURCE_DIR}/docs/manual/*.css
        ${CMAKE_SOURCE_DIR}/docs/*.png)
    list(FILTER files EXCLUDE REGEX "/controls\\.png$") # in no page
    set(folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${manual_from_program})
    set(stamp ${CMAKE_BINARY_DIR}/manual.stamp)
    add_custom_command(OUTPUT ${stamp} DEPENDS ${files}
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${folder}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${CMAKE_COMMAND} -E copy ${files} ${folder}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp})
    add_custom_target(manual DEPENDS ${stamp})
    add_dependencies(${program} manual)
    install(FILES ${files} DESTINATION ${CMAKE_INSTALL_DOCDIR}/manual)
endfunction()
