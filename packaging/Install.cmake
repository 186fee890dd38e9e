# What an installation holds: the program, its data, what tells the desktop and the shell about it,
# and the guide where scripts/make-guide has made it.
include(GNUInstallDirs)

install(TARGETS tarnwell RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY data/skins data/icons DESTINATION ${CMAKE_INSTALL_DATADIR}/tarnwell)
install(FILES data/ring6full.gif data/TIPOFDAY.TXT
  DESTINATION ${CMAKE_INSTALL_DATADIR}/tarnwell)
install(DIRECTORY build/guide DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)

install(FILES packaging/tarnwell.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tarnwell.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/completion.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tarnwell)

# Software centres know a program by the host of its site, turned round:
# https://www.freedesktop.org/software/appstream/docs/chap-Metadata.html#tag-id-generic
string(REGEX REPLACE "^[a-z]+://(www\\.)?([^/:]+).*$" "\\2" host "${TARNWELL_SITE}")
string(REPLACE "." ";" parts "${host}")
list(REVERSE parts)
list(JOIN parts "." reversedHost)
set(COMPONENT_ID "${reversedHost}.tarnwell")
string(REGEX REPLACE "/+$" "" SITE "${TARNWELL_SITE}")
configure_file(packaging/metainfo.xml.in ${COMPONENT_ID}.metainfo.xml @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${COMPONENT_ID}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The icon in the sizes that desktops ask for, and as it was drawn for those that scale.
set(themeFolder ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES data/icons/tarnwell.svg DESTINATION ${themeFolder}/scalable/apps)
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
  foreach(size 16 22 24 32 48 64 128 256 512)
    set(picture ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}/tarnwell.png)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icons/${size})
    add_custom_command(OUTPUT ${picture}
      COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture}
        ${CMAKE_CURRENT_SOURCE_DIR}/data/icons/tarnwell.svg
      DEPENDS data/icons/tarnwell.svg VERBATIM)
    install(FILES ${picture} DESTINATION ${themeFolder}/${size}x${size}/apps)
    list(APPEND pictures ${picture})
  endforeach()
  add_custom_target(tarnwell_pictures DEPENDS ${pictures})
  add_dependencies(tarnwell tarnwell_pictures)
else()
  message(STATUS "No rsvg-convert: the program's icon is installed only as it was drawn")
endif()
