# Finds the client library of Breakpad and defines Breakpad::Client.
# Looks in MRV_DEPENDENCIES_PREFIX first, where scripts/install-dependencies.sh puts it.

set(MRV_DEPENDENCIES_PREFIX "${CMAKE_CURRENT_LIST_DIR}/../.deps" CACHE PATH
    "Prefix of the dependencies that no package brings")

find_path(Breakpad_INCLUDE_DIR client/linux/handler/exception_handler.h
    HINTS "${MRV_DEPENDENCIES_PREFIX}/breakpad/include" PATH_SUFFIXES breakpad)
find_library(Breakpad_LIBRARY breakpad_client
    HINTS "${MRV_DEPENDENCIES_PREFIX}/breakpad/lib")
mark_as_advanced(Breakpad_INCLUDE_DIR Breakpad_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Breakpad
    REQUIRED_VARS Breakpad_LIBRARY Breakpad_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "Run scripts/install-dependencies.sh, which builds it.")

if(Breakpad_FOUND AND NOT TARGET Breakpad::Client)
    add_library(Breakpad::Client STATIC IMPORTED)
    set_target_properties(Breakpad::Client PROPERTIES
        IMPORTED_LOCATION "${Breakpad_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Breakpad_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES Threads::Threads)
endif()
