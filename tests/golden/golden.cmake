# golden/<topic>/<case>.svg: one test for each topic folder.
if(NOT TARGET egfsvg)
  return()
endif()

egfsvg_test_program(golden_tests golden/golden_test.cpp "")
file(GLOB entries LIST_DIRECTORIES ON CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/golden/*)
foreach(entry IN LISTS entries)
  if(IS_DIRECTORY ${entry})
    get_filename_component(topic ${entry} NAME)
    add_test(NAME golden.${topic} COMMAND golden_tests --gtest_brief=1 ${topic})
    set_tests_properties(golden.${topic} PROPERTIES LABELS golden TIMEOUT 600
      ENVIRONMENT "${EGFSVG_TEST_ENVIRONMENT}")
  endif()
endforeach()
