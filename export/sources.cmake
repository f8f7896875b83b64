target_sources(TalvixDataStaticsObjects PRIVATE
    ${PROJECT_SOURCE_DIR}/export/PdfSnapshot.cpp
    ${PROJECT_SOURCE_DIR}/export/TempResultExportWidget.cpp
    ${PROJECT_SOURCE_DIR}/export/TempResultExportWidget.h
    ${PROJECT_SOURCE_DIR}/export/TempResultExportWidget.ui)
