# The manual as one HTML page, made from the texts in docs by pandoc: manual/index.html in the build
# folder, with its pictures. Without pandoc the page is left out. Sets TARNWICK_MANUAL to that folder, or to
# nothing.
set(TARNWICK_MANUAL "")
find_program(PANDOC pandoc)
if(NOT PANDOC)
  message(STATUS "No pandoc: the HTML manual is not built")
  return()
endif()

set(TARNWICK_MANUAL ${CMAKE_BINARY_DIR}/manual)
set(pages ${CMAKE_SOURCE_DIR}/docs/manual.md ${CMAKE_SOURCE_DIR}/docs/receivers.md
          ${CMAKE_SOURCE_DIR}/docs/file-formats.md)
file(GLOB pictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/pictures/*.png)
set(style ${CMAKE_CURRENT_LIST_DIR}/style.html)
set(filter ${CMAKE_CURRENT_LIST_DIR}/one_page.lua)
add_custom_command(OUTPUT ${TARNWICK_MANUAL}/index.html
  COMMAND ${CMAKE_COMMAND} -E make_directory ${TARNWICK_MANUAL}/pictures
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${pictures} ${TARNWICK_MANUAL}/pictures
  COMMAND ${PANDOC} --from gfm --to html5 --standalone --toc --toc-depth 2
    --metadata "pagetitle=Tarnwick ${PROJECT_VERSION}: manual" --metadata lang=en-GB
    --metadata toc-title=Contents --include-in-header ${style} --lua-filter ${filter}
    --output ${TARNWICK_MANUAL}/index.html ${pages}
  DEPENDS ${pages} ${pictures} ${style} ${filter}
  VERBATIM)
add_custom_target(manual ALL DEPENDS ${TARNWICK_MANUAL}/index.html)
