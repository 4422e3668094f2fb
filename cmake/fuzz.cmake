# corvane_fuzz(NAME name SOURCES ... LIBRARIES ... [RUNS n])
# A fuzzer: tests/fuzz/NAME_fuzz.cpp with the SOURCES that it is about, compiled
# with sanitizers and told of every branch taken; the LIBRARIES, as they are,
# give the rest. `fuzz` builds all; CTest runs each briefly, the same inputs every
# time. For a long run:  build/bin/page_record_fuzz --seconds 600
add_custom_target(fuzz)
function(corvane_fuzz)
  cmake_parse_arguments(F "" "NAME;RUNS" "SOURCES;LIBRARIES" ${ARGN})
  if(NOT F_RUNS)
    set(F_RUNS 20000)
  endif()
  set(program ${F_NAME}_fuzz)
  list(TRANSFORM F_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/)
  add_executable(${program} ${F_NAME}_fuzz.cpp ${F_SOURCES} $<TARGET_OBJECTS:corvane_fuzz_driver>)
  target_link_libraries(${program} PRIVATE corvane_options ${F_LIBRARIES})
  target_compile_options(${program} PRIVATE -O1 -fsanitize=address,undefined -fno-sanitize-recover=all
                                            -fno-omit-frame-pointer -fsanitize-coverage=trace-pc)
  target_link_options(${program} PRIVATE -fsanitize=address,undefined)
  add_dependencies(fuzz ${program})
  add_test(NAME fuzz.${F_NAME}
           COMMAND ${program} --runs ${F_RUNS} --seeds ${CMAKE_CURRENT_SOURCE_DIR}/seeds/${F_NAME})
  set_tests_properties(fuzz.${F_NAME} PROPERTIES TIMEOUT 300)
endfunction()
