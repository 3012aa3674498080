# Archives name their files in an order that differs from disk to disk, and their owner: with
# SOURCE_DATE_EPOCH they are packed anew, where the tools for that are.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH parent)
    cmake_path(GET CPACK_TEMPORARY_DIRECTORY FILENAME folder)
    find_program(PYTHON python3)
    foreach(file IN LISTS CPACK_PACKAGE_FILES)
        if(file MATCHES "\\.deb$")
            execute_process(
                COMMAND ${CMAKE_CURRENT_LIST_DIR}/linux/set_installed_size ${file}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
        elseif(file MATCHES "\\.tar\\.gz$")
            execute_process(
                COMMAND tar --create --sort=name --owner=root:0 --group=root:0 --format=gnu
                    --mtime @$ENV{SOURCE_DATE_EPOCH} --file - ${folder}
                COMMAND gzip --best --no-name
                OUTPUT_FILE ${file}
                WORKING_DIRECTORY ${parent}
                COMMAND_ERROR_IS_FATAL ANY)
        elseif(file MATCHES "\\.zip$" AND PYTHON)
            execute_process(
                COMMAND ${PYTHON} ${CMAKE_CURRENT_LIST_DIR}/windows/make_zip
                    ${file} ${CPACK_TEMPORARY_DIRECTORY}
                COMMAND_ERROR_IS_FATAL ANY)
        endif()
    endforeach()
endif()
