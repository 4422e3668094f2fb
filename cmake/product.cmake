# The product: all behaviour, no toolkit. All that it takes from elsewhere is a reader of
# JSON, which is headers only.
find_package(nlohmann_json REQUIRED)
file(GLOB product_sources CONFIGURE_DEPENDS
     ${CMAKE_SOURCE_DIR}/base/*.cpp ${CMAKE_SOURCE_DIR}/app/*.cpp ${CMAKE_SOURCE_DIR}/speech/*.cpp
     ${CMAKE_SOURCE_DIR}/browser/*.cpp ${CMAKE_SOURCE_DIR}/browser/reading/*.cpp
     ${CMAKE_SOURCE_DIR}/explorer/*.cpp
     ${CMAKE_SOURCE_DIR}/access/*.cpp ${CMAKE_SOURCE_DIR}/controls/*.cpp
     ${CMAKE_SOURCE_DIR}/web/*.cpp ${CMAKE_SOURCE_DIR}/web/address/*.cpp
     ${CMAKE_SOURCE_DIR}/web/library/*.cpp ${CMAKE_SOURCE_DIR}/web/requests/*.cpp
     ${CMAKE_SOURCE_DIR}/web/page/*.cpp)
if(product_sources)
  add_library(corvane_product STATIC ${product_sources})
  target_link_libraries(corvane_product PUBLIC corvane_options nlohmann_json::nlohmann_json)
endif()
