# Installing Ferrydock: the program folder under one prefix, what a Linux
# desktop looks for beside it, and a Debian package of the same tree.
#
#   <prefix>/                      the program folder: ferrydock, lang.db,
#                                  ascii.dat, index.html, Dateien/la.rtf
#   <prefix>/bin/ferrydock         launcher, a link to ../ferrydock
#   <prefix>/share/applications/   menu entry
#   <prefix>/share/icons/hicolor/  icon at the theme's usual sizes
#   <prefix>/share/metainfo/       AppStream description
#
# The package puts this tree under /opt/ferrydock and adds links to the
# launcher, menu entry, icons and description under /usr, where the desktop
# and the shell look (cmake/package-links.cmake).

if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
  set(CMAKE_INSTALL_PREFIX /opt/ferrydock CACHE PATH "Where the program folder is installed" FORCE)
endif()

set(FERRYDOCK_DESKTOP_ID ferrydock.desktop)
set(FERRYDOCK_METAINFO example.brackhaven.Ferrydock.metainfo.xml)
set(FERRYDOCK_ICON_SIZES 16 32 48 64 128 256)
set(desktop_source ${CMAKE_SOURCE_DIR}/data/desktop)

# The program folder. The pictures are compiled into the executable.
install(TARGETS ferrydock DESTINATION .)
install(FILES ${CMAKE_BINARY_DIR}/lang.db ${CMAKE_SOURCE_DIR}/data/ascii.dat ${CMAKE_SOURCE_DIR}/data/index.html
        DESTINATION .)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/Dateien DESTINATION .)

# The launcher: the program finds its folder through /proc/self/exe, which
# sees through the link.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/launcher)
file(CREATE_LINK ../ferrydock ${CMAKE_BINARY_DIR}/launcher/ferrydock SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/launcher/ferrydock DESTINATION bin)

install(FILES ${desktop_source}/${FERRYDOCK_DESKTOP_ID} DESTINATION share/applications)
install(FILES ${desktop_source}/${FERRYDOCK_METAINFO} DESTINATION share/metainfo)

# Icons from the program's own picture, 16 and 32 pixels; each size is made
# from the one it is a whole multiple of, so the pixels stay sharp.
add_executable(icon-build tools/icon-build.cpp)
target_link_libraries(icon-build PRIVATE Qt6::Gui ferrydock_warnings)
set_target_properties(icon-build PROPERTIES FERRYDOCK_ASCII_CASTS ON)
set(icon_files)
foreach(size ${FERRYDOCK_ICON_SIZES})
  math(EXPR rest "${size} % 32")
  if(rest EQUAL 0)
    set(picture ${CMAKE_SOURCE_DIR}/data/pictures/app-32.png)
  else()
    set(picture ${CMAKE_SOURCE_DIR}/data/pictures/app-16.png)
  endif()
  set(icon ${CMAKE_BINARY_DIR}/icons/${size}x${size}/apps/ferrydock.png)
  add_custom_command(OUTPUT ${icon}
    COMMAND icon-build ${picture} ${size} ${icon}
    DEPENDS icon-build ${picture}
    COMMENT "Icon ${size}x${size}")
  list(APPEND icon_files ${icon})
  install(FILES ${icon} DESTINATION share/icons/hicolor/${size}x${size}/apps)
endforeach()
add_custom_target(desktop_icons ALL DEPENDS ${icon_files})
# A build of the program alone (tools/run) is then ready to install.
add_dependencies(ferrydock desktop_icons)

# The Debian package: `tools/package`.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ferrydock)
set(CPACK_PACKAGE_VENDOR "Brackhaven Laboratories")
set(CPACK_PACKAGE_CONTACT "Brackhaven Laboratories")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Two-pane FTP client")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
  "Ferrydock moves files between your own computer and an FTP server: your\n"
  "computer on the left, the server's current folder on the right, a coloured\n"
  "log below. Every text comes in German, French, English or Spanish.")
set(CPACK_PACKAGING_INSTALL_PREFIX /opt/ferrydock)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
# Libraries the executable links come from dpkg-shlibdeps; the plugins Qt
# loads at run time are named here: the SQLite driver for lang.db, and what
# the desktop's icons and a Wayland session want.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "adwaita-icon-theme, libqt6svg6, qt6-wayland")
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package-links.cmake)
set(FERRYDOCK_PACKAGE_LINKS
    bin/ferrydock
    share/applications/${FERRYDOCK_DESKTOP_ID}
    share/metainfo/${FERRYDOCK_METAINFO})
foreach(size ${FERRYDOCK_ICON_SIZES})
  list(APPEND FERRYDOCK_PACKAGE_LINKS share/icons/hicolor/${size}x${size}/apps/ferrydock.png)
endforeach()
# Handed on to the script through CPackConfig.cmake.
set(CPACK_FERRYDOCK_LINKS "${FERRYDOCK_PACKAGE_LINKS}")
include(CPack)
