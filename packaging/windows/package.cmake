# The icon and the version that Windows shows, and the zip for users: `cpack` in the build folder.
enable_language(RC)

set(resources ${CMAKE_BINARY_DIR}/resources)
file(MAKE_DIRECTORY ${resources})
set(drawing ${CMAKE_SOURCE_DIR}/packaging/tarnwick.svg)
foreach(size 256 16 24 32 48 64)
  add_custom_command(OUTPUT ${resources}/${size}.png DEPENDS ${drawing}
    COMMAND rsvg-convert -w ${size} -h ${size} -o ${resources}/${size}.png ${drawing})
  list(APPEND sizes ${resources}/${size}.png)
endforeach()
add_custom_command(OUTPUT ${resources}/tarnwick.ico DEPENDS ${sizes}
  COMMAND icotool -c -o ${resources}/tarnwick.ico --raw=${sizes})
configure_file(${CMAKE_CURRENT_LIST_DIR}/tarnwick.rc.in ${resources}/tarnwick.rc @ONLY)
set_source_files_properties(${resources}/tarnwick.rc PROPERTIES OBJECT_DEPENDS
  "${resources}/tarnwick.ico;${CMAKE_CURRENT_LIST_DIR}/tarnwick.manifest")
add_library(tarnwick_resources OBJECT ${resources}/tarnwick.rc)
target_include_directories(tarnwick_resources PRIVATE ${resources} ${CMAKE_CURRENT_LIST_DIR})
target_link_libraries(tarnwick PRIVATE tarnwick_resources)

install(TARGETS tarnwick RUNTIME DESTINATION .)
configure_file(${CMAKE_CURRENT_LIST_DIR}/README.txt ${resources}/README.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES ${resources}/README.txt DESTINATION .)
# The program reads drive c: of its own folder where the real one has no such file.
install(FILES data/Sites.dat DESTINATION geog)
if(TARNWICK_MANUAL)
  install(DIRECTORY ${TARNWICK_MANUAL}/ DESTINATION manual)
endif()
install(FILES LICENSE DESTINATION licences RENAME Tarnwick.txt)
# The licences of what is linked into the program: Qt with the libraries inside it, and the compiler's
# runtime.
get_filename_component(qt ${Qt6_DIR}/../../.. ABSOLUTE)
install(DIRECTORY ${qt}/licences/ DESTINATION licences/Qt OPTIONAL)
install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright DESTINATION licences RENAME GCC.txt)
install(FILES /usr/share/doc/mingw-w64-common/copyright DESTINATION licences RENAME MinGW-w64.txt)
install(FILES /usr/share/common-licenses/GPL-3 DESTINATION licences RENAME GPL-3.txt)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME tarnwick-${PROJECT_VERSION}-windows)
set(CPACK_STRIP_FILES ON)
include(CPack)
