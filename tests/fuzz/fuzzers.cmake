# One fuzz target for each fuzz_<topic>.cpp; paths are relative to tests/. They are no tests: fuzz.sh runs
# them for a while.
add_library(TalvixFuzzSupport OBJECT fuzz/FuzzSupport.cpp fuzz/FuzzSupport.h)
talvix_target(TalvixFuzzSupport)
target_link_libraries(TalvixFuzzSupport PUBLIC TalvixTestSupport)
target_precompile_headers(TalvixFuzzSupport REUSE_FROM TalvixTestSupport)

add_custom_target(fuzzers)
file(GLOB fuzzers CONFIGURE_DEPENDS fuzz/fuzz_*.cpp)
foreach(source IN LISTS fuzzers)
    get_filename_component(fuzzer "${source}" NAME_WE)
    add_executable(${fuzzer} EXCLUDE_FROM_ALL ${source})
    talvix_target(${fuzzer})
    target_link_libraries(${fuzzer} PRIVATE TalvixFuzzSupport TalvixDevData)
    target_link_options(${fuzzer} PRIVATE -fsanitize=fuzzer)
    target_precompile_headers(${fuzzer} REUSE_FROM TalvixTestSupport)
    add_dependencies(fuzzers ${fuzzer})
endforeach()
