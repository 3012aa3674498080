# What cpack makes of a build folder: on Windows an archive and an installer, elsewhere an archive and,
# where there are Debian's tools, two packages.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_VENDOR ${PROJECT_NAME})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Hardware gauges for the keys of a control deck")
set(CPACK_PACKAGE_INSTALL_DIRECTORY ${PROJECT_NAME})
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY ${PROJECT_NAME})
set(CPACK_SOURCE_GENERATOR "")
# With the environment variable SOURCE_DATE_EPOCH, equal trees give equal packages.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/prepare_files.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/finish_packages.cmake)

if(WIN32)
    set(CPACK_GENERATOR ZIP NSIS)
    set(CPACK_MONOLITHIC_INSTALL ON)
    list(APPEND CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/windows/list_files.cmake)
    set(CPACK_MODULE_PATH ${PROJECT_SOURCE_DIR}/packaging/windows)
    set(CPACK_NSIS_EXECUTABLE_PRE_ARGUMENTS -INPUTCHARSET UTF8)
    set(CPACK_NSIS_COMPRESSOR "/SOLID lzma")
    set(CPACK_NSIS_MUI_ICON ${PROJECT_SOURCE_DIR}/packaging/windows/QtSystemMonitor.ico)
    # NSIS for Windows has installers of 32 bits only.
    if(NOT CMAKE_HOST_WIN32)
        set(CPACK_NSIS_DEFINES "Target amd64-unicode")
    endif()
else()
    set(CPACK_GENERATOR TGZ)
    set(CPACK_STRIP_FILES ON)
    include(DebianPackages)
endif()

include(CPack)
