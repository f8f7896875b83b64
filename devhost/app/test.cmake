# What the program's test needs beside the test support. It has the product's objects in itself already, so it links
# the host's parts without the product's libraries: two copies would not do in one process.
target_sources(tst_devhost PRIVATE "${PROJECT_SOURCE_DIR}/plugin/preview/StatisticsPreview.cpp")
target_link_libraries(tst_devhost PRIVATE TalvixDevApp)
target_compile_definitions(tst_devhost PRIVATE TALVIXPREVIEW_LIBRARY)

# Tests that run the program.
foreach(test IN LISTS TALVIX_PROGRAM_TESTS)
    target_compile_definitions(${test} PRIVATE TALVIX_DEVHOST="$<TARGET_FILE:talvix-devhost>")
    add_dependencies(${test} talvix-devhost)
endforeach()
