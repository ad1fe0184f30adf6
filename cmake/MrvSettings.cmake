# Language level, code generation and output folders that every target shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()
string(REPLACE "-O3" "-O2" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")

include(GNUInstallDirs)

add_library(mrvSettings INTERFACE)
target_compile_options(mrvSettings INTERFACE
    # Float results are part of the behaviour: no fused multiply-add behind our back.
    -ffp-contract=off
    # Messages and asserts name files relative to the source root, wherever it was built.
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/="
    # Without this one unique symbol would keep the library mapped after dlclose.
    $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
)
target_include_directories(mrvSettings INTERFACE "${PROJECT_SOURCE_DIR}")
