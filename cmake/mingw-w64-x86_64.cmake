# Cross-compiling for 64-bit Windows with Debian's mingw-w64 (POSIX threads),
# running the built programs under Wine.
#
#   cmake -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake
#         [-DNVX_WINDOWS_PREFIX=<folder with the cross-built libraries>]
#         [-DNVX_WINEPREFIX=<Wine prefix folder>]
#
# scripts/windows.sh sets both and runs the whole build and test suite.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(NVX_MINGW_TRIPLET x86_64-w64-mingw32)
# The POSIX-thread variants: std::thread and std::mutex need them.
set(CMAKE_C_COMPILER ${NVX_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${NVX_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${NVX_MINGW_TRIPLET}-windres)
set(CMAKE_AR ${NVX_MINGW_TRIPLET}-ar CACHE FILEPATH "Archiver")
set(CMAKE_RANLIB ${NVX_MINGW_TRIPLET}-ranlib CACHE FILEPATH "Archive indexer")

# Libraries and packages come from the mingw sysroot and the folder of
# cross-built third-party libraries, never from the build machine; programs
# (code generators, scripts) come from the build machine.
if(NOT DEFINED NVX_WINDOWS_PREFIX AND DEFINED ENV{NVX_WINDOWS_PREFIX})
  set(NVX_WINDOWS_PREFIX "$ENV{NVX_WINDOWS_PREFIX}")
endif()
set(CMAKE_FIND_ROOT_PATH /usr/${NVX_MINGW_TRIPLET})
if(NVX_WINDOWS_PREFIX)
  list(PREPEND CMAKE_FIND_ROOT_PATH "${NVX_WINDOWS_PREFIX}")
  # Passed on to try_compile projects, which see only listed variables.
  list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES NVX_WINDOWS_PREFIX)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# pkg-config (run on the build machine) reads only the cross-built .pc files.
set(ENV{PKG_CONFIG_PATH} "")
if(NVX_WINDOWS_PREFIX)
  set(ENV{PKG_CONFIG_LIBDIR}
      "${NVX_WINDOWS_PREFIX}/lib/pkgconfig:/usr/${NVX_MINGW_TRIPLET}/lib/pkgconfig")
else()
  set(ENV{PKG_CONFIG_LIBDIR} "/usr/${NVX_MINGW_TRIPLET}/lib/pkgconfig")
endif()

# The GCC runtime, libstdc++ and winpthread are linked into every program and
# DLL, so the results run under Wine (and on a bare Windows) without the
# mingw runtime DLLs beside them or on a search path. Programs link fully
# static (-static also picks winpthread's archive over its import library).
# DLLs take the GCC runtimes statically and winpthread's archive whole (a
# DLL's own dependencies keep their import libraries); what those archives
# hold is kept out of a DLL's automatic export list.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT
    "-static-libgcc -static-libstdc++ -Wl,-Bstatic,--whole-archive -lwinpthread -Wl,--no-whole-archive,-Bdynamic -Wl,--exclude-libs,libgcc_eh.a:libwinpthread.a")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${CMAKE_SHARED_LINKER_FLAGS_INIT}")

# Test programs (CTest, gtest_discover_tests, try_run) run under Wine with a
# prefix of their own and Wine's debug output off.
if(NOT DEFINED NVX_WINEPREFIX)
  if(DEFINED ENV{WINEPREFIX} AND NOT "$ENV{WINEPREFIX}" STREQUAL "")
    set(NVX_WINEPREFIX "$ENV{WINEPREFIX}")
  else()
    set(NVX_WINEPREFIX "${CMAKE_BINARY_DIR}/wineprefix")
  endif()
endif()
set(NVX_WINEPREFIX "${NVX_WINEPREFIX}" CACHE PATH "Wine prefix the test programs run in")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES NVX_WINEPREFIX)
# Debian's `wine` is a script that picks the loader and warns about a missing
# 32-bit Wine; the 64-bit loader is called directly.
find_program(NVX_WINE_EXECUTABLE NAMES wine64 wine PATHS /usr/lib/wine
             NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_program(NVX_ENV_EXECUTABLE env NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${NVX_ENV_EXECUTABLE} WINEDEBUG=-all "WINEPREFIX=${NVX_WINEPREFIX}" ${NVX_WINE_EXECUTABLE})
