target_sources(TalvixDataStaticsObjects PRIVATE
    ${PROJECT_SOURCE_DIR}/charts/BarCharts.cpp
    ${PROJECT_SOURCE_DIR}/charts/BarFocus.cpp
    ${PROJECT_SOURCE_DIR}/charts/ChartAssembly.cpp
    ${PROJECT_SOURCE_DIR}/charts/ChartLayout.cpp
    ${PROJECT_SOURCE_DIR}/charts/ChartLayout.h
    ${PROJECT_SOURCE_DIR}/charts/ChartLook.cpp
    ${PROJECT_SOURCE_DIR}/charts/ChartLook.h
    ${PROJECT_SOURCE_DIR}/charts/LineCharts.cpp
    ${PROJECT_SOURCE_DIR}/charts/Overlays.cpp
    ${PROJECT_SOURCE_DIR}/charts/PieChart.cpp
    ${PROJECT_SOURCE_DIR}/charts/ReadableLabels.cpp
    ${PROJECT_SOURCE_DIR}/charts/ReadableLabels.h
    ${PROJECT_SOURCE_DIR}/charts/Titles.cpp
    ${PROJECT_SOURCE_DIR}/charts/UserData.h)
