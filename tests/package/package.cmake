# cmake -DMODE=… -DSOURCE_DIR=… -DBUILD_DIR=… -DWORK_DIR=… -DBUILD_TYPE=… -P package.cmake
#
# installed      a consumer against an installed product and SDK
# subdirectory   a consumer that has the project as a folder
# sdk            the product alone, built against an installed SDK and with QXlsx found; then as "installed"

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(configure_and_build source binary target)
    run("${CMAKE_COMMAND}" -S "${source}" -B "${binary}" -G Ninja "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}" ${ARGN})
    set(configured "${output}")
    run("${CMAKE_COMMAND}" --build "${binary}" --target ${target})
    set(output "${configured}" PARENT_SCOPE)
endfunction()

function(run_consumer binary)
    run("${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${binary}/consumer")
endfunction()

find_program(ccache ccache)
if(ccache)
    set(ENV{CMAKE_CXX_COMPILER_LAUNCHER} "${ccache}")
    set(ENV{CCACHE_SLOPPINESS} "pch_defines,time_macros,include_file_mtime,include_file_ctime")
endif()

set(prefix "${WORK_DIR}/prefix")
file(REMOVE_RECURSE "${prefix}")
run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}" --component sdk)

if(MODE STREQUAL "installed")
    run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}" --component product)
    configure_and_build("${SOURCE_DIR}/tests/package/consumer" "${WORK_DIR}/consumer" consumer
        "-DCMAKE_PREFIX_PATH=${prefix}")
    run_consumer("${WORK_DIR}/consumer")
elseif(MODE STREQUAL "subdirectory")
    configure_and_build("${SOURCE_DIR}/tests/package/outer" "${WORK_DIR}/outer" consumer
        "-DTALVIX_SOURCE_DIR=${SOURCE_DIR}")
    run_consumer("${WORK_DIR}/outer")
elseif(MODE STREQUAL "sdk")
    configure_and_build("${SOURCE_DIR}" "${WORK_DIR}/product" all
        "-DTALVIX_SDK_DIR=${prefix}" "-DQXlsxQt6_DIR=${SOURCE_DIR}/tests/package/qxlsx")
    if(NOT output MATCHES "QXlsx: linked")
        message(FATAL_ERROR "QXlsx was not linked:\n${output}")
    endif()
    if(EXISTS "${WORK_DIR}/product/devhost" OR EXISTS "${WORK_DIR}/product/tests")
        message(FATAL_ERROR "devhost and tests must be left out with a host's own SDK")
    endif()
    run("${CMAKE_COMMAND}" --install "${WORK_DIR}/product" --prefix "${prefix}" --component product)
    configure_and_build("${SOURCE_DIR}/tests/package/consumer" "${WORK_DIR}/consumer" consumer
        "-DCMAKE_PREFIX_PATH=${prefix}")
    run_consumer("${WORK_DIR}/consumer")
else()
    message(FATAL_ERROR "Unknown mode '${MODE}'")
endif()
