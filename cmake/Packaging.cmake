# The Debian package (`make package`). The program folder — bin/ and share/, the shape the
# program finds its data by — goes to /usr/lib/tavolor. What the desktop and the system look
# for goes where they look, with links to the programs in /usr/bin. Those system files are a
# component of their own that only the package installs, so `cmake --install build --prefix
# DIR` keeps giving DIR/bin and DIR/share.
set(TAV_PACKAGE_ROOT /usr/lib/tavolor)
set(TAV_SYSTEM_FILES "system")
set(TAV_SYSTEM_INSTALL COMPONENT ${TAV_SYSTEM_FILES} EXCLUDE_FROM_ALL)
set(TAV_PACKAGE_BUILD ${CMAKE_BINARY_DIR}/package)
set(TAV_SHARE_SOURCE ${CMAKE_SOURCE_DIR}/share)
# Where the project publishes its pages; AppStream wants its screenshot as a web address.
# The screenshot itself is share/screenshots/settings-dialog.png, shipped in the package too.
set(TAV_WEB_BASE "https://tavolor.example" CACHE STRING "The project's web address")

# The programs a person starts, each with its manual page.
set(TAV_USER_PROGRAMS tav)
foreach(program tavctl tavolor)
    if(TARGET ${program})
        list(APPEND TAV_USER_PROGRAMS ${program})
    endif()
endforeach()

# Links in /usr/bin name the real executables, whose folder holds the data beside them.
file(MAKE_DIRECTORY ${TAV_PACKAGE_BUILD}/links)
foreach(program ${TAV_USER_PROGRAMS})
    file(CREATE_LINK ../lib/tavolor/bin/${program} ${TAV_PACKAGE_BUILD}/links/${program} SYMBOLIC)
endforeach()
install(DIRECTORY ${TAV_PACKAGE_BUILD}/links/ DESTINATION /usr/bin ${TAV_SYSTEM_INSTALL})

# Manual pages, each from one scdoc source under share/man, compressed as Debian wants.
find_program(TAV_SCDOC scdoc)
set(TAV_MAN_PAGES)
if(TAV_SCDOC)
    foreach(program ${TAV_USER_PROGRAMS})
        set(source ${TAV_SHARE_SOURCE}/man/${program}.1.scd)
        set(page ${TAV_PACKAGE_BUILD}/man/${program}.1.gz)
        add_custom_command(OUTPUT ${page}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${TAV_PACKAGE_BUILD}/man
            COMMAND sh -c "'${TAV_SCDOC}' < '${source}' | gzip -9n > '${page}'"
            DEPENDS ${source} VERBATIM)
        list(APPEND TAV_MAN_PAGES ${page})
    endforeach()
    add_custom_target(tavman ALL DEPENDS ${TAV_MAN_PAGES})
    install(FILES ${TAV_MAN_PAGES} DESTINATION /usr/share/man/man1 ${TAV_SYSTEM_INSTALL})
else()
    message(STATUS "scdoc not found: no manual pages (scripts/install-deps.sh installs it)")
endif()

# Desktop integration: the menu entry, the icon at every size, the AppStream description.
install(FILES ${TAV_SHARE_SOURCE}/applications/tavolor.desktop
    DESTINATION /usr/share/applications RENAME org.tavolor.Tavolor.desktop ${TAV_SYSTEM_INSTALL})
install(DIRECTORY ${TAV_SHARE_SOURCE}/icons/hicolor DESTINATION /usr/share/icons
    ${TAV_SYSTEM_INSTALL})
configure_file(${TAV_SHARE_SOURCE}/metainfo/org.tavolor.Tavolor.metainfo.xml
    ${TAV_PACKAGE_BUILD}/org.tavolor.Tavolor.metainfo.xml @ONLY)
install(FILES ${TAV_PACKAGE_BUILD}/org.tavolor.Tavolor.metainfo.xml
    DESTINATION /usr/share/metainfo ${TAV_SYSTEM_INSTALL})
install(FILES ${TAV_SHARE_SOURCE}/screenshots/settings-dialog.png
    DESTINATION /usr/share/tavolor/screenshots ${TAV_SYSTEM_INSTALL})

# Access for the user at the seat. Bookworm's udev still reads rules from /lib.
install(FILES ${TAV_SHARE_SOURCE}/udev/70-tavolor.rules DESTINATION /lib/udev/rules.d
    ${TAV_SYSTEM_INSTALL})

# Debian's documentation files.
add_custom_command(OUTPUT ${TAV_PACKAGE_BUILD}/changelog.gz
    COMMAND sh -c "gzip -9n < '${CMAKE_SOURCE_DIR}/packaging/changelog' > '${TAV_PACKAGE_BUILD}/changelog.gz'"
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/changelog VERBATIM)
add_custom_target(tavchangelog ALL DEPENDS ${TAV_PACKAGE_BUILD}/changelog.gz)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/copyright ${TAV_PACKAGE_BUILD}/changelog.gz
    DESTINATION /usr/share/doc/tavolor ${TAV_SYSTEM_INSTALL})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavolor)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Tavolor developers <maintainers@users.noreply.c-seed-e587dc55.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "view and change the settings stored inside a USB printer")
# CPack puts the summary first and indents these lines itself.
set(CPACK_PACKAGE_DESCRIPTION "Tavolor shows the settings stored inside a USB printer or multi-function
printer (sleep timer, paper defaults, network address and the rest) in one
dialog, checks what is entered, and sends back only what changed.

tavctl reads, changes, backs up and clones the same settings from a shell;
tavolor finds the connected printers and opens their settings.")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_SOURCE_DIR}/packaging/postinst)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX ${TAV_PACKAGE_ROOT})
set(CPACK_INSTALL_PREFIX ${TAV_PACKAGE_ROOT})
set(CPACK_SET_DESTDIR ON)
set(CPACK_PACKAGE_DIRECTORY ${TAV_PACKAGE_BUILD})
# One package holding the program folder and the system files.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL Unspecified ${TAV_SYSTEM_FILES})
include(CPack)
