# The permissions of folders are those that the caller of cpack gives to new ones, unless they are set here.
set(permissions OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
file(CHMOD_RECURSE "${CPACK_TEMPORARY_DIRECTORY}" DIRECTORY_PERMISSIONS ${permissions})

# Gives every file of a package the time in SOURCE_DATE_EPOCH, if there is one.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    file(GLOB_RECURSE entries LIST_DIRECTORIES true "${CPACK_TEMPORARY_DIRECTORY}/*")
    foreach(entry IN LISTS entries)
        execute_process(COMMAND touch --no-dereference --date "@$ENV{SOURCE_DATE_EPOCH}" "${entry}"
            COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
endif()
