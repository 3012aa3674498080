# The plugin with its library, and the simulator with the recorder: everything in a folder of the
# plugin's package, where the programs find each other, and what the system finds elsewhere.
include(PackageNames)

find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(DPKG_SHLIBDEPS)
if(DPKG_SHLIBDEPS)
    list(APPEND CPACK_GENERATOR DEB)
endif()

set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/linux/generator.cmake)
set(CPACK_PROGRAM_FOLDER ${program_folder})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL plugin tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME ${plugin_package})
set(CPACK_DEBIAN_PLUGIN_PACKAGE_DEPENDS fonts-roboto-unhinted)
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SUGGESTS "${tools_package}, fonts-wqy-microhei | fonts-noto-cjk")
set(CPACK_DEBIAN_PLUGIN_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION_SUMMARY}
A plugin for the host of a control deck: each LCD key shows one live reading
of the machine, such as load, temperatures, memory, drives and network, as
text, bar, ring or graph. The host starts it.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${tools_package})
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${plugin_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "Simulated control deck and recorder of sensors
The deck simulator shows the keys of a control deck in a window or in the
terminal, without the device. The recorder writes what can be read of a
machine to a file, which the simulator shows on another one.")
