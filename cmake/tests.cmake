find_package(GTest REQUIRED)
include(GoogleTest)

# corvane_test(NAME name SOURCES ... LIBRARIES ... [DESKTOP])
# A GoogleTest program, one CTest entry a test case. DESKTOP runs each one on a
# virtual display with a session bus and XDG folders of its own; such a program
# is one CTest entry, so that the display is started once.
function(corvane_test)
  cmake_parse_arguments(T "DESKTOP" "NAME" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  # Optimizing what runs once costs minutes and finds nothing.
  target_compile_options(${T_NAME} PRIVATE -O0 -g1)
  target_link_libraries(${T_NAME} PRIVATE corvane_options ${T_LIBRARIES} GTest::gmock GTest::gtest_main)
  if(T_DESKTOP)
    add_test(NAME ${T_NAME} COMMAND ${CMAKE_SOURCE_DIR}/scripts/with-desktop $<TARGET_FILE:${T_NAME}>)
    set_tests_properties(${T_NAME} PROPERTIES TIMEOUT 300)
  else()
    gtest_discover_tests(${T_NAME} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()
