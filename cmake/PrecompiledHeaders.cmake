# Qt's headers take longer to read than most sources take to compile. precompile_headers() has them
# read once for each kind of target. Sources still include all that they use: clang-tidy reads them
# without these.

set(precompiled_Core
    <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QJsonArray> <QJsonDocument>
    <QJsonObject> <QList> <QMap> <QObject> <QRegularExpression> <QString> <QStringList> <QTextStream>
    <QTimer> <QVariant> <QVector>
    <algorithm> <array> <chrono> <cmath> <functional> <memory> <optional> <string> <vector>)
set(precompiled_Network <QHostAddress> <QTcpServer> <QTcpSocket>)
set(precompiled_WebSockets <QWebSocket> <QWebSocketServer>)
set(precompiled_Gui <QColor> <QFont> <QFontMetrics> <QGuiApplication> <QImage> <QPainter>)
set(precompiled_Widgets <QApplication> <QComboBox> <QLabel> <QLayout> <QLineEdit> <QMenu> <QWidget>)
set(precompiled_Test <QtTest> <QProcess> <QTemporaryDir>)

set(precompiled_modules Core Network WebSockets Gui Widgets Test)

# The kinds, the best first: the Qt modules whose headers they hold.
set(precompiled_kinds widgets sockets core)
set(modules_of_widgets Core Network WebSockets Gui Widgets)
set(modules_of_sockets Core Network WebSockets)
set(modules_of_core Core)
# QtTest's headers ask what other modules there are, so these suit no target with more of them.
set(precompiled_test_kinds test test_gui test_widgets)
set(modules_of_test Core Network WebSockets Test)
set(modules_of_test_gui ${modules_of_test} Gui)
set(modules_of_test_widgets ${modules_of_test} Gui Widgets)

# qt_modules(VARIABLE TARGET): which of the modules above TARGET compiles with.
function(qt_modules variable target)
    set(modules)
    set(seen ${target})
    set(queue ${target})
    while(queue)
        list(POP_FRONT queue current)
        set(property INTERFACE_LINK_LIBRARIES)
        if(current STREQUAL target)
            set(property LINK_LIBRARIES)
        elseif(current MATCHES "^Qt[56]?::(.+)$" AND CMAKE_MATCH_1 IN_LIST precompiled_modules)
            list(APPEND modules ${CMAKE_MATCH_1})
        endif()
        get_target_property(libraries ${current} ${property})
        foreach(library IN LISTS libraries)
            if(TARGET "${library}" AND NOT library IN_LIST seen)
                list(APPEND seen ${library})
                list(APPEND queue ${library})
            endif()
        endforeach()
    endwhile()
    list(REMOVE_DUPLICATES modules)
    set(${variable} ${modules} PARENT_SCOPE)
endfunction()

# kind_of_headers(VARIABLE TARGET): the kind of precompiled headers that suits TARGET; empty for none.
function(kind_of_headers variable target)
    qt_modules(modules ${target})
    get_target_property(folder ${target} SOURCE_DIR)
    cmake_path(IS_PREFIX TESTS_FOLDER ${folder} is_test)
    set(${variable} "" PARENT_SCOPE)
    if(is_test)
        list(SORT modules)
        foreach(kind IN LISTS precompiled_test_kinds)
            list(SORT modules_of_${kind})
            if(modules STREQUAL "${modules_of_${kind}}")
                set(${variable} ${kind} PARENT_SCOPE)
            endif()
        endforeach()
        return()
    endif()
    foreach(kind IN LISTS precompiled_kinds)
        set(missing ${modules_of_${kind}})
        list(REMOVE_ITEM missing ${modules})
        if(NOT missing)
            set(${variable} ${kind} PARENT_SCOPE)
            return()
        endif()
    endforeach()
endfunction()

# add_headers(NAME KIND VISIBILITY): the target that owns the precompiled headers of KIND.
function(add_headers name kind visibility)
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp)
    list(TRANSFORM modules_of_${kind} PREPEND Qt:: OUTPUT_VARIABLE libraries)
    target_link_libraries(${name} PRIVATE ${libraries})
    foreach(module IN LISTS modules_of_${kind})
        target_precompile_headers(${name} PRIVATE ${precompiled_${module}})
    endforeach()
    set_project_warnings(${name})
    if(kind IN_LIST precompiled_test_kinds)
        target_compile_options(${name} PRIVATE ${TEST_COMPILE_OPTIONS})
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
    if(visibility)
        set_target_properties(${name} PROPERTIES
            CXX_VISIBILITY_PRESET ${visibility}
            VISIBILITY_INLINES_HIDDEN ON)
    endif()
endfunction()

# targets_below(VARIABLE FOLDER): every target that FOLDER and those below it define.
function(targets_below variable folder)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder IN LISTS subfolders)
        targets_below(more ${subfolder})
        list(APPEND targets ${more})
    endforeach()
    set(${variable} ${targets} PARENT_SCOPE)
endfunction()

# Call this when all targets are known.
function(precompile_headers)
    set(TESTS_FOLDER ${PROJECT_SOURCE_DIR}/tests)
    if(TARGET Qt6::Test)
        # It would tell each test its own folder, and no common headers would suit; Qt 5 tells all the same.
        set_property(TARGET Qt6::Test PROPERTY INTERFACE_COMPILE_DEFINITIONS
            QT_TESTLIB_LIB QT_TESTCASE_BUILDDIR="${CMAKE_BINARY_DIR}")
    endif()
    targets_below(targets ${PROJECT_SOURCE_DIR})
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        get_target_property(sources ${target} SOURCES)
        if(NOT type MATCHES "EXECUTABLE|_LIBRARY" OR NOT "${sources}" MATCHES "\\.cpp")
            continue()
        endif()
        kind_of_headers(kind ${target})
        if(NOT kind)
            continue()
        endif()
        get_target_property(visibility ${target} CXX_VISIBILITY_PRESET)
        set(owner precompiled_${kind})
        if(visibility)
            set(owner ${owner}_${visibility})
        else()
            set(visibility "")
        endif()
        if(NOT TARGET ${owner})
            add_headers(${owner} ${kind} "${visibility}")
        endif()
        target_precompile_headers(${target} REUSE_FROM ${owner})
        if(type STREQUAL EXECUTABLE)
            # Hardly ever is there anything in it: programs include what moc makes of their source.
            get_target_property(folder ${target} BINARY_DIR)
            set_source_files_properties(${folder}/${target}_autogen/mocs_compilation.cpp
                TARGET_DIRECTORY ${target}
                PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
        endif()
    endforeach()
endfunction()
