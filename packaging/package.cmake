# What is installed, and the Debian package: `cmake --workflow --preset release` makes it.
include(GNUInstallDirs)

# The project has no web address. A publisher can set one here; the metainfo and the package then name
# that address, and the manual's pictures below it as screenshots.
set(TARNWICK_HOMEPAGE "" CACHE STRING "Web address of the project, such as https://host/tarnwick")
set(TARNWICK_WEB "")
if(TARNWICK_HOMEPAGE)
  set(TARNWICK_WEB "  <url type=\"homepage\">${TARNWICK_HOMEPAGE}/</url>
  <screenshots>
    <screenshot type=\"default\">
      <caption>Distance, bearing and compass from the home station</caption>
      <image>${TARNWICK_HOMEPAGE}/docs/pictures/home.png</image>
    </screenshot>
    <screenshot>
      <caption>The limits of a listing</caption>
      <image>${TARNWICK_HOMEPAGE}/docs/pictures/listing.png</image>
    </screenshot>
  </screenshots>")
  set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${TARNWICK_HOMEPAGE})
endif()

set(id org.tarnwick.tarnwick)
set(texts ${CMAKE_BINARY_DIR}/texts)
configure_file(packaging/${id}.metainfo.xml.in ${texts}/${id}.metainfo.xml @ONLY)

install(TARGETS tarnwick RUNTIME)
# The program reads drive c: of this folder where the user's own has no such file.
install(FILES data/Sites.dat DESTINATION ${CMAKE_INSTALL_DATADIR}/tarnwick/drive_c/geog)
install(FILES packaging/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tarnwick.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${texts}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES LICENSE TYPE DOC RENAME copyright)
if(TARNWICK_MANUAL)
  install(DIRECTORY ${TARNWICK_MANUAL}/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/html)
endif()

# Debian wants the man page and the changelog compressed, without a time stamp inside.
configure_file(packaging/tarnwick.1.in ${texts}/tarnwick.1 @ONLY)
add_custom_command(OUTPUT ${texts}/tarnwick.1.gz
  COMMAND gzip -9nc ${texts}/tarnwick.1 > ${texts}/tarnwick.1.gz
  DEPENDS ${texts}/tarnwick.1)
add_custom_command(OUTPUT ${texts}/changelog.gz
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/debian_changelog.sh ${changelog} > ${texts}/changelog
  COMMAND gzip -9nc ${texts}/changelog > ${texts}/changelog.gz
  DEPENDS ${changelog} ${CMAKE_CURRENT_LIST_DIR}/debian_changelog.sh)
add_custom_target(packed_texts ALL DEPENDS ${texts}/tarnwick.1.gz ${texts}/changelog.gz)
install(FILES ${texts}/tarnwick.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${texts}/changelog.gz TYPE DOC)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnwick)
set(CPACK_PACKAGE_VENDOR "The Tarnwick authors")
set(CPACK_PACKAGE_CONTACT "The Tarnwick authors <tarnwick@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "locators, grid references and bearings from a hilltop")
set(CPACK_PACKAGE_DESCRIPTION
"Type a place in any usual form into one box: part of a site's name, a
Maidenhead locator, a British National Grid reference, or a latitude and
longitude. Tarnwick shows it in every other form, with the accuracy that the
input supports. From a home station it shows the distance, bearing and back
bearing of each place, with a compass. It searches a plain text database of
sites, writes listing files, opens maps, and follows a GPS receiver on a
serial port.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# A plugin that no library depends on reads the icon of the windows.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, xdg-utils")
# For Wayland desktops without Xwayland.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
