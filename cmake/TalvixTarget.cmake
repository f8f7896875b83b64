# What every target of the project is compiled with.
function(talvix_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        AUTOUIC ON
        AUTORCC ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    # What is deprecated in any Qt warns, also what only the next one will leave out.
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS_SINCE=0x070000)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${TALVIX_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow
            $<$<BOOL:${TALVIX_WARNINGS_AS_ERRORS}>:-Werror>)
        if(TALVIX_SANITIZE)
            target_compile_options(${target} PUBLIC
                -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
            target_link_options(${target} PUBLIC -fsanitize=address,undefined)
        endif()
        if(TALVIX_BUILD_FUZZERS)
            target_compile_options(${target} PUBLIC -fsanitize=fuzzer-no-link)
        endif()
        if(TALVIX_COVERAGE)
            target_compile_options(${target} PUBLIC --coverage -fprofile-abs-path)
            target_link_options(${target} PUBLIC --coverage)
        endif()
    endif()
endfunction()

# Compiles the texts <base>_<language>.ts into a target. Texts are found by keys and not by their English, so there
# is nothing that lupdate could collect.
function(talvix_add_texts target base)
    set(catalogues "")
    foreach(language IN ITEMS de en zh_CN)
        list(APPEND catalogues "${base}_${language}.ts")
    endforeach()
    qt_add_lrelease(${target} TS_FILES ${catalogues} QM_FILES_OUTPUT_VARIABLE compiled NO_GLOBAL_TARGET)
    qt_add_resources(${target} "${target}_texts"
        PREFIX /talvix/texts
        BASE "${CMAKE_CURRENT_BINARY_DIR}"
        FILES ${compiled})
endfunction()

# Installs <name>Targets with a package that find_package(<name>) takes.
function(talvix_install_package name component)
    set(destination "${CMAKE_INSTALL_LIBDIR}/cmake/${name}")
    install(EXPORT ${name}Targets NAMESPACE ${name}:: DESTINATION "${destination}" COMPONENT ${component})
    configure_package_config_file(
        "${PROJECT_SOURCE_DIR}/cmake/${name}Config.cmake.in"
        "${PROJECT_BINARY_DIR}/${name}Config.cmake"
        INSTALL_DESTINATION "${destination}")
    write_basic_package_version_file("${PROJECT_BINARY_DIR}/${name}ConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(FILES
            "${PROJECT_BINARY_DIR}/${name}Config.cmake"
            "${PROJECT_BINARY_DIR}/${name}ConfigVersion.cmake"
        DESTINATION "${destination}"
        COMPONENT ${component})
endfunction()
