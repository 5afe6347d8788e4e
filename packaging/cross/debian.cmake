# Debian's cross compiler for `triplet`, with the libraries of that architecture that are installed
# beside the build machine's own (multiarch). Included by ARCH.cmake.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})

# moc and rcc run during the build: they come from the Qt of the build machine.
execute_process(COMMAND dpkg-architecture -qDEB_BUILD_MULTIARCH
                OUTPUT_VARIABLE build_triplet OUTPUT_STRIP_TRAILING_WHITESPACE)
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${build_triplet}/cmake)
