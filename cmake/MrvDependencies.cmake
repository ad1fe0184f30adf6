# What the library and its host are built from. scripts/install-dependencies.sh brings all of it.

find_package(Threads REQUIRED)
find_package(RapidXML REQUIRED)
find_package(LodePNG REQUIRED)
find_package(nlohmann_json REQUIRED)

if(MRV_REQUIRE_BREAKPAD)
    find_package(Breakpad REQUIRED)
else()
    find_package(Breakpad QUIET)
    if(NOT Breakpad_FOUND)
        message(WARNING "Breakpad was not found: the library is built WITHOUT crash capture. "
                        "scripts/install-dependencies.sh builds it.")
    endif()
endif()

if(MRV_BUILD_HOSTS)
    find_package(CLI11 REQUIRED)
    # By pkg-config: Assimp's own CMake package names targets that Debian does not bring.
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(Assimp REQUIRED IMPORTED_TARGET assimp)
    pkg_check_modules(Cairo REQUIRED IMPORTED_TARGET cairo)
endif()
if(MRV_BUILD_TESTS OR MRV_BUILD_FUZZ)
    find_package(GTest REQUIRED)
endif()
if(MRV_BUILD_BENCHMARKS)
    find_package(benchmark REQUIRED)
    # The peers; a benchmark whose peer is missing is left out, and that of the log runs alone.
    find_package(spdlog QUIET)
    find_package(glm QUIET)
    find_package(Eigen3 QUIET NO_MODULE)
    find_package(TBB QUIET)
    find_package(CGAL QUIET)
    find_package(embree 3 QUIET)
    find_path(cereal_INCLUDE_DIR cereal/cereal.hpp)
endif()
