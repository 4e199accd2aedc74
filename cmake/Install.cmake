# Where `cmake --install` puts the programs on Linux, and what the desktop, the shell and man find them
# by. The Debian package is made from it.
include(GNUInstallDirs)
install(TARGETS sysman RUNTIME)
if(TARGET quarvel-data)
    install(TARGETS quarvel-data RUNTIME)  # beside the other, which starts it for a backup
endif()

set(from ${CMAKE_CURRENT_SOURCE_DIR}/packaging)
install(FILES ${from}/linux/sysman.1 ${from}/linux/quarvel-data.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${from}/linux/sysman.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${from}/linux/quarvel-data.bash-completion RENAME quarvel-data
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

# The date is today's, or that of SOURCE_DATE_EPOCH.
string(TIMESTAMP RELEASE_DATE "%Y-%m-%d" UTC)
set(metainfo example.quarvel.sysman.metainfo.xml)
configure_file(${from}/linux/${metainfo}.in ${metainfo} @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# A desktop without a reader of SVG takes the sizes.
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${from}/sysman.svg RENAME quarvel-sysman.svg DESTINATION ${icons}/scalable/apps)
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
    foreach(size 16 24 32 48 64 128 256)
        set(icon ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}.png)
        add_custom_command(OUTPUT ${icon} DEPENDS ${from}/sysman.svg
            COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/icons
            COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${icon} ${from}/sysman.svg)
        list(APPEND icon_files ${icon})
        install(FILES ${icon} RENAME quarvel-sysman.png DESTINATION ${icons}/${size}x${size}/apps)
    endforeach()
    add_custom_target(icons ALL DEPENDS ${icon_files})
endif()
