# CMake toolchain for the Windows build: Debian's mingw-w64 cross compiler with POSIX threads
# (std::thread and std::mutex need them), 64-bit. tools/windows.sh uses it; by hand:
#   cmake -S . -B build-win -G Ninja -DCMAKE_TOOLCHAIN_FILE=tools/mingw-w64-x86_64.cmake \
#     -DORV_WIN_PREFIXES="<prefix>;<prefix>..."
# ORV_WIN_PREFIXES lists the install folders of the cross-built libraries (pugixml, libsodium,
# libcurl, GoogleTest, the header-only fmt and nlohmann json); zlib comes from the toolchain's own
# root (libz-mingw-w64-dev). Test programs run under Wine, in a Wine prefix of the build's own.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ORV_WIN_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${ORV_WIN_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ORV_WIN_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${ORV_WIN_TRIPLE}-windres)

# try_compile projects read this file again; they need the same prefixes.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORV_WIN_PREFIXES)

set(CMAKE_FIND_ROOT_PATH /usr/${ORV_WIN_TRIPLE} ${ORV_WIN_PREFIXES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config (libsodium) looks only at the cross-built libraries, never at the host's.
set(orv_pc_dirs "")
foreach(prefix ${ORV_WIN_PREFIXES})
  list(APPEND orv_pc_dirs ${prefix}/lib/pkgconfig)
endforeach()
string(REPLACE ";" ":" orv_pc_dirs "${orv_pc_dirs}")
set(ENV{PKG_CONFIG_LIBDIR} "${orv_pc_dirs}")
set(ENV{PKG_CONFIG_PATH} "")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "")

# The toolchain's runtime (libstdc++, libgcc, winpthread) goes into the exe: it needs no DLL
# beyond those of Windows itself.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# Windows programs built here run under Wine: tests through CTest, the smoke run by hand.
find_program(ORV_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(ORV_WINE AND CMAKE_BINARY_DIR)
  set(ORV_WINEPREFIX "${CMAKE_BINARY_DIR}/wine" CACHE PATH "Wine prefix of the Windows test programs")
  set(CMAKE_CROSSCOMPILING_EMULATOR
    ${CMAKE_COMMAND} -E env WINEPREFIX=${ORV_WINEPREFIX} WINEDEBUG=-all ${ORV_WINE})
endif()
