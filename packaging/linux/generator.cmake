# Read by cpack for each kind of package.
if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr/${CPACK_PROGRAM_FOLDER})
    # Each package has its own.
    set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
endif()
