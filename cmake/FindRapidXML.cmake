# Finds RapidXML, which is headers only, and defines RapidXML::RapidXML.

find_path(RapidXML_INCLUDE_DIR rapidxml/rapidxml.hpp)
mark_as_advanced(RapidXML_INCLUDE_DIR)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(RapidXML
    REQUIRED_VARS RapidXML_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "Debian's package is librapidxml-dev.")

if(RapidXML_FOUND AND NOT TARGET RapidXML::RapidXML)
    # The include folders of an imported target are system folders: no warnings from there.
    add_library(RapidXML::RapidXML INTERFACE IMPORTED)
    set_target_properties(RapidXML::RapidXML PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${RapidXML_INCLUDE_DIR}")
endif()
