# Finds Qt5::WebSockets. A cross build may do with their headers alone: then everything compiles,
# and the executables that need them are left unlinked.
if(NOT CMAKE_CROSSCOMPILING)
    find_package(Qt5WebSockets 5.15 REQUIRED)
else()
    find_package(Qt5WebSockets 5.15 QUIET)
endif()

if(NOT Qt5WebSockets_FOUND)
    # The host's, whose library folder CMake does not know while it cross-compiles.
    file(GLOB host_qt_headers /usr/include/qt5 /usr/include/*/qt5)
    find_path(QT5_WEBSOCKETS_HEADERS QtWebSockets/QWebSocket
        HINTS ${host_qt_headers} REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    message(STATUS "Qt's WebSockets: headers only, in ${QT5_WEBSOCKETS_HEADERS}")
    # Beside them lie the headers of the host's Qt, which must not be found.
    set(headers ${PROJECT_BINARY_DIR}/websockets_headers)
    file(MAKE_DIRECTORY ${headers})
    file(CREATE_LINK ${QT5_WEBSOCKETS_HEADERS}/QtWebSockets ${headers}/QtWebSockets SYMBOLIC)
    add_library(Qt5::WebSockets INTERFACE IMPORTED)
    target_include_directories(Qt5::WebSockets INTERFACE ${headers} ${headers}/QtWebSockets)
    target_link_libraries(Qt5::WebSockets INTERFACE Qt5::Network)
endif()

# add_websocket_executable(NAME ...): add_executable for a program that links Qt5::WebSockets; its
# objects alone where there are only headers.
function(add_websocket_executable name)
    if(Qt5WebSockets_FOUND)
        add_executable(${name} ${ARGN})
    else()
        list(REMOVE_ITEM ARGN WIN32)
        add_library(${name} OBJECT ${ARGN})
    endif()
endfunction()
