# One static library per top-level folder; includes are written from the root of the tree.
function(add_folder_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    set_project_warnings(${name})
endfunction()

# Adds BASE_linux.cpp or BASE_windows.cpp for every BASE named.
function(target_platform_sources target)
    if(WIN32)
        set(platform windows)
    else()
        set(platform linux)
    endif()
    foreach(base IN LISTS ARGN)
        target_sources(${target} PRIVATE ${base}_${platform}.cpp)
    endforeach()
endfunction()
