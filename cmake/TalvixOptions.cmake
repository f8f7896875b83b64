# PROJECT_IS_TOP_LEVEL tells a build of this project from a use inside another one.
if(PROJECT_IS_TOP_LEVEL AND NOT TALVIX_SDK_DIR)
    set(talvix_standalone ON)
else()
    set(talvix_standalone OFF)
endif()

set(TALVIX_SDK_DIR "" CACHE PATH "Host's own TalvixWidgets, TalvixModel and TalvixMessages; empty: ours")
option(TALVIX_BUILD_TESTS "Build the tests" ${talvix_standalone})
option(TALVIX_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(TALVIX_BUILD_DEVHOST "Build the development host" ${talvix_standalone})
option(TALVIX_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
option(TALVIX_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
option(TALVIX_COVERAGE "Build with coverage counters" OFF)
option(TALVIX_BUILD_FUZZERS "Build the fuzz targets; needs clang and the tests" OFF)

if(TALVIX_SDK_DIR AND (TALVIX_BUILD_TESTS OR TALVIX_BUILD_DEVHOST))
    message(STATUS "A host's SDK is given: tests and development host are left out")
    set(TALVIX_BUILD_TESTS OFF)
    set(TALVIX_BUILD_DEVHOST OFF)
endif()

if(PROJECT_IS_TOP_LEVEL)
    if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
        set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
    endif()
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

    find_program(TALVIX_CCACHE ccache)
    if(TALVIX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        # The sloppiness is what ccache asks for with precompiled headers.
        set(CMAKE_CXX_COMPILER_LAUNCHER
            "${CMAKE_COMMAND}" -E env
            "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime"
            "CCACHE_NOHASHDIR=1"
            "${TALVIX_CCACHE}")
    endif()

    find_program(TALVIX_MOLD mold)
    if(TALVIX_MOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_link_options(-fuse-ld=mold)
    endif()
endif()
