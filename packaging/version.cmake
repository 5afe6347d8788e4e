# Checks that CHANGELOG.md and the project agree on the version, and reads from it what the man page and
# the metainfo say of the releases: TARNWICK_DATE, the date of this version, and TARNWICK_RELEASES.
set(changelog ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
file(READ ${changelog} text)
string(REGEX MATCHALL "\n## [0-9.]+ - [0-9-]+\n" headings "${text}")
set(TARNWICK_RELEASES "")
set(TARNWICK_DATE "")
foreach(heading IN LISTS headings)
  string(REGEX MATCH "## ([0-9.]+) - ([0-9-]+)" heading "${heading}")
  if(NOT TARNWICK_DATE)
    set(TARNWICK_DATE ${CMAKE_MATCH_2})
    if(NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
      message(FATAL_ERROR
        "CMakeLists.txt has version ${PROJECT_VERSION}; CHANGELOG.md begins with ${CMAKE_MATCH_1}")
    endif()
  endif()
  string(APPEND TARNWICK_RELEASES
    "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>\n")
endforeach()
if(NOT TARNWICK_DATE)
  message(FATAL_ERROR "CHANGELOG.md has no heading such as: ## ${PROJECT_VERSION} - 2026-11-23")
endif()
