# Checks over the sources and the built module, and the tests of the checks themselves.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(egfsvg_check name)
  add_test(NAME check.${name} COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/tools/check_${name}
    ${ARGN})
  set_tests_properties(check.${name} PROPERTIES LABELS check)
endfunction()

egfsvg_check(layers)
egfsvg_check(sizes)
egfsvg_check(words)
if(TARGET svg)
  egfsvg_check(module $<TARGET_FILE:svg>)
endif()
if(TARGET egfhost)
  # A library that exports other names is refused.
  add_test(NAME check.module_refuses COMMAND Python3::Interpreter
    ${CMAKE_SOURCE_DIR}/tools/check_module $<TARGET_FILE:egfhost>)
  set_tests_properties(check.module_refuses PROPERTIES LABELS check WILL_FAIL ON)
endif()
add_test(NAME check.checks
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/tools/checks_test.py)
set_tests_properties(check.checks PROPERTIES LABELS check)
