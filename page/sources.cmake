target_sources(TalvixDataStaticsObjects PRIVATE
    ${PROJECT_SOURCE_DIR}/page/BasicChart.cpp
    ${PROJECT_SOURCE_DIR}/page/BasicChart.h
    ${PROJECT_SOURCE_DIR}/page/BasicChart.ui
    ${PROJECT_SOURCE_DIR}/page/Clock.cpp
    ${PROJECT_SOURCE_DIR}/page/Clock.h
    ${PROJECT_SOURCE_DIR}/page/Form.cpp
    ${PROJECT_SOURCE_DIR}/page/LabelledValues.cpp
    ${PROJECT_SOURCE_DIR}/page/LabelledValues.h
    ${PROJECT_SOURCE_DIR}/page/Organisation.cpp
    ${PROJECT_SOURCE_DIR}/page/QueryCycle.cpp
    ${PROJECT_SOURCE_DIR}/page/ServiceTypes.cpp
    ${PROJECT_SOURCE_DIR}/page/ServiceTypes.h
    ${PROJECT_SOURCE_DIR}/page/Texts.h
    ${PROJECT_SOURCE_DIR}/page/TimeFormats.cpp
    ${PROJECT_SOURCE_DIR}/page/TimeFormats.h
    ${PROJECT_SOURCE_DIR}/page/TimeSpan.cpp)
