# What the figures of the development host cost as their database grows. It needs no window and no page.
if(TARGET TalvixDevData)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Network)
    add_executable(talvix-store-figures
        "${CMAKE_CURRENT_SOURCE_DIR}/store_figures.cpp"
        "${CMAKE_CURRENT_SOURCE_DIR}/StoreQuestions.cpp"
        "${CMAKE_CURRENT_SOURCE_DIR}/StoreQuestions.h"
        "${CMAKE_CURRENT_SOURCE_DIR}/StoreRates.cpp"
        "${CMAKE_CURRENT_SOURCE_DIR}/StoreRates.h"
        "${PROJECT_SOURCE_DIR}/tests/support/PostgresServer.cpp"
        "${PROJECT_SOURCE_DIR}/tests/support/PostgresServer.h")
    talvix_target(talvix-store-figures)
    target_include_directories(talvix-store-figures PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(talvix-store-figures PRIVATE TalvixDevData Qt6::Network)
endif()
