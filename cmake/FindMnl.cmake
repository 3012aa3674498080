# The library for the kernel's netlink messages: target Mnl::Mnl.
find_path(Mnl_INCLUDE_DIR libmnl/libmnl.h)
find_library(Mnl_LIBRARY NAMES mnl)
mark_as_advanced(Mnl_INCLUDE_DIR Mnl_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Mnl DEFAULT_MSG Mnl_LIBRARY Mnl_INCLUDE_DIR)

if(Mnl_FOUND AND NOT TARGET Mnl::Mnl)
    add_library(Mnl::Mnl UNKNOWN IMPORTED)
    set_target_properties(Mnl::Mnl PROPERTIES
        IMPORTED_LOCATION "${Mnl_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Mnl_INCLUDE_DIR}")
endif()
