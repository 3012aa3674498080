# windows_runtime(VARIABLE): the libraries of the MinGW compiler that programs need beside them.
# None for other compilers.
function(windows_runtime variable)
    set(libraries)
    if(MINGW)
        foreach(name libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
            execute_process(
                COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
                OUTPUT_VARIABLE library
                OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
            file(REAL_PATH "${library}" library)
            list(APPEND libraries ${library})
        endforeach()
    endif()
    set(${variable} ${libraries} PARENT_SCOPE)
endfunction()
