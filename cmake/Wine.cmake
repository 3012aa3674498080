# Lets Wine run what the targets of the calling folder, and of those below, are compiled to.
include(WindowsRuntime)
windows_runtime(libraries)
get_target_property(qt_core Qt${QT_VERSION_MAJOR}::Core IMPORTED_LOCATION_RELEASE)
set(folders ${CMAKE_BINARY_DIR}/bin)
foreach(library IN LISTS qt_core libraries)
    get_filename_component(folder ${library} DIRECTORY)
    list(APPEND folders ${folder})
endforeach()
list(REMOVE_DUPLICATES folders)
list(JOIN folders ":" folders)
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${PROJECT_SOURCE_DIR}/tests/support/wine.sh ${CMAKE_BINARY_DIR}/wine ${folders})
