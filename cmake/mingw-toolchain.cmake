# Builds for 64 bit Windows on a Linux machine.
#
#   cmake -S . -B build/windows -G Ninja \
#         -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-toolchain.cmake \
#         -DCMAKE_PREFIX_PATH="$(tools/wx-windows)"

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The compiler comes in two variants. Only the "posix" one has std::thread and
# std::mutex; the plain names may point at either, so they are not used here.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The .exe is copied to workshop machines on its own, so the compiler's run-time
# libraries (libgcc, libstdc++, winpthread) have to be inside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")

# Programs found on this machine are of use while building, but one of its
# headers, libraries or packages in a Windows program is always a mistake. So
# these are searched for only among the cross compiler's own and in the folders
# that CMAKE_PREFIX_PATH names.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The headers of wxWidgets put their own file names into the program. The folder
# they lie in says who built it, and where; it has no place in there.
foreach(folder IN LISTS CMAKE_PREFIX_PATH)
  string(APPEND CMAKE_CXX_FLAGS_INIT " -ffile-prefix-map=${folder}/include=wx/include")
endforeach()

# Runs what was built: ctest, gtest_discover_tests and try_run put this before
# the .exe. It is wine with settings and a wine folder of its own, so that
# neither the user's wine nor a question it may ask gets in the way.
if(NOT DEFINED CMAKE_CROSSCOMPILING_EMULATOR)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../tools/wine-test")
endif()
