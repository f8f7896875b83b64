target_sources(TalvixDataStaticsObjects PRIVATE
    ${PROJECT_SOURCE_DIR}/statistics/AlarmQueries.cpp
    ${PROJECT_SOURCE_DIR}/statistics/ChartData.cpp
    ${PROJECT_SOURCE_DIR}/statistics/Classification.cpp
    ${PROJECT_SOURCE_DIR}/statistics/DistributionQueries.cpp
    ${PROJECT_SOURCE_DIR}/statistics/OnlineQueries.cpp
    ${PROJECT_SOURCE_DIR}/statistics/Requests.h
    ${PROJECT_SOURCE_DIR}/statistics/TemperatureQueries.cpp
    ${PROJECT_SOURCE_DIR}/statistics/TrafficQueries.cpp)
