# The library that reads a board's sensors: target LmSensors::LmSensors. Its name is that of one of
# this project's own targets, so the shared file is named in full.
find_path(LmSensors_INCLUDE_DIR sensors/sensors.h)
find_library(LmSensors_LIBRARY NAMES libsensors.so)
mark_as_advanced(LmSensors_INCLUDE_DIR LmSensors_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LmSensors DEFAULT_MSG LmSensors_LIBRARY LmSensors_INCLUDE_DIR)

if(LmSensors_FOUND AND NOT TARGET LmSensors::LmSensors)
    add_library(LmSensors::LmSensors SHARED IMPORTED)
    set_target_properties(LmSensors::LmSensors PROPERTIES
        IMPORTED_LOCATION "${LmSensors_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${LmSensors_INCLUDE_DIR}")
endif()
