# Finds LodePNG and defines LodePNG::LodePNG.

find_path(LodePNG_INCLUDE_DIR lodepng.h)
find_library(LodePNG_LIBRARY lodepng)
mark_as_advanced(LodePNG_INCLUDE_DIR LodePNG_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LodePNG
    REQUIRED_VARS LodePNG_LIBRARY LodePNG_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "Debian's package is liblodepng-dev.")

if(LodePNG_FOUND AND NOT TARGET LodePNG::LodePNG)
    add_library(LodePNG::LodePNG UNKNOWN IMPORTED)
    set_target_properties(LodePNG::LodePNG PROPERTIES
        IMPORTED_LOCATION "${LodePNG_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${LodePNG_INCLUDE_DIR}")
endif()
