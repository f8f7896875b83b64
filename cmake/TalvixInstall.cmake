include(CMakePackageConfigHelpers)

# The product: library, public headers and package.
install(TARGETS TalvixDataStatics
    EXPORT TalvixDataStaticsTargets
    COMPONENT product
    PUBLIC_HEADER DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/TalvixDataStatics")
talvix_install_package(TalvixDataStatics product)

# The contract and its stand-in, where no host's own SDK is in use.
if(NOT TALVIX_SDK_DIR)
    install(TARGETS TalvixWidgets TalvixModel TalvixMessages EXPORT TalvixSdkTargets COMPONENT sdk)
    foreach(library TalvixWidgets TalvixModel TalvixMessages)
        install(DIRECTORY "${PROJECT_SOURCE_DIR}/client/${library}"
            DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
            COMPONENT sdk
            FILES_MATCHING PATTERN "*.h")
    endforeach()
    install(FILES
            "${PROJECT_SOURCE_DIR}/devhost/client/ClientInstances.h"
            "${PROJECT_SOURCE_DIR}/devhost/widgets/HostSettings.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/TalvixHost"
        COMPONENT sdk)
    talvix_install_package(TalvixSdk sdk)
endif()
