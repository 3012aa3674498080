# Cross-compiles for Windows with MinGW-w64 (posix threads). Qt for it is searched below the folder
# that the environment variable QT5_MINGW names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

if(DEFINED ENV{QT5_MINGW})
    set(qt $ENV{QT5_MINGW})
else()
    set(qt /opt/qt5-mingw)
endif()
set(CMAKE_FIND_ROOT_PATH ${qt} /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
