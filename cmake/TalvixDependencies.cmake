find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Charts)
if(NOT TALVIX_SDK_DIR)
    find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
endif()
if(TALVIX_BUILD_DEVHOST OR TALVIX_BUILD_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Sql)
endif()
if(TALVIX_BUILD_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Network Test)
endif()

# Linked for the host's sake; nothing calls it. Its package expects Qt's Gui to be there.
find_package(QXlsxQt6 CONFIG QUIET)

# With a host's own SDK its libraries stand in the place of ours.
if(TALVIX_SDK_DIR)
    find_package(TalvixSdk CONFIG REQUIRED PATHS "${TALVIX_SDK_DIR}" NO_DEFAULT_PATH)
    foreach(library TalvixModel TalvixMessages TalvixWidgets)
        add_library(${library} ALIAS TalvixSdk::${library})
    endforeach()
endif()
