# Stands for an installed QXlsx: the product must link it where it is found, and nothing must call it.
if(NOT TARGET Qt6::Gui)
    message(FATAL_ERROR "Qt6::Gui must be there first")
endif()
if(NOT TARGET QXlsx::QXlsx)
    add_library(QXlsx::QXlsx INTERFACE IMPORTED)
    set_target_properties(QXlsx::QXlsx PROPERTIES INTERFACE_COMPILE_DEFINITIONS TALVIX_QXLSX_LINKED)
endif()
