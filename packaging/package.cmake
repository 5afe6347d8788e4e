# What is installed, and the Debian package: `cmake --workflow --preset release` makes it.
include(GNUInstallDirs)

install(TARGETS tarnwick RUNTIME)
install(FILES data/Sites.dat DESTINATION ${CMAKE_INSTALL_DATADIR}/tarnwick)
install(FILES packaging/tarnwick.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tarnwick.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/tarnwick.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES docs/manual.md docs/receivers.md docs/file-formats.md TYPE DOC)
install(DIRECTORY docs/pictures TYPE DOC FILES_MATCHING PATTERN *.png)
install(FILES LICENSE TYPE DOC RENAME copyright)

# Debian wants these packed, without a time in them.
foreach(text tarnwick.1 changelog)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/${text}.gz
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/packaging/${text} > ${CMAKE_BINARY_DIR}/${text}.gz
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/${text})
  list(APPEND packed ${CMAKE_BINARY_DIR}/${text}.gz)
endforeach()
add_custom_target(packed_texts ALL DEPENDS ${packed})
install(FILES ${CMAKE_BINARY_DIR}/tarnwick.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/changelog.gz TYPE DOC)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnwick)
set(CPACK_PACKAGE_VENDOR "The Tarnwick authors")
set(CPACK_PACKAGE_CONTACT "The Tarnwick authors <tarnwick@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "locators, grid references and bearings from a hilltop")
set(CPACK_PACKAGE_DESCRIPTION
"Type a place in any everyday form into one box: part of a site's name, a
Maidenhead locator, a British National Grid reference, a latitude and
longitude. Tarnwick shows it in every other form, with the accuracy that the
input warrants, and from a home station its distance, bearing and back
bearing, with a compass. It searches a plain text database of sites, writes
listing files, opens maps, and follows a GPS receiver on a serial port.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The icon of the windows is read by a plugin that no library names.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, xdg-utils")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
