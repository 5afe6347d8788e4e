set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
set(triplet arm-linux-gnueabihf)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
